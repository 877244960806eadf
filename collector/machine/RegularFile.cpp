#include "machine/RegularFile.h"

#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/vfs.h>

#include <algorithm>
#include <cerrno>
#include <string_view>
#include <system_error>

#include "text/Text.h"

namespace NZANQSX20 {

namespace {

constexpr std::size_t kBlock = 64 * 1024;

void Refuse(TReading& reading, EReason reason, const char* detail)
{
   reading.fReason = reason;
   reading.fDetail = detail;
}

/// A link from a configuration folder into /proc could consume what only one reader gets, such as
/// the kernel's messages.
bool LeadsIntoKernel(int file, const TReading& reading)
{
   if (StartsWith(reading.fSource, "/proc/") || StartsWith(reading.fSource, "/sys/"))
      return false;
   struct statfs status = {};
   return fstatfs(file, &status) != 0 || status.f_type == PROC_SUPER_MAGIC ||
          status.f_type == SYSFS_MAGIC || status.f_type == DEBUGFS_MAGIC ||
          status.f_type == TRACEFS_MAGIC;
}

bool IsFit(int file, TReading& reading)
{
   struct stat status = {};
   if (fstat(file, &status) != 0)
      SetReason(reading, errno);
   else if (!S_ISREG(status.st_mode))
      Refuse(reading, EReason::kNotReadable, "not a regular file");
   else if (LeadsIntoKernel(file, reading))
      Refuse(reading, EReason::kNotReadable, "a link into the kernel's files");
   return static_cast<bool>(reading);
}

}  // namespace

void SetReason(TReading& reading, int error)
{
   reading.fDetail = std::generic_category().message(error);
   if (error == ENOENT || error == ENOTDIR)
      reading.fReason = EReason::kNotPresent;
   else if (error == EACCES || error == EPERM)
      reading.fReason = EReason::kNotPermitted;
   else
      reading.fReason = EReason::kNotReadable;
}

void ReadRegular(int file, std::size_t cap, TReading& reading)
{
   if (!IsFit(file, reading))
      return;
   while (true) {
      // One byte beyond the cap tells a file of just that size from a longer one.
      const std::size_t size = reading.fText.size();
      const std::size_t wanted = std::min(kBlock, cap + 1 - size);
      reading.fText.resize(size + wanted);
      const ssize_t count = read(file, reading.fText.data() + size, wanted);
      reading.fText.resize(size + static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
      if (count == 0)
         return;
      if (count < 0 && errno != EINTR)
         return SetReason(reading, errno);
      if (reading.fText.size() > cap) {
         reading.fText.resize(cap);
         return Refuse(reading, EReason::kTooLong, "longer than what is read of one file");
      }
   }
}

void ReadRegularPart(int file, std::uint64_t offset, std::size_t size, TReading& reading)
{
   if (!IsFit(file, reading))
      return;
   reading.fText.resize(size);
   const ssize_t count = pread(file, reading.fText.data(), size, static_cast<off_t>(offset));
   reading.fText.resize(static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
   if (count < 0)
      SetReason(reading, errno);
}

}  // namespace NZANQSX20
