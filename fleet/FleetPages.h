#pragma once

#include <string>

#include "TFleet.h"
#include "html/HtmlOptions.h"

/// Writes the index over the machines as pages: a front page with what is wrong in the fleet, all
/// machines on it and on further pages, and all firmware levels.
///
/// Shape:  the output folder stands in the fleet's folder, beside the reports, which the pages link
///         to by "../".
/// Throws: TOutputError.
void WriteFleetPages(const TFleet& fleet, const std::string& outputDirectory,
                     const THtmlOptions& options);
