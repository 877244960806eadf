#pragma once

#include "CommandFailure.h"

class TConsole;
struct TOptions;

/// Prints what a collection holds and what is wrong with it.
EExitCode RunCheckCommand(const TOptions& options, TConsole& console);
