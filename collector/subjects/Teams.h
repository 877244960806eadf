#pragma once

#include <string>

namespace NZANQSX20 {

class TCollected;
class TEntry;
class TMachine;

/// Adds the bond or the bridge that the virtual port stands for. Missing: nothing is added for
/// another kind of port.
void AddTeam(const TMachine& machine, TCollected& collected, const TEntry& port,
             const std::string& name);

/// Tells on the physical port which team it belongs to, if any.
void SetTeam(const TMachine& machine, TEntry& port, const std::string& name);

}  // namespace NZANQSX20
