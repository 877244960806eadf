#pragma once

#include "catalogue/TReportParametersBuilder.h"

// Conditions on what TReportParametersBuilder::GetOSType answers.

inline bool IsWindows(int osType)
{
   return osType == TReportParametersBuilder::kWindows ||
          osType == TReportParametersBuilder::kWindowsLater;
}

inline bool IsLinux(int osType)
{
   return osType == TReportParametersBuilder::kLinux;
}

inline bool IsESX(int osType)
{
   return osType == TReportParametersBuilder::kESX;
}
