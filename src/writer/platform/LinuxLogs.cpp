#include <map>

#include "writer/ReportFrame.h"
#include "writer/StoreWalk.h"
#include "writer/TWriter.h"
#include "writer/platform/ColumnTable.h"

namespace {

const TColumns kColumns = {
   {"MessageTimestamp", "15%", "", "", ""},
   {"Source", "15%", "", "", ""},
   {"Message", "70%", "", "", ""},
};

/// The name of the record's log. Missing: null where the record names none.
TCIMValue GetLogName(ICIMInstance& record)
{
   try {
      return record.GetProperty("LogName", {})->GetValue({});
   } catch (const TQSXException& failure) {
      RethrowUnlessNotFound(failure);
      return {};
   }
}

/// The records of each log, by the log's name. A record without a name is left out.
std::map<std::string, TInstances> GroupByLog(const TInstances& records)
{
   std::map<std::string, TInstances> logs;
   for (const auto& record : records) {
      const TCIMValue logName = GetLogName(*record);
      if (!logName.IsNull())
         logs[logName.ToString(10)].push_back(record);
   }
   return logs;
}

/// Logs of different folders may share a link name; the concrete writer keeps their pages apart.
std::string GetLinkName(const std::string& logName)
{
   return "syslog_" + logName.substr(logName.rfind('/') + 1);
}

}  // namespace

void TWriter::WriteLinuxLogReport()
{
   const auto recordClass = FindClass(fNamespace, "ZANSG_LinuxEventLogRecord");
   if (!recordClass) {
      WriteIndexEntry("", "Event Logs", false);
      return;
   }
   TInstances allRecords = EnumerateInstances(recordClass);
   TReportParameters::TInstanceSorter byRecord;
   byRecord.AddProperty("RecordID", true, false);
   byRecord.SortInstances(allRecords);

   for (const auto& [logName, records] : GroupByLog(allRecords)) {
      const std::string linkName = GetLinkName(logName);
      // The entry comes ahead of its page, unlike elsewhere: meant.
      WriteIndexEntry(linkName, logName, true);
      OpenReportFile(fOutputDirectory + TOSSpecific::kFileSeparator + linkName);
      WriteReportPreamble();
      BeginReportBody();
      WriteReportTitle(logName, "", "");
      BeginColumnTable("100%", logName, true);
      WriteColumnHeader(*this, recordClass, kColumns);
      WriteColumnRows(*this, records, kColumns);
      EndTable();
      CloseReportPage(*this);
   }
}
