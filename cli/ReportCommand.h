#pragma once

#include "CommandFailure.h"

class TConsole;
struct TOptions;

/// Writes the pages of one system.
EExitCode RunReportCommand(const TOptions& options, TConsole& console);
