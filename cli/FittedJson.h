#pragma once

#include <string>

/// Compact JSON laid out to be read: what fits a line of 160 characters, as a column of a table
/// does, stays on one, all else has a member or element a line. Throws: nothing; the text must be
/// valid JSON.
std::string FitJson(const std::string& compact);
