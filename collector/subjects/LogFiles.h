#pragma once

namespace NZANQSX20 {

class TCollected;
class TMachine;

/// Adds the newest lines of the system's log files.
/// Missing: false when there is no such file, or none that may be read.
bool CollectLogFiles(const TMachine& machine, TCollected& collected);

/// Adds what the kernel still holds of its own messages.
/// Missing: false when it holds none or tells nobody.
bool CollectKernelMessages(const TMachine& machine, TCollected& collected);

}  // namespace NZANQSX20
