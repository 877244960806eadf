#pragma once

#include <string>

#include "TFleet.h"

class TConsole;

/// The folder of the index, in the fleet's folder.
constexpr const char* kFleetIndexFolder = "fleet-index";

/// Reads the reports below the folder; the caller may add to what is found.
/// Throws: TCommandFailure where the folder can't be read.
TFleet ReadFleetBelow(const std::string& folder, TConsole& console);

/// Judges the fleet and writes its index; it appears whole or not at all. An index that stands
/// there is replaced, anything else only by force.
/// Throws: TCommandFailure.
void WriteFleetIndex(const std::string& folder, TFleet fleet, bool force);
