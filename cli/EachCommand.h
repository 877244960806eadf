#pragma once

#include <functional>

#include "CommandFailure.h"

class TConsole;
struct TOptions;

/// Writes the pages of each collection in a folder into an output folder of its own, several at a
/// time, and an index above them. runOne writes those of one; it is called in worker processes.
///
/// Shape:  a file or folder in the folder is a collection; what begins with "." is passed over. A
///         collection that fails costs its own pages only and is named in the index.
/// Throws: TCommandFailure where the folder or the output folder can't be used.
EExitCode RunEachCommand(const TOptions& options, TConsole& console,
                         const std::function<int(const TOptions&)>& runOne);
