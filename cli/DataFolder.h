#pragma once

#include <string>

/// The folder of the fixed data files: share/qsxreport beside the folder of the program where it is
/// there (an installed tree that was moved, or a build tree), else the one that was configured.
std::string GetDataFolder();
