#pragma once

#include <string>

#include "QSXExport.h"

/// A span of time as four texts of decimal digits.
struct QSX_API RunDuration
{
   std::string fHours;
   std::string fMinutes;
   std::string fSeconds;
   std::string fMilliseconds;
};
