#include "readers/Decompression.h"

#include <cstdint>
#include <utility>
#include <vector>

#include <fmt/format.h>
#include <zlib.h>
#include <zstd.h>

#include "readers/TReadError.h"

namespace NZANQSX20 {

namespace {

constexpr std::size_t kInputBytes = 64 * 1024;

/// What both formats share: the input block and the limits on what comes out.
class TDecompressingBytes : public TByteSource
{
public:
   TDecompressingBytes(std::unique_ptr<TByteSource> bytes, std::string name,
                       const TReadLimits& limits)
      : fBytes(std::move(bytes)), fName(std::move(name)), fLimits(limits), fInput(kInputBytes)
   {}

protected:
   /// Reads the next block. Missing: 0 at the end of the file.
   std::size_t Fill()
   {
      const std::size_t got = fBytes->Read(fInput.data(), fInput.size());
      fTaken += got;
      return got;
   }

   char* GetInput() { return fInput.data(); }

   /// Notes what came out, and stops a small file that grows without end.
   std::size_t Give(std::size_t size)
   {
      fGiven += size;
      if (fGiven > fLimits.fExpandedBytes)
         Fail(fmt::format("expected at most {} bytes once decompressed, found more",
                          fLimits.fExpandedBytes));
      if (fGiven > kFreeExpandedBytes && fGiven / fLimits.fExpansionRatio > fTaken)
         Fail(fmt::format(
            "expected at most {} decompressed bytes for each compressed one, found more",
            fLimits.fExpansionRatio));
      return size;
   }

   [[noreturn]] void Fail(const std::string& text) const { throw TReadError(fName, {}, text); }

private:
   std::unique_ptr<TByteSource> fBytes;
   std::string fName;
   TReadLimits fLimits;
   std::vector<char> fInput;
   std::uint64_t fTaken = 0;
   std::uint64_t fGiven = 0;
};

class TGzipBytes : public TDecompressingBytes
{
public:
   TGzipBytes(std::unique_ptr<TByteSource> bytes, const std::string& name,
              const TReadLimits& limits)
      : TDecompressingBytes(std::move(bytes), name, limits)
   {
      constexpr int kGzipOnly = 16;
      if (inflateInit2(&fStream, MAX_WBITS + kGzipOnly) != Z_OK)
         throw std::bad_alloc();
   }

   ~TGzipBytes() override { inflateEnd(&fStream); }

   TGzipBytes(const TGzipBytes&) = delete;
   TGzipBytes& operator=(const TGzipBytes&) = delete;

   std::size_t Read(char* buffer, std::size_t size) override
   {
      const auto room = static_cast<uInt>(std::min(size, kLargestStep));
      fStream.next_out = reinterpret_cast<Bytef*>(buffer);
      fStream.avail_out = room;
      while (fStream.avail_out == room) {
         if (fStream.avail_in == 0 && !Refill())
            return 0;
         const int result = inflate(&fStream, Z_NO_FLUSH);
         fIsInside = result != Z_STREAM_END;
         if (!fIsInside)
            inflateReset(&fStream);
         else if (result != Z_OK && result != Z_BUF_ERROR)
            Fail(fmt::format("is no valid gzip file: {}",
                             fStream.msg != nullptr ? fStream.msg : "damaged data"));
      }
      return Give(room - fStream.avail_out);
   }

private:
   static constexpr std::size_t kLargestStep = std::size_t{1} << 30;

   /// Missing: false at the end of the file.
   bool Refill()
   {
      const std::size_t got = Fill();
      if (got == 0 && fIsInside)
         Fail("is cut off: expected more gzip data, found the end of the file");
      fStream.next_in = reinterpret_cast<Bytef*>(GetInput());
      fStream.avail_in = static_cast<uInt>(got);
      fIsInside = got != 0;
      return got != 0;
   }

   z_stream fStream = {};
   bool fIsInside = false;
};

class TZstandardBytes : public TDecompressingBytes
{
public:
   TZstandardBytes(std::unique_ptr<TByteSource> bytes, const std::string& name,
                   const TReadLimits& limits)
      : TDecompressingBytes(std::move(bytes), name, limits), fStream(ZSTD_createDStream())
   {
      if (!fStream)
         throw std::bad_alloc();
   }

   std::size_t Read(char* buffer, std::size_t size) override
   {
      ZSTD_outBuffer output = {buffer, size, 0};
      while (output.pos == 0) {
         if (fInput.pos == fInput.size && !fHoldsMore && !Refill())
            return 0;
         const std::size_t result = ZSTD_decompressStream(fStream.get(), &output, &fInput);
         if (ZSTD_isError(result) != 0)
            Fail(fmt::format("is no valid Zstandard file: {}", ZSTD_getErrorName(result)));
         fIsInside = result != 0;
         fHoldsMore = output.pos == output.size;
      }
      return Give(output.pos);
   }

private:
   struct TFreeStream
   {
      void operator()(ZSTD_DStream* stream) const { ZSTD_freeDStream(stream); }
   };

   /// Missing: false at the end of the file.
   bool Refill()
   {
      const std::size_t got = Fill();
      if (got == 0 && fIsInside)
         Fail("is cut off: expected more Zstandard data, found the end of the file");
      fInput = {GetInput(), got, 0};
      return got != 0;
   }

   std::unique_ptr<ZSTD_DStream, TFreeStream> fStream;
   ZSTD_inBuffer fInput = {nullptr, 0, 0};
   bool fIsInside = false;
   /// The output was full, so that the library may keep more of it without new input.
   bool fHoldsMore = false;
};

bool StartsWith(std::string_view text, std::string_view start)
{
   return text.substr(0, start.size()) == start;
}

}  // namespace

ECompression FindCompression(std::string_view start)
{
   if (StartsWith(start, "\x1F\x8B"))
      return ECompression::kGzip;
   if (StartsWith(start, "\x28\xB5\x2F\xFD"))
      return ECompression::kZstandard;
   return ECompression::kNone;
}

const char* GetCompressionName(ECompression compression)
{
   switch (compression) {
      case ECompression::kGzip:
         return "gzip";
      case ECompression::kZstandard:
         return "Zstandard";
      default:
         return "";
   }
}

std::unique_ptr<TByteSource> Decompress(ECompression compression,
                                        std::unique_ptr<TByteSource> bytes, const std::string& name,
                                        const TReadLimits& limits)
{
   switch (compression) {
      case ECompression::kGzip:
         return std::make_unique<TGzipBytes>(std::move(bytes), name, limits);
      case ECompression::kZstandard:
         return std::make_unique<TZstandardBytes>(std::move(bytes), name, limits);
      default:
         return bytes;
   }
}

}  // namespace NZANQSX20
