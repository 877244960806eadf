#include "machine/TRootFiles.h"

#include <dirent.h>
#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <memory>
#include <system_error>

#include "machine/RegularFile.h"

namespace NZANQSX20 {

namespace {

/// A folder of more names is broken or hostile.
constexpr std::size_t kNameCap = 200'000;

std::string ResolveRoot(const std::string& root)
{
   std::array<char, PATH_MAX> resolved = {};
   if (realpath(root.c_str(), resolved.data()) == nullptr)
      throw std::system_error(errno, std::generic_category(), root);
   return resolved.data();
}

/// O_PATH opens nothing that could wait or change, whatever the path names.
int GetFlags(EQuestion question)
{
   switch (question) {
      case EQuestion::kContent:
      case EQuestion::kPart:
         return O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
      case EQuestion::kNames:
         return O_RDONLY | O_DIRECTORY | O_NONBLOCK | O_CLOEXEC;
      case EQuestion::kLink:
         return O_PATH | O_NOFOLLOW | O_CLOEXEC;
      default:
         return O_PATH | O_CLOEXEC;
   }
}

void ReadLink(int link, TReading& reading)
{
   std::array<char, PATH_MAX> target = {};
   const ssize_t length = readlinkat(link, "", target.data(), target.size());
   if (length < 0)
      return SetReason(reading, errno);
   reading.fText.assign(target.data(), static_cast<std::size_t>(length));
}

void ReadStatus(int place, TReading& reading)
{
   struct stat status = {};
   if (fstat(place, &status) != 0)
      return SetReason(reading, errno);
   reading.fText = std::to_string(status.st_size) + ' ' + std::to_string(status.st_mtim.tv_sec);
}

void ReadFileSystemSize(int place, TReading& reading)
{
   struct statvfs status = {};
   if (fstatvfs(place, &status) != 0)
      return SetReason(reading, errno);
   const auto unit = std::uint64_t{status.f_frsize};
   reading.fText =
      std::to_string(unit * status.f_blocks) + ' ' + std::to_string(unit * status.f_bavail);
}

}  // namespace

TRootFiles::TRootFiles(const std::string& root) : fRoot(ResolveRoot(root))
{
   fRootFolder = open(fRoot.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC);
   const TDescriptor probe(fRootFolder < 0 ? -1 : Open("/", O_PATH | O_DIRECTORY | O_CLOEXEC));
   if (probe.Get() >= 0)
      return;
   const int error = errno;
   if (fRootFolder >= 0)
      close(fRootFolder);
   throw std::system_error(error, std::generic_category(), root);
}

TRootFiles::~TRootFiles()
{
   close(fRootFolder);
}

int TRootFiles::Open(const std::string& path, int flags) const
{
   if (IsThisMachine())
      return open(path.c_str(), flags);
   struct open_how how = {};
   how.flags = static_cast<unsigned>(flags);
   how.resolve = RESOLVE_IN_ROOT;
   return static_cast<int>(syscall(SYS_openat2, fRootFolder, path.c_str(), &how, sizeof how));
}

TReading TRootFiles::Answer(const TFileRequest& request) const
{
   TReading reading;
   reading.fSource = request.fPath;
   const TDescriptor place(Open(request.fPath, GetFlags(request.fQuestion)));
   if (place.Get() < 0) {
      SetReason(reading, errno);
      return reading;
   }
   switch (request.fQuestion) {
      case EQuestion::kContent:
         ReadRegular(place.Get(), request.fSize, reading);
         break;
      case EQuestion::kPart:
         ReadRegularPart(place.Get(), request.fOffset, request.fSize, reading);
         break;
      case EQuestion::kNames:
         ReadNames(place.Get(), reading);
         break;
      case EQuestion::kLink:
         ReadLink(place.Get(), reading);
         break;
      case EQuestion::kResolved:
         ReadResolved(place.Get(), reading);
         break;
      case EQuestion::kStatus:
         ReadStatus(place.Get(), reading);
         break;
      case EQuestion::kFileSystemSize:
         ReadFileSystemSize(place.Get(), reading);
         break;
   }
   return reading;
}

void TRootFiles::ReadNames(int folder, TReading& reading) const
{
   const int own = dup(folder);
   const std::unique_ptr<DIR, int (*)(DIR*)> stream(own < 0 ? nullptr : fdopendir(own), closedir);
   if (!stream) {
      SetReason(reading, errno);
      if (own >= 0)
         close(own);
      return;
   }
   std::size_t count = 0;
   while (const dirent* entry = readdir(stream.get())) {
      const std::string name = entry->d_name;
      if (name == "." || name == ".." || count++ >= kNameCap)
         continue;
      reading.fText += name;
      reading.fText += '\0';
   }
}

void TRootFiles::ReadResolved(int place, TReading& reading) const
{
   std::array<char, PATH_MAX> target = {};
   const std::string own = "/proc/self/fd/" + std::to_string(place);
   const ssize_t length = readlink(own.c_str(), target.data(), target.size());
   if (length < 0)
      return SetReason(reading, errno);
   const std::string resolved(target.data(), static_cast<std::size_t>(length));
   reading.fText = IsThisMachine() ? resolved : resolved.substr(fRoot.size());
   if (reading.fText.empty())
      reading.fText = "/";
}

}  // namespace NZANQSX20
