#pragma once

#include <cstddef>
#include <cstring>
#include <memory>
#include <new>
#include <string_view>
#include <type_traits>
#include <vector>

namespace NZANQSX20 {

/// Memory that is taken in small pieces and given back all at once.
///
/// Owner: pieces stay where they are until the arena goes; nothing in them is destroyed, so only
/// trivial types live here.
class TArena
{
public:
   TArena() = default;
   TArena(const TArena&) = delete;
   TArena& operator=(const TArena&) = delete;

   /// Units: bytes; the piece is aligned for 8-byte values.
   void* Allocate(std::size_t size)
   {
      const std::size_t rounded = (size + kAlignment - 1) & ~(kAlignment - 1);
      if (rounded < size)
         throw std::bad_alloc();
      if (rounded > fFree)
         return AllocateElsewhere(rounded);
      void* piece = fNext;
      fNext += rounded;
      fFree -= rounded;
      return piece;
   }

   /// A copy of the text, not ended by a zero.
   std::string_view Copy(std::string_view text)
   {
      if (text.empty())
         return {};
      char* copy = static_cast<char*>(Allocate(text.size()));
      std::memcpy(copy, text.data(), text.size());
      return {copy, text.size()};
   }

   template <typename T>
   T* Copy(const T* items, std::size_t count)
   {
      static_assert(std::is_trivially_copyable<T>::value && alignof(T) <= kAlignment,
                    "the arena destroys nothing");
      if (count == 0)
         return nullptr;
      T* copy = static_cast<T*>(Allocate(count * sizeof(T)));
      std::memcpy(static_cast<void*>(copy), items, count * sizeof(T));
      return copy;
   }

private:
   static constexpr std::size_t kAlignment = 8;
   static constexpr std::size_t kBlockSize = 256 * 1024;

   void* AllocateElsewhere(std::size_t size);

   std::vector<std::unique_ptr<char[]>> fBlocks;
   char* fNext = nullptr;
   std::size_t fFree = 0;
};

}  // namespace NZANQSX20
