#pragma once

#include <unistd.h>

#include <cstddef>
#include <cstdint>

#include "machine/TReading.h"

namespace NZANQSX20 {

/// A file descriptor, closed at the end of its life. Missing: negative, nothing is open.
class TDescriptor
{
public:
   explicit TDescriptor(int descriptor = -1) : fDescriptor(descriptor) {}

   ~TDescriptor() { Close(); }

   TDescriptor(const TDescriptor&) = delete;
   TDescriptor& operator=(const TDescriptor&) = delete;

   int Get() const { return fDescriptor; }

   void Close()
   {
      if (fDescriptor >= 0)
         close(fDescriptor);
      fDescriptor = -1;
   }

private:
   int fDescriptor;
};

/// Turns an errno into a reason and its words.
void SetReason(TReading& reading, int error);

/// Reads an open file to its end, when it is a regular one: a pipe, a terminal or a device could
/// hang or change by being read.
void ReadRegular(int file, std::size_t cap, TReading& reading);

/// Likewise a part of it.
void ReadRegularPart(int file, std::uint64_t offset, std::size_t size, TReading& reading);

}  // namespace NZANQSX20
