#pragma once

#include <cstdint>
#include <string>

#include "TCIMDateTime.h"

namespace NZANQSX20 {

/// The rule at the end of a time zone file, as POSIX writes it: "CET-1CEST,M3.5.0,M10.5.0/3".
/// Missing: "UTC0" when the file has none.
std::string FindTimeRule(const std::string& zoneFile);

/// A point in time as local time by that rule, which holds today: the hour of an older time may
/// have been another, its offset tells the same point in time all the same.
/// Units: seconds since 1970, microseconds.
TCIMDateTime MakeLocalTime(const std::string& rule, std::int64_t seconds, unsigned microseconds);

}  // namespace NZANQSX20
