#pragma once

#include <string>
#include <vector>

/// The candidate that the mistyped word most likely means. Missing: empty where none is near.
std::string FindSimilar(const std::string& word, const std::vector<std::string>& candidates);
