#pragma once

#include <string>

/// "qsxreport 0.1.0 (1a2b3c4d5e6f)": name, version, and the commit it was built from where there is
/// one.
std::string GetVersionText();

/// "1a2b3c4d5e6f", the commit the program was built from. Missing: empty.
std::string GetCommit();
