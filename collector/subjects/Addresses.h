#pragma once

#include <string>

#include <rapidjson/document.h>

namespace NZANQSX20 {

class TCollected;
class TEntry;
class TMachine;

// interface: what "ip -j addr" tells of it. Missing: a null tells nothing, and nothing is set.

/// Adds the addresses of an interface, of both families, as one endpoint.
void AddEndpoint(TCollected& collected, const TEntry& port, const std::string& name,
                 const rapidjson::Value& interface);

/// Tells on the port whether a server gave it its address, and which.
void SetDHCP(const TMachine& machine, TEntry& port, const std::string& name,
             const rapidjson::Value& interface);

}  // namespace NZANQSX20
