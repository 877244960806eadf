#pragma once

#include <vector>

#include "store/TStoredValue.h"

namespace NZANQSX20 {

class TStoredClass;

/// The values of an instance to be, collected by slot; used again and again by a reader.
class QSX_API TInstanceDraft
{
public:
   explicit TInstanceDraft(TStoredClass& storedClass) { Start(storedClass); }

   /// Forgets everything and begins an instance of that class.
   void Start(TStoredClass& storedClass);

   /// Sets a value; a slot that has one already keeps its place and takes the new value.
   void Set(TSlot slot, const TStoredValue& value);

   bool Has(TSlot slot) const
   {
      return slot < fPositions.size() && fPositions[slot] != kNoPosition;
   }

   TStoredClass& GetClass() const { return *fClass; }

   /// In order of setting.
   const std::vector<TSlot>& GetSlots() const { return fSlots; }

   /// One per slot, in the same order.
   const std::vector<TStoredValue>& GetValues() const { return fValues; }

private:
   static constexpr std::uint32_t kNoPosition = 0xffffffff;

   TStoredClass* fClass = nullptr;
   std::vector<TSlot> fSlots;
   std::vector<TStoredValue> fValues;
   std::vector<std::uint32_t> fPositions;
};

}  // namespace NZANQSX20
