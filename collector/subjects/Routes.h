#pragma once

#include <map>
#include <string>
#include <vector>

namespace NZANQSX20 {

class TCollected;
class TMachine;

/// The gateways of the default routes, by the name of the interface they are reached through.
using TGateways = std::map<std::string, std::vector<std::string>>;

/// Adds the routes of both families.
TGateways CollectRoutes(const TMachine& machine, TCollected& collected);

}  // namespace NZANQSX20
