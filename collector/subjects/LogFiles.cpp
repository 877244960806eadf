#include "subjects/LogFiles.h"

#include <algorithm>
#include <cstdint>
#include <ctime>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <fmt/format.h>

#include "TCollected.h"
#include "machine/TMachine.h"
#include "subjects/MachineClock.h"
#include "subjects/TLogRecords.h"
#include "text/Text.h"

namespace NZANQSX20 {

namespace {

const TNeed kFiles = {"System log files", {"ZANSG_LinuxEventLogRecord", "ZANSG_LogRecord"}};
const TNeed kMessages = {"Kernel messages", {"ZANSG_LinuxEventLogRecord", "ZANSG_LogRecord"}};

// The files that the usual logging services write.
constexpr const char* kNames[] = {"syslog", "messages", "kern.log",   "auth.log",
                                  "secure", "user.log", "daemon.log", "cron.log",
                                  "cron",   "mail.log", "maillog",    "boot.log"};

/// Of one file, the newest. Units: bytes.
constexpr std::uint64_t kTail = std::uint64_t{8} << 20;
/// Of all files together.
constexpr std::size_t kMostLines = 50'000;

constexpr std::uint64_t kSecond = 1'000'000;

/// Reads the time stamps of one file's lines.
class TTimeReader
{
public:
   TTimeReader(const TMachine& machine, const std::string& path);

   /// Takes the time stamp off the line. Missing: the line is left alone when it has none.
   void Take(std::string_view& text, TLogLine& line) const;

private:
   bool TakeLong(std::string_view& text, TLogLine& line) const;
   bool TakeShort(std::string_view& text, TLogLine& line) const;

