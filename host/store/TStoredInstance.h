#pragma once

#include <cstdint>

#include "store/TStoredValue.h"

namespace NZANQSX20 {

class TStoredClass;

/// The slots that an instance has values for, in order of setting; shared by all instances of a
/// class that set the same ones.
struct TShape
{
   std::uint32_t fCount = 0;
   const TSlot* fSlots = nullptr;
   /// Positions by ascending slot. Missing: null for a small shape, which is searched as it is.
   const std::uint32_t* fSorted = nullptr;

   /// The position of the slot's value. Missing: fCount.
   std::uint32_t Find(TSlot slot) const;
};

/// One instance of the store. Made and changed by TMemoryStore alone.
class TStoredInstance
{
public:
   TStoredClass& GetClass() const { return *fClass; }

   /// The number within the class in order of listing, from 0; deleted ones keep theirs.
   std::uint32_t GetNumber() const { return fNumber; }

   /// The place in the order of listing over all classes.
   std::uint64_t GetOrder() const { return fOrder; }

   bool IsListed() const { return fIsListed; }

   const TShape& GetShape() const { return *fShape; }

   /// One per slot of the shape, in its order.
   const TStoredValue* GetValues() const { return fValues; }

   /// The instance's own value. Missing: null when it has none; the declared default is not looked
   /// at.
   const TStoredValue* Find(TSlot slot) const
   {
      const std::uint32_t position = fShape->Find(slot);
      return position < fShape->fCount ? fValues + position : nullptr;
   }

private:
   friend class TMemoryStore;

   TStoredClass* fClass = nullptr;
   const TShape* fShape = nullptr;
   TStoredValue* fValues = nullptr;
   std::uint64_t fOrder = 0;
   std::uint32_t fNumber = 0;
   bool fIsListed = false;
};

}  // namespace NZANQSX20
