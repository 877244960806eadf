#pragma once

#include <string>

/// A span of time as four texts of decimal digits.
struct RunDuration
{
   std::string fHours;
   std::string fMinutes;
   std::string fSeconds;
   std::string fMilliseconds;
};