   const TMachine& fMachine;
   /// When the file was last written.
   std::tm fWritten = {};
};

std::optional<int> ReadDigits(std::string_view text, std::size_t at, std::size_t count)
{
   const std::string_view digits = Trim(text.substr(std::min(at, text.size()), count));
   const auto number = ToNumber(digits);
   return number ? std::optional<int>(static_cast<int>(*number)) : std::nullopt;
}

/// "14:02:03" at a place. Missing: false when it is no time of day.
bool ReadTimeOfDay(std::string_view text, std::size_t at, std::tm& time)
{
   const auto hour = ReadDigits(text, at, 2);
   const auto minute = ReadDigits(text, at + 3, 2);
   const auto second = ReadDigits(text, at + 6, 2);
   if (!hour || !minute || !second || text[at + 2] != ':' || text[at + 5] != ':')
      return false;
   time.tm_hour = *hour;
   time.tm_min = *minute;
   time.tm_sec = *second;
   return true;
}

/// ".5" as 500000. Units: microseconds. Missing: 0.
int ReadFraction(std::string_view text)
{
   constexpr std::size_t kDigits = 6;
   if (!StartsWith(text, "."))
      return 0;
   std::string digits(text.substr(1, text.find_first_not_of("0123456789", 1) - 1));
   digits.resize(kDigits, '0');
   return static_cast<int>(ToNumber(digits).value_or(0));
}

/// offset: minutes east of UTC. Missing: false when the calendar has no such time.
bool SetTime(std::tm time, int microseconds, int offset, TLogLine& line)
{
   constexpr std::int64_t kMinute = 60;
   TCIMDateTime result;
   if (!TCIMDateTime::Parse(
          fmt::format("{:04}{:02}{:02}{:02}{:02}{:02}.{:06}{:+04}", time.tm_year + 1900,
                      time.tm_mon + 1, time.tm_mday, time.tm_hour, time.tm_min, time.tm_sec,
                      microseconds, offset),
          result))
      return false;
   line.fTime = result;
   line.fMicroseconds = static_cast<std::uint64_t>(timegm(&time) - offset * kMinute) * kSecond +
                        static_cast<std::uint64_t>(microseconds);
   return true;
}

TTimeReader::TTimeReader(const TMachine& machine, const std::string& path) : fMachine(machine)
{
   const std::time_t written = machine.GetModifiedTime(path).value_or(0);
   gmtime_r(&written, &fWritten);
}

/// "2026-11-21T14:02:03.123456+01:00 "
bool TTimeReader::TakeLong(std::string_view& text, TLogLine& line) const
{
   constexpr std::size_t kLength = 19;
   constexpr int kHour = 60;
   if (text.size() <= kLength || text[4] != '-' || text[7] != '-' || text[10] != 'T')
      return false;
   const auto year = ReadDigits(text, 0, 4);
   const auto month = ReadDigits(text, 5, 2);
   const auto day = ReadDigits(text, 8, 2);
   std::tm time = {};
   if (!year || !month || !day || !ReadTimeOfDay(text, 11, time))
      return false;
   time.tm_year = *year - 1900;
   time.tm_mon = *month - 1;
   time.tm_mday = *day;
   const std::string_view stamp = text.substr(0, text.find(' '));
   const std::string_view rest = stamp.substr(kLength);
   int offset = 0;
   if (const std::size_t sign = rest.find_first_of("+-"); sign != std::string_view::npos) {
      offset = ReadDigits(rest, sign + 1, 2).value_or(0) * kHour +
               ReadDigits(rest, sign + 4, 2).value_or(0);
      offset = rest[sign] == '-' ? -offset : offset;
   }
   if (!SetTime(time, ReadFraction(rest), offset, line))
      return false;
   text.remove_prefix(std::min(stamp.size() + 1, text.size()));
   return true;
}

/// "Nov 21 14:02:03 ": without a year, which is that of the file's last line or the one before,
/// and in the machine's own time.
bool TTimeReader::TakeShort(std::string_view& text, TLogLine& line) const
{
   constexpr std::string_view kMonths = "JanFebMarAprMayJunJulAugSepOctNovDec";
   constexpr std::size_t kLength = 15;
   constexpr std::size_t kOffsetAt = 21;
   if (text.size() <= kLength || text[kLength] != ' ')
      return false;
   const std::size_t month = kMonths.find(text.substr(0, 3));
   const auto day = ReadDigits(text, 4, 2);
   std::tm time = {};
   if (month == std::string_view::npos || month % 3 != 0 || !day || !ReadTimeOfDay(text, 7, time))
      return false;
   time.tm_mon = static_cast<int>(month / 3);
   time.tm_mday = *day;
   time.tm_year = fWritten.tm_year - (time.tm_mon > fWritten.tm_mon ? 1 : 0);
   std::tm copy = time;
   const std::string local = fMachine.MakeTime(timegm(&copy)).ToString();
   const std::string offset = local.substr(kOffsetAt);
   const auto minutes = static_cast<int>(ToNumber(offset.substr(1)).value_or(0));
   if (!SetTime(time, 0, offset[0] == '-' ? -minutes : minutes, line))
      return false;
   text.remove_prefix(kLength + 1);
   return true;
}

void TTimeReader::Take(std::string_view& text, TLogLine& line) const
{
   if (!TakeLong(text, line))
      TakeShort(text, line);
}

/// Behind the time: "host program[12]: message". The host is this machine, or is lost with it.
void TakeSource(std::string_view& text, TLogLine& line)
{
   const std::size_t host = text.find(' ');
   const std::size_t end = text.find(": ");
   if (host == std::string_view::npos || end == std::string_view::npos || host > end)
      return;
   const std::string_view source = text.substr(host + 1, end - host - 1);
   if (source.find(' ') != std::string_view::npos)
      return;
   line.fSource = source.substr(0, source.find('['));
   text.remove_prefix(end + 2);
}

/// The newest lines of a file, whole ones.
std::vector<std::string_view> SplitTail(const std::string& text, bool isWhole)
{
   std::vector<std::string_view> lines = SplitLines(text);
   if (!isWhole && !lines.empty())
      lines.erase(lines.begin());
   return lines;
}

/// Whether a line begins a message, as "<6>[    1.500000] eth0: link up"; the others go on with
/// one.
bool HasPriority(std::string_view line)
{
   const std::size_t end = line.find(">[");
   return StartsWith(line, "<") && end != std::string_view::npos &&
          ToNumber(line.substr(1, end - 1));
}

/// boot: seconds since 1970. A line without a priority or a time is a message all the same.
TLogLine ReadKernelLine(std::string_view text, std::optional<std::int64_t> boot,
                        const TMachine& machine)
{
   // The facility stands in the same number, above the priority.
   constexpr std::uint64_t kPriorities = 8;
   // A century. Units: seconds.
   constexpr std::uint64_t kLongestUptime = 3'155'760'000;
   TLogLine line;
   line.fSource = "kernel";
   line.fMessage = text;
   const std::size_t end = text.find("] ");
   if (!HasPriority(text) || end == std::string_view::npos)
      return line;
   const std::size_t stamp = text.find(">[");
   line.fMessage = text.substr(end + 2);
   line.fPriority = ToNumber(text.substr(1, stamp - 1)).value_or(0) % kPriorities;
   const std::string_view time = Trim(text.substr(stamp + 2, end - stamp - 2));
   const std::size_t point = std::min(time.find('.'), time.size());
   const auto seconds = ToNumber(time.substr(0, point));
   if (!boot || !seconds || *seconds > kLongestUptime)
      return line;
   const auto micro = static_cast<std::uint64_t>(ReadFraction(time.substr(point)));
   const std::int64_t when = *boot + static_cast<std::int64_t>(*seconds);
   line.fMicroseconds = static_cast<std::uint64_t>(when) * kSecond + micro;
   line.fTime = machine.MakeTime(when, static_cast<unsigned>(micro));
   return line;
}

/// Missing: 0 when the file gives nothing.
std::size_t CollectFile(const TMachine& machine, TCollected& collected, const std::string& path,
                        const std::string& node, std::size_t most)
{
   const std::uint64_t size = machine.GetFileSize(path).value_or(0);
   const std::uint64_t offset = size > kTail ? size - kTail : 0;
   const TReading reading = machine.ReadPart(path, offset, std::min(size, kTail));
   if (!collected.HasIfPresent(reading, kFiles))
      return 0;
   const std::vector<std::string_view> lines = SplitTail(reading.fText, offset == 0);
   const std::size_t count = std::min(lines.size(), most);
   const TTimeReader times(machine, path);
   TLogRecords records(collected, path, node);
   for (std::size_t i = lines.size() - count; i < lines.size(); ++i) {
      std::string_view text = lines[i];
      TLogLine line;
      times.Take(text, line);
      if (line.fTime)
         TakeSource(text, line);
      line.fMessage = text;
      records.Add(line);
   }
   return count;
}

}  // namespace

bool CollectLogFiles(const TMachine& machine, TCollected& collected)
{
   const std::string node = machine.ReadLine("/proc/sys/kernel/hostname");
   std::size_t left = kMostLines;
   for (const char* name : kNames)
      left -= CollectFile(machine, collected, std::string("/var/log/") + name, node, left);
   return left < kMostLines;
}

bool CollectKernelMessages(const TMachine& machine, TCollected& collected)
{
   // As JSON, some versions give each message with all that follow, and others know no JSON.
   const TReading reading = machine.RunTool("dmesg", {"-r"});
   if (!collected.Has(reading, kMessages))
      return false;
   const auto boot = ReadClock(machine).fBoot;
   const std::vector<std::string_view> lines = SplitLines(reading.fText);
   TLogRecords records(collected, "kernel", machine.ReadLine("/proc/sys/kernel/hostname"));
   for (std::size_t i = 0; i < lines.size();) {
      TLogLine line = ReadKernelLine(lines[i], boot, machine);
      std::string message(line.fMessage);
      for (++i; i < lines.size() && !HasPriority(lines[i]); ++i)
         message.append("\n").append(lines[i]);
      line.fMessage = message;
      records.Add(line);
   }
   return !lines.empty();
}

}  // namespace NZANQSX20
