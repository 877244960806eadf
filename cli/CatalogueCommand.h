#pragma once

#include "CommandFailure.h"

class TConsole;
struct TOptions;

/// Prints every definition of the catalogue for the collection as one JSON object.
EExitCode RunCatalogueCommand(const TOptions& options, TConsole& console);
