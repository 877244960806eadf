#pragma once

#include <cstdint>

#include "store/TShape.h"
#include "store/TStoredValue.h"

namespace NZANQSX20 {

class TStoredClass;

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
   friend class TInstanceIndex;

   TStoredClass* fClass = nullptr;
   const TShape* fShape = nullptr;
   TStoredValue* fValues = nullptr;
   std::uint64_t fOrder = 0;
   std::uint32_t fNumber = 0;
   std::uint32_t fCapacity = 0;
   bool fWasListed = false;
   bool fIsListed = false;
   /// Another instance came first and answers to the path; set by the index.
   bool fIsShadowed = false;
};

}  // namespace NZANQSX20
