#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "readers/TReadLimits.h"

namespace NZANQSX20 {

/// A run of bytes that is read once, from its beginning to its end.
class TByteSource
{
public:
   virtual ~TByteSource() = default;

   /// Up to size bytes; 0 at the end only. Throws: TReadError where no more can be read.
   virtual std::size_t Read(char* buffer, std::size_t size) = 0;
};

/// Bytes that can be looked at before they are read.
class TPeekableBytes : public TByteSource
{
public:
   explicit TPeekableBytes(std::unique_ptr<TByteSource> bytes);

   std::size_t Read(char* buffer, std::size_t size) override;

   /// The first bytes that were not read, up to kPeekBytes; fewer only where no more follow.
   std::string_view Peek();

   static constexpr std::size_t kPeekBytes = 1024;

private:
   std::unique_ptr<TByteSource> fBytes;
   std::string fPeeked;
   std::size_t fTaken = 0;
};

/// The bytes of a file. Units: fSize is a hint, 0 where the size is not known beforehand.
struct TOpenedFile
{
   std::unique_ptr<TByteSource> fBytes;
   std::uint64_t fSize = 0;
};

/// Opens a file. Throws: TReadError with the system's reason, or where the file is larger than the
/// limit; from Read where it turns out to be.
TOpenedFile OpenFile(const std::string& path, const TReadLimits& limits);

/// Standard input, under the name of kStandardInputName.
TOpenedFile OpenStandardInput(const TReadLimits& limits);

constexpr const char* kStandardInputName = "<stdin>";

/// A text as if it were the content of a file.
TOpenedFile OpenText(std::string text);

/// All that is left. sizeHint saves growing, and may be 0.
std::string ReadAll(TByteSource& bytes, std::uint64_t sizeHint);

}  // namespace NZANQSX20
