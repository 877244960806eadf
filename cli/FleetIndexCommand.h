#pragma once

#include "CommandFailure.h"

class TConsole;
struct TOptions;

/// "fleet-index": one page over the machines whose reports stand below a folder.
EExitCode RunFleetIndexCommand(const TOptions& options, TConsole& console);
