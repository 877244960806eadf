#include "store/TArena.h"

namespace NZANQSX20 {

void* TArena::AllocateElsewhere(std::size_t size)
{
   // A large piece gets a block of its own, so that the rest of the current block isn't lost.
   const bool isLarge = size > kBlockSize / 4;
   fBlocks.emplace_back(new char[isLarge ? size : kBlockSize]);
   char* block = fBlocks.back().get();
   if (!isLarge) {
      fNext = block + size;
      fFree = kBlockSize - size;
   }
   return block;
}

}  // namespace NZANQSX20
