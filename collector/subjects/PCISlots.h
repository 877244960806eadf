#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>

#include "TCollected.h"

namespace NZANQSX20 {

class TMachine;

/// The slots of the machine and the places of what is soldered to its board, as the machine
/// describes itself; without that, the slots that the kernel can switch.
class TPCISlots
{
public:
   /// Adds them to the collection.
   TPCISlots(const TMachine& machine, TCollected& collected);

   /// Puts the device into its place. Missing: a device in no known place is left alone.
   void Place(TCollected& collected, const std::string& address, TEntry& element, bool isBridge);

private:
   struct TPlace
   {
      TEntry fEntry;
      /// Of a slot with a number.
      std::optional<std::uint64_t> fNumber;
   };

   void AddDescribed(TCollected& collected, const class TDMITable& table);
   void AddSwitchable(const TMachine& machine, TCollected& collected);

   /// By the address of the device without its function, "0000:02:00".
   std::map<std::string, TPlace> fSlots;
   /// By the whole address.
   std::map<std::string, TPlace> fBoardPlaces;
};

}  // namespace NZANQSX20
