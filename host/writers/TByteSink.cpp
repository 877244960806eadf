#include "writers/TByteSink.h"

#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

namespace NZANQSX20 {

TDescriptorBytes::TDescriptorBytes(int descriptor, std::string name)
   : fDescriptor(descriptor), fName(std::move(name))
{}

void TDescriptorBytes::Write(std::string_view bytes)
{
   while (!bytes.empty()) {
      const ssize_t written = ::write(fDescriptor, bytes.data(), bytes.size());
      if (written >= 0)
         bytes.remove_prefix(static_cast<std::size_t>(written));
      else if (errno != EINTR)
         throw std::system_error(errno, std::generic_category(), "cannot write " + fName);
   }
}

}  // namespace NZANQSX20
