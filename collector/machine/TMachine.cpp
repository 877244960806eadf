#include "machine/TMachine.h"

#include <algorithm>

#include "machine/LocalTime.h"
#include "machine/ToolRun.h"
#include "machine/Tools.h"
#include "text/Text.h"

namespace NZANQSX20 {

namespace {

constexpr const char* kRecordFolder = "/qsxreport-tools/";

/// The numbers of an answer. Missing: empty when there is none.
std::vector<std::int64_t> ToNumbers(const TReading& reading)
{
   std::vector<std::int64_t> numbers;
   if (reading)
      for (const std::string_view word : SplitWords(reading.fText))
         numbers.push_back(ToSignedNumber(word).value_or(0));
   return numbers;
}

}  // namespace

TMachine::TMachine(const std::string& root)
   : fFiles(root), fProcess([this](const TFileRequest& request) { return fFiles.Answer(request); })
{
   fTimeRule = FindTimeRule(Read("/etc/localtime").fText);
}

TReading TMachine::Ask(EQuestion question, const std::string& path, std::size_t size,
                       std::uint64_t offset) const
{
   return fProcess.Ask({question, path, offset, size});
}

TReading TMachine::Read(const std::string& path, std::size_t cap) const
{
   return Ask(EQuestion::kContent, path, cap);
}

TReading TMachine::ReadPart(const std::string& path, std::uint64_t offset, std::size_t size) const
{
   return Ask(EQuestion::kPart, path, size, offset);
}

std::optional<std::uint64_t> TMachine::GetFileSize(const std::string& path) const
{
   const auto status = ToNumbers(Ask(EQuestion::kStatus, path));
   if (status.size() != 2 || status[0] < 0)
      return std::nullopt;
   return static_cast<std::uint64_t>(status[0]);
}

std::optional<std::int64_t> TMachine::GetModifiedTime(const std::string& path) const
{
   const auto status = ToNumbers(Ask(EQuestion::kStatus, path));
   return status.size() == 2 ? std::optional(status[1]) : std::nullopt;
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
   std::vector<std::string> names;
   const TReading reading = Ask(EQuestion::kNames, folder);
   for (const std::string_view name : Split(reading.fText, '\0'))
      if (!name.empty())
         names.emplace_back(name);
   std::sort(names.begin(), names.end());
   return names;
}

bool TMachine::Exists(const std::string& path) const
{
   return static_cast<bool>(Ask(EQuestion::kStatus, path));
}

std::string TMachine::ReadLink(const std::string& path) const
{
   return Ask(EQuestion::kLink, path).fText;
}

std::string TMachine::ReadLinkName(const std::string& path) const
{
   const std::string target = ReadLink(path);
   return target.substr(target.rfind('/') + 1);
}

std::string TMachine::Resolve(const std::string& path) const
{
   return Ask(EQuestion::kResolved, path).fText;
}

std::optional<TFileSystemSize> TMachine::GetFileSystemSize(const std::string& path) const
{
   if (!IsThisMachine())
      return std::nullopt;
   const auto sizes = ToNumbers(Ask(EQuestion::kFileSystemSize, path));
   if (sizes.size() != 2)
      return std::nullopt;
   return TFileSystemSize{static_cast<std::uint64_t>(sizes[0]),
                          static_cast<std::uint64_t>(sizes[1])};
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
