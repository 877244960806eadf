#include "common/LogColumns.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr std::string_view kMergedClass = "ZANSG_LogRecord";

// The logs: class, title of the table, then the properties for time, severity, source and message.
constexpr TLogTable kLogs[] = {
   {"ZANSG_WindowsApplicationEventLogRecord", "", "MessageTimestamp", "Type", "Source", "Message"},
   {"ZANSG_WindowsSystemEventLogRecord", "", "MessageTimestamp", "Type", "Source", "Message"},
   {"ZANSG_WindowsSecurityEventLogRecord", "", "MessageTimestamp", "Type", "Source", "Message"},
   {"ZANSG_LinuxEventLogRecord", "", "MessageTimestamp", "PerceivedSeverity", "Source", "Message"},
   {"ZAN_StandardMessageLogEntry", "Chassis Event Log", "CreationTimeStamp", "PerceivedSeverity",
    "MessageID", "Message"},
   {"ZANSG_TLMLog", "TLM Event", "MessageTimestamp", "Type", "LoggingSource", "Message"},
   {"ZANSG_WRDPLog", "WRDP Event", "MessageTimestamp", "", "", "Message"},
   {"ZANSG_IPMILogRecord", "IPMI Event", "MessageTimestamp", "", "SourceNode", "Message"},
   {"ZANSG_LogRecord_RAIDMgrEvent", "Corvane Manager Events", "MessageTimestamp", "Severity", "",
    "Message"},
   {"ZANSG_LogRecord_cvDDD", "Corvane Defunct Drive Log", "Time", "", "Reason", "Descrip", "",
    "Date"},
   {"ZANSG_LogRecord_HardEvent", "", "MessageTimestamp", "Severity", "Source", "Message"},
   {"ZANSG_LogRecord_SoftEvent", "", "MessageTimestamp", "Severity", "Source", "Message"},
   {"CIM_DiagnosticCompletionRecord", "Diagnostics Completion Log", "CreationTimeStamp", "",
    "ServiceName", "RecordData"},
   {"ZANSG_QSXDiagnosticLogRecord", "QSX Diagnostic Log", "MessageTimestamp", "", "LogName",
    "Message"},
   {"ZANSG_MemoryDiagLogRecord", "Memory Diagnostics Log", "MessageTimestamp", "Type", "",
    "Message"},
   {"ZANSG_QSXLogRecord", "QSX Error Log", "MessageTimestamp", "Type", "Source", "Message"},
   {kMergedClass.data(), "Merged Log", "MessageTimestamp", "", "SourceNode", "Message", "LogName"},
};

/// The merged log where there is a chassis log is dated by another property.
constexpr TLogTable kChassisMerged = {
   kMergedClass.data(), "Merged Logs", "CreationTimeStamp", "", "", "Message", "LogName"};

std::size_t FindColumn(const std::vector<std::string>& properties, std::string_view property)
{
   const auto found = std::find(properties.begin(), properties.end(), property);
   return property.empty() || found == properties.end()
             ? TLogColumns::kNone
             : static_cast<std::size_t>(found - properties.begin());
}

}  // namespace

std::optional<TLogColumns> TLogTable::FindColumns(const std::vector<std::string>& properties) const
{
   TLogColumns columns;
   columns.fTime = FindColumn(properties, fTime);
   columns.fDate = FindColumn(properties, fDate);
   columns.fSeverity = FindColumn(properties, fSeverity);
   columns.fSource = FindColumn(properties, fSource);
   columns.fMessage = FindColumn(properties, fMessage);
   columns.fLogName = FindColumn(properties, fLogName);
   columns.fIsMerged = fClass == kMergedClass;
   const bool isLog = columns.fTime != TLogColumns::kNone && columns.fMessage != TLogColumns::kNone;
   return isLog ? std::make_optional(columns) : std::nullopt;
}

std::vector<std::string> TLogTable::GetProperties() const
{
   std::vector<std::string> properties;
   for (const char* const property : {fTime, fDate, fSeverity, fSource, fMessage, fLogName})
      if (*property != '\0')
         properties.emplace_back(property);
   return properties;
}

const TLogTable* FindLogOfClass(std::string_view className)
{
   const auto* const log =
      std::find_if(std::begin(kLogs), std::end(kLogs),
                   [className](const TLogTable& known) { return known.fClass == className; });
   return log == std::end(kLogs) ? nullptr : log;
}

const TLogTable* FindLogOfTitle(std::string_view tableTitle)
{
   if (tableTitle.empty())
      return nullptr;
   if (tableTitle == kChassisMerged.fTitle)
      return &kChassisMerged;
   const auto* const log =
      std::find_if(std::begin(kLogs), std::end(kLogs),
                   [tableTitle](const TLogTable& known) { return known.fTitle == tableTitle; });
   return log == std::end(kLogs) ? nullptr : log;
}
