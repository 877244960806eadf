#include "store/TShape.h"

#include <algorithm>
#include <functional>
#include <new>
#include <numeric>
#include <string_view>
#include <vector>

namespace NZANQSX20 {

namespace {

/// Up to here a scan is as fast as a search.
constexpr std::size_t kSmallShape = 24;

bool IsSame(const TShape& shape, const TSlot* slots, std::size_t count)
{
   return shape.fCount == count && std::equal(slots, slots + count, shape.fSlots);
}

std::uint64_t HashSlots(const TSlot* slots, std::size_t count)
{
   const char* bytes = reinterpret_cast<const char*>(slots);
   return std::hash<std::string_view>()({bytes, count * sizeof(TSlot)});
}

}  // namespace

std::uint32_t TShape::FindSorted(TSlot slot) const
{
   const std::uint32_t* end = fSorted + fCount;
   const std::uint32_t* found = std::lower_bound(
      fSorted, end, slot,
      [this](std::uint32_t position, TSlot wanted) { return fSlots[position] < wanted; });
   return found != end && fSlots[*found] == slot ? *found : fCount;
}

const TShape& TShapeTable::Get(const TSlot* slots, std::size_t count, TArena& arena)
{
   if (fLast != nullptr && IsSame(*fLast, slots, count))
      return *fLast;

   const std::uint64_t hash = HashSlots(slots, count);
   const auto candidates = fByHash.equal_range(hash);
   for (auto candidate = candidates.first; candidate != candidates.second; ++candidate) {
      if (IsSame(*candidate->second, slots, count))
         return *(fLast = candidate->second);
   }
   const TShape& made = Make(slots, count, arena);
   fByHash.emplace(hash, &made);
   fLast = &made;
   return made;
}

const TShape& TShapeTable::Make(const TSlot* slots, std::size_t count, TArena& arena)
{
   TShape& shape = *new (arena.Allocate(sizeof(TShape))) TShape;
   shape.fCount = static_cast<std::uint32_t>(count);
   shape.fSlots = arena.Copy(slots, count);
   if (count > kSmallShape) {
      std::vector<std::uint32_t> positions(count);
      std::iota(positions.begin(), positions.end(), 0u);
      std::sort(positions.begin(), positions.end(),
                [slots](std::uint32_t a, std::uint32_t b) { return slots[a] < slots[b]; });
      shape.fSorted = arena.Copy(positions.data(), count);
   }
   return shape;
}

}  // namespace NZANQSX20
