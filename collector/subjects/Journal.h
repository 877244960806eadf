#pragma once

namespace NZANQSX20 {

class TCollected;
class TMachine;

/// Adds the newest records of the journal, those of the kernel as a log of their own.
/// Missing: false when there is no journal, or none that may be read.
bool CollectJournal(const TMachine& machine, TCollected& collected);

}  // namespace NZANQSX20
