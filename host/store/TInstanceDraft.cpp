#include "store/TInstanceDraft.h"

namespace NZANQSX20 {

void TInstanceDraft::Start(TStoredClass& storedClass)
{
   for (const TSlot slot : fSlots)
      fPositions[slot] = kNoPosition;
   fSlots.clear();
   fValues.clear();
   fClass = &storedClass;
}

void TInstanceDraft::Set(TSlot slot, const TStoredValue& value)
{
   if (Has(slot)) {
      fValues[fPositions[slot]] = value;
      return;
   }
   if (slot >= fPositions.size())
      fPositions.resize(slot + 1, kNoPosition);
   fPositions[slot] = static_cast<std::uint32_t>(fSlots.size());
   fSlots.push_back(slot);
   fValues.push_back(value);
}

}  // namespace NZANQSX20
