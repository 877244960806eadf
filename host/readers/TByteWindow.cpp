#include "readers/TByteWindow.h"

#include <cstring>

namespace NZANQSX20 {

namespace {

/// Small enough for a processor's cache, large enough for few system calls.
constexpr std::size_t kWindowBytes = 256 * 1024;
constexpr std::size_t kSlackBytes = 32;

}  // namespace

TByteWindow::TByteWindow(TByteSource& bytes) : fBytes(bytes), fBuffer(kWindowBytes) {}

bool TByteWindow::Extend()
{
   const std::size_t size = fEnd - fStart;
   std::memmove(fBuffer.data(), fBuffer.data() + fStart, size);
   fStart = 0;
   fEnd = size;
   // Twice as large when half of it is in use: what lies on the border is scanned again.
   if (size >= fBuffer.size() / 2)
      fBuffer.resize(fBuffer.size() * 2);
   const std::size_t got = fBytes.Read(fBuffer.data() + fEnd, fBuffer.size() - kSlackBytes - fEnd);
   fEnd += got;
   fBuffer[fEnd] = '\0';
   return got != 0;
}

std::size_t TByteWindow::Read(char* buffer, std::size_t size)
{
   if (fStart == fEnd)
      return fBytes.Read(buffer, size);
   const std::size_t count = GetText().copy(buffer, size);
   Drop(count);
   return count;
}

}  // namespace NZANQSX20
