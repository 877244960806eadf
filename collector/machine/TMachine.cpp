#include "machine/TMachine.h"

#include <dirent.h>
#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <memory>
#include <system_error>

#include "machine/FileRead.h"
#include "machine/LocalTime.h"
#include "machine/ToolRun.h"
#include "machine/Tools.h"
#include "text/Text.h"

namespace NZANQSX20 {

namespace {

constexpr const char* kRecordFolder = "/qsxreport-tools/";
/// A folder of more names is broken or hostile.
constexpr std::size_t kNameCap = 200'000;

std::string ResolveRoot(const std::string& root)
{
   std::array<char, PATH_MAX> resolved = {};
   if (realpath(root.c_str(), resolved.data()) == nullptr)
      throw std::system_error(errno, std::generic_category(), root);
   return resolved.data();
}

}  // namespace

TMachine::TMachine(const std::string& root) : fRoot(ResolveRoot(root))
{
   fRootFolder = open(fRoot.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC);
   if (fRootFolder < 0)
      throw std::system_error(errno, std::generic_category(), root);
   // A kernel before 5.6 can't keep links inside.
   const TDescriptor probe(Open("/", O_PATH | O_DIRECTORY | O_CLOEXEC));
   if (probe.Get() < 0)
      throw std::system_error(errno, std::generic_category(), root);
   fTimeRule = FindTimeRule(Read("/etc/localtime").fText);
}

TMachine::~TMachine()
{
   close(fRootFolder);
}

int TMachine::Open(const std::string& path, int flags) const
{
   if (IsThisMachine())
      return open(path.c_str(), flags);
   struct open_how how = {};
   how.flags = static_cast<unsigned>(flags);
   how.resolve = RESOLVE_IN_ROOT;
   return static_cast<int>(syscall(SYS_openat2, fRootFolder, path.c_str(), &how, sizeof how));
}

TReading TMachine::Read(const std::string& path, std::size_t cap) const
{
   TReading reading;
   reading.fSource = path;
   const TDescriptor file(Open(path, O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
   if (file.Get() < 0)
      SetReason(reading, errno);
   else
      ReadRegular(file.Get(), cap, reading);
   return reading;
}

TReading TMachine::ReadPart(const std::string& path, std::uint64_t offset, std::size_t size) const
{
   TReading reading;
   reading.fSource = path;
   const TDescriptor file(Open(path, O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
   if (file.Get() < 0)
      SetReason(reading, errno);
   else
      ReadRegularPart(file.Get(), offset, size, reading);
   return reading;
}

std::optional<std::uint64_t> TMachine::GetFileSize(const std::string& path) const
{
   const TDescriptor place(Open(path, O_PATH | O_CLOEXEC));
   struct stat status = {};
   if (place.Get() < 0 || fstat(place.Get(), &status) != 0 || status.st_size < 0)
      return std::nullopt;
   return static_cast<std::uint64_t>(status.st_size);
}

std::optional<std::int64_t> TMachine::GetModifiedTime(const std::string& path) const
{
   const TDescriptor place(Open(path, O_PATH | O_CLOEXEC));
   struct stat status = {};
   if (place.Get() < 0 || fstat(place.Get(), &status) != 0)
      return std::nullopt;
   return std::int64_t{status.st_mtim.tv_sec};
}

TCIMDateTime TMachine::MakeTime(std::int64_t seconds, unsigned microseconds) const
{
   return MakeLocalTime(fTimeRule, seconds, microseconds);
}

std::string TMachine::ReadLine(const std::string& path) const
{
   constexpr std::size_t kLineCap = 64 * 1024;
   const TReading reading = Read(path, kLineCap);
   if (!reading)
      return {};
   return std::string(Trim(std::string_view(reading.fText).substr(0, reading.fText.find('\n'))));
}

std::optional<std::uint64_t> TMachine::ReadNumber(const std::string& path) const
{
   return ToNumber(ReadLine(path));
}

std::vector<std::string> TMachine::List(const std::string& folder) const
{
   const int descriptor = Open(folder, O_RDONLY | O_DIRECTORY | O_NONBLOCK | O_CLOEXEC);
   if (descriptor < 0)
      return {};
   const std::unique_ptr<DIR, int (*)(DIR*)> stream(fdopendir(descriptor), closedir);
   if (!stream) {
      close(descriptor);
      return {};
   }
   std::vector<std::string> names;
   while (const dirent* entry = readdir(stream.get())) {
      const std::string name = entry->d_name;
      if (name != "." && name != ".." && names.size() < kNameCap)
         names.push_back(name);
   }
   std::sort(names.begin(), names.end());
   return names;
}

bool TMachine::Exists(const std::string& path) const
{
   return TDescriptor(Open(path, O_PATH | O_CLOEXEC)).Get() >= 0;
}

std::string TMachine::ReadLink(const std::string& path) const
{
   const TDescriptor link(Open(path, O_PATH | O_NOFOLLOW | O_CLOEXEC));
   if (link.Get() < 0)
      return {};
   std::array<char, PATH_MAX> target = {};
   const ssize_t length = readlinkat(link.Get(), "", target.data(), target.size());
   return length < 0 ? std::string() : std::string(target.data(), static_cast<std::size_t>(length));
}

std::string TMachine::ReadLinkName(const std::string& path) const
{
   const std::string target = ReadLink(path);
   return target.substr(target.rfind('/') + 1);
}

std::string TMachine::Resolve(const std::string& path) const
{
   const TDescriptor place(Open(path, O_PATH | O_CLOEXEC));
   if (place.Get() < 0)
      return {};
   std::array<char, PATH_MAX> target = {};
   const std::string own = "/proc/self/fd/" + std::to_string(place.Get());
   const ssize_t length = readlink(own.c_str(), target.data(), target.size());
   if (length < 0)
      return {};
   const std::string resolved(target.data(), static_cast<std::size_t>(length));
   return IsThisMachine() ? resolved : resolved.substr(fRoot.size());
}

std::optional<TFileSystemSize> TMachine::GetFileSystemSize(const std::string& path) const
{
   if (!IsThisMachine())
      return std::nullopt;
   struct statvfs status = {};
   if (statvfs(path.c_str(), &status) != 0)
      return std::nullopt;
   const auto unit = std::uint64_t{status.f_frsize};
   return TFileSystemSize{unit * status.f_blocks, unit * status.f_bavail};
}

TReading TMachine::CallTool(const std::string& tool,
                            const std::vector<std::string>& arguments) const
{
   const TToolPaths& paths = GetToolPaths(tool);
   if (!IsThisMachine())
      return ReadRecord(tool, arguments);
   TReading reading;
   const std::string path = FindTool(paths, reading);
   return path.empty() ? reading : RunProgram(path, tool, arguments);
}

TReading TMachine::RunTool(const std::string& tool, const std::vector<std::string>& arguments,
                           EExit exit) const
{
   constexpr std::size_t kKeptSize = 1024 * 1024;
   const std::string call = GetRecordName(tool, arguments);
   const auto known = fCalls.find(call);
   TReading reading = known == fCalls.end() ? CallTool(tool, arguments) : known->second;
   if (known == fCalls.end() && reading.fText.size() <= kKeptSize)
      fCalls.emplace(call, reading);
   if (reading && exit == EExit::kZero && reading.fExitCode != 0) {
      reading.fReason = EReason::kFailed;
      if (reading.fDetail.empty())
         reading.fDetail = "exit code " + std::to_string(reading.fExitCode);
      if (Contains(reading.fDetail, "Permission denied") ||
          Contains(reading.fDetail, "Operation not permitted"))
         reading.fReason = EReason::kNotPermitted;
   }
   return reading;
}

std::string TMachine::GetRecordName(const std::string& tool,
                                    const std::vector<std::string>& arguments)
{
   std::string name = tool;
   for (const std::string& argument : arguments)
      name += '_' + argument;
   std::replace(name.begin(), name.end(), '/', '-');
   return name;
}

TReading TMachine::ReadRecord(const std::string& tool,
                              const std::vector<std::string>& arguments) const
{
   TReading reading = Read(kRecordFolder + GetRecordName(tool, arguments), kToolOutputCap);
   if (reading.fReason == EReason::kNotPresent) {
      reading.fReason = EReason::kNotInstalled;
      reading.fDetail = "no recorded output";
      reading.fSource = tool;
   }
   return reading;
}

}  // namespace NZANQSX20
