#include "common/OutputFile.h"

#include <algorithm>
#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr mode_t kReadableByAll = 0666;
constexpr mode_t kPrivate = 0600;

int OpenOrThrow(const std::string& path)
{
   const int descriptor =
      open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_CLOEXEC, kReadableByAll);
   if (descriptor < 0)
      throw TOutputError(errno, path);
   return descriptor;
}

/// For file systems that know no files without a name.
int OpenAndUnlink(const std::string& directory)
{
   std::string path = directory + "/.pages-XXXXXX";
   const int descriptor = mkostemp(path.data(), O_CLOEXEC);
   if (descriptor >= 0)
      unlink(path.c_str());
   return descriptor;
}

}  // namespace

TOutputFile::TOutputFile(const std::string& path) : TOutputFile(OpenOrThrow(path), path) {}

TOutputFile::TOutputFile(int descriptor, std::string path)
   : fDescriptor(descriptor), fPath(std::move(path)), fBuffer(new char[kBufferSize])
{}

TOutputFile TOutputFile::MakeTemporary(const std::string& directory)
{
   int descriptor = open(directory.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, kPrivate);
   if (descriptor < 0 && (errno == EOPNOTSUPP || errno == EISDIR || errno == EINVAL))
      descriptor = OpenAndUnlink(directory);
   const std::string name = directory + " (temporary file)";
   if (descriptor < 0)
      throw TOutputError(errno, name);
   return TOutputFile(descriptor, name);
}

TOutputFile::TOutputFile(TOutputFile&& other) noexcept
   : fDescriptor(other.fDescriptor),
     fPath(std::move(other.fPath)),
     fBuffer(std::move(other.fBuffer)),
     fUsed(other.fUsed),
     fFlushed(other.fFlushed)
{
   other.fDescriptor = -1;
}

TOutputFile::~TOutputFile()
{
   if (fDescriptor >= 0)
      close(fDescriptor);
}

void TOutputFile::CopyFrom(TOutputFile& other, std::uint64_t offset, std::uint64_t length)
{
   other.Flush();
   while (length > 0) {
      if (fUsed == kBufferSize)
         Flush();
      const std::size_t wanted =
         static_cast<std::size_t>(std::min<std::uint64_t>(length, kBufferSize - fUsed));
      const std::size_t count = other.ReadAt(offset, fBuffer.get() + fUsed, wanted);
      fUsed += count;
      offset += count;
      length -= count;
   }
}

void TOutputFile::ReadBack(std::uint64_t offset, char* bytes, std::size_t count)
{
   // What is still in the buffer needs no way through the file.
   if (offset >= fFlushed && offset + count <= GetSize()) {
      std::memcpy(bytes, fBuffer.get() + (offset - fFlushed), count);
      return;
   }
   Flush();
   while (count > 0) {
      const std::size_t got = ReadAt(offset, bytes, count);
      offset += got;
      bytes += got;
      count -= got;
   }
}

void TOutputFile::Close()
{
   Flush();
   const int descriptor = fDescriptor;
   fDescriptor = -1;
   if (close(descriptor) != 0)
      throw TOutputError(errno, fPath);
}

void TOutputFile::Flush()
{
   WriteToFile(fBuffer.get(), fUsed);
   fUsed = 0;
}

void TOutputFile::WriteThrough(std::string_view bytes)
{
   Flush();
   if (bytes.size() > kBufferSize)
      return WriteToFile(bytes.data(), bytes.size());
   Write(bytes);
}

void TOutputFile::WriteToFile(const char* bytes, std::size_t count)
{
   while (count > 0) {
      const ssize_t written = write(fDescriptor, bytes, count);
      if (written < 0 && errno == EINTR)
         continue;
      if (written < 0)
         throw TOutputError(errno, fPath);
      bytes += written;
      count -= static_cast<std::size_t>(written);
      fFlushed += static_cast<std::uint64_t>(written);
   }
}

std::size_t TOutputFile::ReadAt(std::uint64_t offset, char* bytes, std::size_t count)
{
   ssize_t got = -1;
   do
      got = pread(fDescriptor, bytes, count, static_cast<off_t>(offset));
   while (got < 0 && errno == EINTR);
   if (got <= 0)
      throw TOutputError(got == 0 ? EIO : errno, fPath);
   return static_cast<std::size_t>(got);
}
