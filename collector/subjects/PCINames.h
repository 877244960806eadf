#pragma once

#include <map>
#include <string>

namespace NZANQSX20 {

class TCollected;
class TMachine;

/// What a PCI device is called. Missing: empty texts.
struct TPCIName
{
   std::string fVendor;
   std::string fDevice;
   /// "Ethernet controller"
   std::string fClass;

   /// Maker and device, or what kind of device it is.
   std::string Describe() const;
};

/// By the address on the bus, "0000:00:1f.2".
using TPCINames = std::map<std::string, TPCIName>;

/// The names of all devices on the bus, from lspci, or else from the notes of the device manager.
/// Missing: a device that neither has is not in the map, and the collection names the gap.
TPCINames ReadPCINames(const TMachine& machine, TCollected& collected);

}  // namespace NZANQSX20
