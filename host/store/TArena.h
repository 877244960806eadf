#pragma once

#include <cstddef>
#include <cstring>
#include <memory_resource>
#include <string_view>
#include <type_traits>

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
   void* Allocate(std::size_t size) { return fMemory.allocate(size, kAlignment); }

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
   static constexpr std::size_t kFirstBlock = 64 * 1024;

   std::pmr::monotonic_buffer_resource fMemory{kFirstBlock};
};

}  // namespace NZANQSX20
