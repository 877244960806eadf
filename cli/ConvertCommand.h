#pragma once

#include "CommandFailure.h"

class TConsole;
struct TOptions;

/// Writes a collection in another form. Throws: TCommandFailure, TReadError.
EExitCode RunConvertCommand(const TOptions& options, TConsole& console);
