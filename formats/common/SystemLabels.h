#pragma once

#include <string>
#include <vector>

/// Makes the labels of compared systems differ: those that are equal or empty get the names of
/// their files, as much of the paths as it takes, and a number where the files are the same.
/// Missing: without a file the number has to do.
void MakeLabelsDistinct(std::vector<std::string>& labels, const std::vector<std::string>& files);

/// The last part of a path.
std::string GetFileName(const std::string& path);
