#include "subjects/TLogRecords.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "TCollected.h"

namespace NZANQSX20 {

namespace {

/// The perceived severity of each priority: fatal, critical, critical, major, warning, and three
/// kinds of information.
constexpr std::uint64_t kSeverities[] = {7, 6, 6, 5, 3, 2, 2, 2};

}  // namespace

TLogRecords::TLogRecords(TCollected& collected, std::string logName, std::string node)
   : fCollected(collected), fLogName(std::move(logName)), fNode(std::move(node))
{}

void TLogRecords::Add(const TLogLine& line)
{
   fLastID = std::max(line.fMicroseconds, fLastID + 1);
   TEntry record = fCollected.Add("ZANSG_LinuxEventLogRecord");
   record.Set("LogName", fLogName)
      .Set("RecordID", fLastID)
      .Set("MessageTimestamp", line.fTime)
      .Set("CreationTimeStamp", line.fTime)
      .Set("SourceNode", fNode)
      .Set("Source", line.fSource)
      .Set("Message", line.fMessage);
   if (line.fPriority && *line.fPriority < std::size(kSeverities))
      record.Set("PerceivedSeverity", kSeverities[*line.fPriority]);
}

}  // namespace NZANQSX20
