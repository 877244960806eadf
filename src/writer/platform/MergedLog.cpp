#include "writer/ReportFrame.h"
#include "writer/StoreWalk.h"
#include "writer/TWriter.h"
#include "writer/WriterLog.h"
#include "writer/platform/ColumnTable.h"

namespace {

const char* const kRecordClass = "ZANSG_LogRecord";
const char* const kChassisRecordClass = "ZAN_StandardMessageLogEntry";

const TColumns kColumns = {
   {"CreationTimeStamp", "15%", "", "", ""},
   {"LogName", "10%", "", "", ""},
   {"Message", "75%", "", "", ""},
};

/// Adds the chassis records and puts the newest first. Whatever fails, the report goes on with what
/// the list then holds: without the class, the first records oldest first.
void MergeChassisRecords(ICIMNamespace& cimNamespace, TInstances& records)
{
   try {
      const auto chassisRecords =
         EnumerateInstances(cimNamespace.GetClass(kChassisRecordClass, {}));
      records.insert(records.end(), chassisRecords.begin(), chassisRecords.end());
      TReportParameters::TInstanceSorter newestFirst;
      newestFirst.AddProperty("CreationTimeStamp", false, false);
      newestFirst.SortInstances(records);
   } catch (const TQSXException&) {
   }
}

}  // namespace

void TWriter::WriteCELMergedLogReport()
{
   LogTrace("Entering TWriter::WriteCELMergedLogReport");
   const auto recordClass = FindClass(fNamespace, kRecordClass);
   if (!recordClass)
      return;
   TReportClass table;
   table.SetClass(kRecordClass);
   table.GetInstanceSorter().AddProperty("CreationTimeStamp", true, false);
   TInstances records = GetInstances(table);
   MergeChassisRecords(*fNamespace, records);

   OpenReportPage(*this, fOutputDirectory, "mergedlog");
   WriteReportTitle("Merged Logs", "", "");
   WriteTableTitle("Merged Logs", false, false);
   BeginColumnTable("100%", kRecordClass, true);
   WriteColumnHeader(*this, recordClass, kColumns);
   WriteColumnRows(*this, records, kColumns);
   EndTable();
   CloseReportPage(*this);
   // The index says "Merged Log", the page "Merged Logs": meant.
   WriteIndexEntry("mergedlog", "Merged Log", true);
   // The text names another function; tools match on it.
   LogTrace("Exiting TWriter::WriteFilteredMergedLogReport");
}
