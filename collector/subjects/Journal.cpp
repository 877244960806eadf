#include "subjects/Journal.h"

#include <string>
#include <string_view>
#include <vector>

#include "TCollected.h"
#include "machine/TMachine.h"
#include "subjects/TLogRecords.h"
#include "text/Json.h"
#include "text/Text.h"

namespace NZANQSX20 {

namespace {

const TNeed kJournal = {"System journal", {"ZANSG_LinuxEventLogRecord", "ZANSG_LogRecord"}};

constexpr const char* kFields =
   "--output-fields=MESSAGE,SYSLOG_IDENTIFIER,_COMM,PRIORITY,_TRANSPORT";

/// A part of the journal that makes a page of its own.
struct TPart
{
   const char* fLogName;
   /// The newest so many: 50,000 together, and of usual length each within what a tool may print.
   const char* fLineCount;
   std::vector<std::string> fTransports;
};

const std::vector<TPart>& GetParts()
{
   static const std::vector<TPart> parts = {
      {"journal/kernel", "10000", {"kernel"}},
      {"journal/audit", "10000", {"audit"}},
      {"journal/system", "30000", {"syslog", "journal", "stdout", "driver"}},
   };
   return parts;
}

/// A message that is no UTF-8 comes as the list of its bytes.
std::string ReadMessage(const rapidjson::Value& record)
{
   const rapidjson::Value& message = GetMember(record, "MESSAGE");
   std::string text;
   for (const rapidjson::Value& byte : GetElements(message))
      if (byte.IsUint())
         text += static_cast<char>(byte.GetUint() & 0xFF);
   return text.empty() ? GetText(record, "MESSAGE") : text;
}

void AddRecord(const TMachine& machine, TLogRecords& records, const std::string& text)
{
   constexpr std::uint64_t kSecond = 1'000'000;
   const rapidjson::Document record = ParseJson(text);
   const auto time = GetNumber(record, "__REALTIME_TIMESTAMP");
   if (!time)
      return;
   const std::string identifier = GetText(record, "SYSLOG_IDENTIFIER");
   const std::string source = identifier.empty() ? GetText(record, "_COMM") : identifier;
   const std::string message = ReadMessage(record);
   TLogLine line;
   line.fMicroseconds = *time;
   line.fTime = machine.MakeTime(static_cast<std::int64_t>(*time / kSecond),
                                 static_cast<unsigned>(*time % kSecond));
   line.fSource = source;
   line.fMessage = message;
   line.fPriority = GetNumber(record, "PRIORITY");
   records.Add(line);
}

/// The newest records stand first, so that a text that was cut short holds them.
std::vector<std::string_view> SplitRecords(const TReading& reading)
{
   std::vector<std::string_view> lines = SplitLines(reading.fText);
   if (!reading && !lines.empty() && !EndsWith(reading.fText, "\n"))
      lines.pop_back();
   return lines;
}

/// Missing: false when the part has no record.
bool CollectPart(const TMachine& machine, TCollected& collected, const TPart& part,
                 const std::string& node)
{
   std::vector<std::string> arguments = {"-o", "json",          "--no-pager", "-r",
                                         "-n", part.fLineCount, kFields};
   for (const std::string& transport : part.fTransports)
      arguments.push_back("_TRANSPORT=" + transport);
   const TReading reading = machine.RunTool("journalctl", arguments, EExit::kAny);
   const std::vector<std::string_view> lines = SplitRecords(reading);
   if (!reading && reading.fReason != EReason::kNotInstalled)
      collected.Has(reading, kJournal);
   else if (StartsWith(reading.fDetail, "Hint: "))
      collected.AddGap(kJournal, reading.fSource, EReason::kNotPermitted, reading.fDetail);
   TLogRecords records(collected, part.fLogName, node);
   for (auto line = lines.rbegin(); line != lines.rend(); ++line)
      AddRecord(machine, records, std::string(*line));
   return !lines.empty();
}

}  // namespace

bool CollectJournal(const TMachine& machine, TCollected& collected)
{
   const std::string node = machine.ReadLine("/proc/sys/kernel/hostname");
   bool hasRecord = false;
   for (const TPart& part : GetParts())
      hasRecord = CollectPart(machine, collected, part, node) || hasRecord;
   return hasRecord;
}

}  // namespace NZANQSX20
