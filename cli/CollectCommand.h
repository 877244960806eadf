#pragma once

#include "CommandFailure.h"

class TConsole;
struct TOptions;

/// Collects this machine, or one under another root, into a file.
EExitCode RunCollectCommand(const TOptions& options, TConsole& console);
