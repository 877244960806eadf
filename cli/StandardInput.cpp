#include "StandardInput.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <vector>

namespace {

[[noreturn]] void Fail()
{
   throw std::system_error(errno, std::generic_category(), "standard input");
}

void WriteAll(int descriptor, const char* bytes, std::size_t count)
{
   while (count > 0) {
      const ssize_t written = write(descriptor, bytes, count);
      if (written < 0 && errno != EINTR)
         Fail();
      if (written > 0) {
         bytes += written;
         count -= static_cast<std::size_t>(written);
      }
   }
}

void CopyStandardInput(int descriptor)
{
   std::vector<char> buffer(1 << 16);
   ssize_t count = 0;
   while ((count = read(STDIN_FILENO, buffer.data(), buffer.size())) != 0) {
      if (count < 0 && errno != EINTR)
         Fail();
      if (count > 0)
         WriteAll(descriptor, buffer.data(), static_cast<std::size_t>(count));
   }
}

}  // namespace

void RewindStandardInput()
{
   // A file takes the pipe's or terminal's place; a file that is there already is gone back in.
   if (lseek(STDIN_FILENO, 0, SEEK_SET) == 0)
      return;
   const int copy = memfd_create("standard input", MFD_CLOEXEC);
   if (copy < 0)
      Fail();
   CopyStandardInput(copy);
   if (dup2(copy, STDIN_FILENO) < 0 || lseek(STDIN_FILENO, 0, SEEK_SET) != 0)
      Fail();
   close(copy);
}
