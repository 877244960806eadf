#pragma once

#include <vector>

namespace NZANQSX20 {

class TCollected;
class TMachine;

/// One part of a machine: what the user reads while it is collected, and the function, each in the
/// file of its name.
struct TSubject
{
   const char* fName;
   void (*fCollect)(const TMachine& machine, TCollected& collected);
};

/// In the order of collecting: what others refer to comes first.
const std::vector<TSubject>& GetSubjects();

// System
void CollectComputerSystem(const TMachine& machine, TCollected& collected);

}  // namespace NZANQSX20
