#pragma once

#include "CommandFailure.h"

class TConsole;
struct TOptions;

/// Writes a collection with stand-ins for what identifies. Throws: TCommandFailure, TReadError.
EExitCode RunMaskCommand(const TOptions& options, TConsole& console);
