#pragma once

#include <string>
#include <vector>

#include "machine/TReading.h"

namespace NZANQSX20 {

/// A tool that may be run, and where distributions put it, the first that is there counts.
struct TToolPaths
{
   const char* fName;
   std::vector<const char*> fPaths;
};

/// Throws: std::logic_error for a name that is not in the table.
const TToolPaths& GetToolPaths(const std::string& name);

/// The tool's file with all links resolved, when only the system's administrator could have put
/// it there: it and the folders above it belong to root and nobody else may write them.
/// Missing: empty, and the reading tells why.
std::string FindTool(const TToolPaths& tool, TReading& reading);

}  // namespace NZANQSX20
