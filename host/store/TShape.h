#pragma once

#include <cstddef>
#include <cstdint>
#include <unordered_map>

#include "QSXExport.h"
#include "store/TArena.h"
#include "store/TStoredValue.h"

namespace NZANQSX20 {

/// The slots that an instance has values for, in order of setting; shared by all instances of a
/// class that set the same ones.
struct QSX_API TShape
{
   std::uint32_t fCount = 0;
   const TSlot* fSlots = nullptr;
   /// The positions by ascending slot. Missing: null for a small shape, which is searched as it is.
   const std::uint32_t* fSorted = nullptr;

   /// The position of the slot's value. Missing: fCount.
   std::uint32_t Find(TSlot slot) const
   {
      // Most instances set the declared properties, in their order.
      if (slot < fCount && fSlots[slot] == slot)
         return slot;
      if (fSorted != nullptr)
         return FindSorted(slot);
      std::uint32_t position = 0;
      while (position < fCount && fSlots[position] != slot)
         ++position;
      return position;
   }

private:
   std::uint32_t FindSorted(TSlot slot) const;
};

/// The shapes of one class.
class QSX_API TShapeTable
{
public:
   /// The shape of these slots, made at the first call. Owner: the arena's.
   const TShape& Get(const TSlot* slots, std::size_t count, TArena& arena);

private:
   const TShape& Make(const TSlot* slots, std::size_t count, TArena& arena);

   const TShape* fLast = nullptr;
   std::unordered_multimap<std::uint64_t, const TShape*> fByHash;
};

}  // namespace NZANQSX20
