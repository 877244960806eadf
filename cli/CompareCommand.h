#pragma once

#include "CommandFailure.h"

class TConsole;
struct TOptions;

/// Writes the pages of a comparison of several collections with the first of them.
EExitCode RunCompareCommand(const TOptions& options, TConsole& console);
