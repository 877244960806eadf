#pragma once

#include <string>
#include <vector>

/// What the pages call the inputs: the last part of each path, and as much of the folders above it
/// as it takes to tell different ones apart. Where they lie is nobody's business, and the same
/// input gives the same bytes wherever it lies.
///
/// Shape: a name for each path, in their order; "-" is "standard input".
std::vector<std::string> NameInputs(const std::vector<std::string>& paths);
