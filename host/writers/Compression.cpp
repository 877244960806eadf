#include <new>
#include <vector>

#include <zlib.h>
#include <zstd.h>

#include "writers/TByteSink.h"

namespace NZANQSX20 {

namespace {

constexpr std::size_t kRoomBytes = 128 * 1024;

class TPlainSink : public TByteSink
{
public:
   explicit TPlainSink(TByteSink& below) : fBelow(below) {}

   void Write(std::string_view bytes) override { fBelow.Write(bytes); }

   void Finish() override { fBelow.Finish(); }

private:
   TByteSink& fBelow;
};

/// One gzip member without name and time, so that the same content gives the same bytes.
class TGzipSink : public TByteSink
{
public:
   explicit TGzipSink(TByteSink& below) : fBelow(below), fRoom(kRoomBytes)
   {
      constexpr int kGzip = 16;
      constexpr int kMemoryLevel = 8;
      if (deflateInit2(&fStream, Z_DEFAULT_COMPRESSION, Z_DEFLATED, MAX_WBITS + kGzip, kMemoryLevel,
                       Z_DEFAULT_STRATEGY) != Z_OK)
         throw std::bad_alloc();
   }

   ~TGzipSink() override { deflateEnd(&fStream); }

   TGzipSink(const TGzipSink&) = delete;
   TGzipSink& operator=(const TGzipSink&) = delete;

   void Write(std::string_view bytes) override
   {
      while (!bytes.empty()) {
         const std::string_view step = bytes.substr(0, kLargestStep);
         bytes.remove_prefix(step.size());
         // zlib only reads from it.
         fStream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(step.data()));
         fStream.avail_in = static_cast<uInt>(step.size());
         Run(Z_NO_FLUSH);
      }
   }

   void Finish() override
   {
      fStream.avail_in = 0;
      Run(Z_FINISH);
      fBelow.Finish();
   }

private:
   static constexpr std::size_t kLargestStep = std::size_t{1} << 30;

   void Run(int flush)
   {
      do {
         fStream.next_out = reinterpret_cast<Bytef*>(fRoom.data());
         fStream.avail_out = static_cast<uInt>(fRoom.size());
         deflate(&fStream, flush);
         fBelow.Write({fRoom.data(), fRoom.size() - fStream.avail_out});
      } while (fStream.avail_out == 0);
   }

   TByteSink& fBelow;
   std::vector<char> fRoom;
   z_stream fStream = {};
};

class TZstandardSink : public TByteSink
{
public:
   explicit TZstandardSink(TByteSink& below)
      : fBelow(below), fRoom(kRoomBytes), fStream(ZSTD_createCCtx(), ZSTD_freeCCtx)
   {
      if (!fStream)
         throw std::bad_alloc();
      ZSTD_CCtx_setParameter(fStream.get(), ZSTD_c_checksumFlag, 1);
   }

   void Write(std::string_view bytes) override { Run(bytes, ZSTD_e_continue); }

   void Finish() override
   {
      Run({}, ZSTD_e_end);
      fBelow.Finish();
   }

private:
   void Run(std::string_view bytes, ZSTD_EndDirective directive)
   {
      ZSTD_inBuffer input = {bytes.data(), bytes.size(), 0};
      bool isDone = false;
      while (!isDone) {
         ZSTD_outBuffer output = {fRoom.data(), fRoom.size(), 0};
         const std::size_t left = ZSTD_compressStream2(fStream.get(), &output, &input, directive);
         // Nothing but memory can fail here.
         if (ZSTD_isError(left) != 0)
            throw std::bad_alloc();
         fBelow.Write({fRoom.data(), output.pos});
         isDone = directive == ZSTD_e_end ? left == 0 : input.pos == input.size;
      }
   }

   TByteSink& fBelow;
   std::vector<char> fRoom;
   std::unique_ptr<ZSTD_CCtx, decltype(&ZSTD_freeCCtx)> fStream;
};

}  // namespace

std::unique_ptr<TByteSink> Compress(ECompression compression, TByteSink& below)
{
   switch (compression) {
      case ECompression::kGzip:
         return std::make_unique<TGzipSink>(below);
      case ECompression::kZstandard:
         return std::make_unique<TZstandardSink>(below);
      default:
         return std::make_unique<TPlainSink>(below);
   }
}

}  // namespace NZANQSX20
