#pragma once

#include <string>
#include <vector>

#include "readers/TReadLimits.h"

/// The names that --limit takes and their defaults, for the help: "file-bytes 4G, ...".
std::string DescribeLimits();

/// Sets the limits that "NAME=N" texts ask for; a number may end in K, M or G, powers of 1024.
/// Throws: TCommandFailure for a name that is none and for a text that is no such number.
void SetLimits(const std::vector<std::string>& texts, NZANQSX20::TReadLimits& limits);
