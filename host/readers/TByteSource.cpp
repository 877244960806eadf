#include "readers/TByteSource.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include "readers/TReadError.h"

namespace NZANQSX20 {

namespace {

constexpr std::size_t kStepBytes = std::size_t{1} << 20;

class TFileBytes : public TByteSource
{
public:
   TFileBytes(int descriptor, std::string name, std::uint64_t limit)
      : fDescriptor(descriptor), fName(std::move(name)), fLimit(limit)
   {}

   ~TFileBytes() override
   {
      if (fDescriptor != STDIN_FILENO)
         ::close(fDescriptor);
   }

   TFileBytes(const TFileBytes&) = delete;
   TFileBytes& operator=(const TFileBytes&) = delete;

   std::size_t Read(char* buffer, std::size_t size) override
   {
      ssize_t got;
      do
         got = ::read(fDescriptor, buffer, std::min(size, kStepBytes));
      while (got < 0 && errno == EINTR);
      if (got < 0)
         throw TReadError(fName, {}, fmt::format("cannot be read: {}", std::strerror(errno)));
      fTaken += static_cast<std::uint64_t>(got);
      CheckSize(fTaken);
      return static_cast<std::size_t>(got);
   }

   void CheckSize(std::uint64_t size) const
   {
      if (size > fLimit)
         throw TReadError(fName, {},
                          fmt::format("expected a file of at most {} bytes, found more", fLimit));
   }

private:
   int fDescriptor;
   std::string fName;
   std::uint64_t fLimit;
   std::uint64_t fTaken = 0;
};

class TTextBytes : public TByteSource
{
public:
   explicit TTextBytes(std::string text) : fText(std::move(text)) {}

   std::size_t Read(char* buffer, std::size_t size) override
   {
      const std::size_t count = fText.copy(buffer, size, fTaken);
      fTaken += count;
      return count;
   }

private:
   std::string fText;
   std::size_t fTaken = 0;
};

}  // namespace

TPeekableBytes::TPeekableBytes(std::unique_ptr<TByteSource> bytes) : fBytes(std::move(bytes)) {}

std::size_t TPeekableBytes::Read(char* buffer, std::size_t size)
{
   if (fTaken == fPeeked.size())
      return fBytes->Read(buffer, size);
   const std::size_t count = fPeeked.copy(buffer, size, fTaken);
   fTaken += count;
   return count;
}

std::string_view TPeekableBytes::Peek()
{
   while (fPeeked.size() - fTaken < kPeekBytes) {
      char step[kPeekBytes];
      const std::size_t got = fBytes->Read(step, kPeekBytes - (fPeeked.size() - fTaken));
      if (got == 0)
         break;
      fPeeked.append(step, got);
   }
   return std::string_view(fPeeked).substr(fTaken);
}

TOpenedFile OpenFile(const std::string& path, const TReadLimits& limits)
{
   const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
   if (descriptor < 0)
      throw TReadError(path, {}, fmt::format("cannot be opened: {}", std::strerror(errno)));
   auto bytes = std::make_unique<TFileBytes>(descriptor, path, limits.fFileBytes);
   struct stat status = {};
   const bool isSized = ::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
   const std::uint64_t size = isSized ? static_cast<std::uint64_t>(status.st_size) : 0;
   // A file of holes takes minutes to read.
   bytes->CheckSize(size);
   return {std::move(bytes), size};
}

TOpenedFile OpenStandardInput(const TReadLimits& limits)
{
   return {std::make_unique<TFileBytes>(STDIN_FILENO, kStandardInputName, limits.fFileBytes), 0};
}

TOpenedFile OpenText(std::string text)
{
   const std::uint64_t size = text.size();
   return {std::make_unique<TTextBytes>(std::move(text)), size};
}

std::string ReadAll(TByteSource& bytes, std::uint64_t sizeHint)
{
   // One byte more than the file has: the read that finds the end then needs no further room.
   std::string text(
      static_cast<std::size_t>(std::min<std::uint64_t>(sizeHint, kStepBytes * 64)) + 1, '\0');
   std::size_t size = 0;
   while (const std::size_t got = bytes.Read(&text[size], text.size() - size)) {
      size += got;
      if (size == text.size())
         text.resize(size + std::max(size / 2, kStepBytes));
   }
   text.resize(size);
   return text;
}

}  // namespace NZANQSX20
