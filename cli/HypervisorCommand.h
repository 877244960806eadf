#pragma once

#include "CommandFailure.h"

class TConsole;
struct TOptions;

/// Writes the pages of a hypervisor host.
EExitCode RunHypervisorCommand(const TOptions& options, TConsole& console);
