#pragma once

#include <functional>
#include <string>
#include <vector>

#include "TFleet.h"

/// A kind of output folder that a report may have.
struct TFleetFormat
{
   /// Of its folder, where a report has several formats.
   std::string fName;
   /// The file to open first.
   std::string fEntry;
};

/// Reads the manifests of all reports below a folder. One that can't be read is a gap.
///
/// Shape: folders with a leading "." are passed over, as staging folders have one; symbolic links
///        are not followed. Of a report in several formats the first in the order given counts.
///        Judge is left to the caller, who may know of more machines.
/// Missing: a machine without a name has that of its folder.
/// Throws: std::filesystem::filesystem_error where the folder itself can't be read.
TFleet ReadFleet(const std::string& folder, const std::vector<TFleetFormat>& formats,
                 const std::function<void(const std::string& place)>& onRead);
