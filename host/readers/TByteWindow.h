#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "readers/TByteSource.h"

namespace NZANQSX20 {

/// The part of a source that is in memory: a scanner works in it and moves it on.
///
/// Shape: a byte 0 follows the text, so that a loop over characters needs no second test, and more
///        bytes of any kind, so that a loop may look at 16 of them at once.
class TByteWindow : public TByteSource
{
public:
   explicit TByteWindow(TByteSource& bytes);

   std::string_view GetText() const { return {fBuffer.data() + fStart, fEnd - fStart}; }

   /// Takes bytes off the start of the text; views into the rest stay valid.
   void Drop(std::size_t size) { fStart += size; }

   /// Adds what the source gives next; all views into the text end.
   /// Missing: false at the end of the source. Throws: TReadError where it cannot be read.
   bool Extend();

   /// The text first, then the rest of the source.
   std::size_t Read(char* buffer, std::size_t size) override;

private:
   TByteSource& fBytes;
   std::vector<char> fBuffer;
   std::size_t fStart = 0;
   std::size_t fEnd = 0;
};

}  // namespace NZANQSX20
