#include "catalogue/TReportDraft.h"
#include "writer/ReportFrame.h"
#include "writer/StoreWalk.h"
#include "writer/WriterLog.h"

namespace {

using TReportClass = TWriter::TReportClass;

constexpr const char* kLinkName = "corvanelogs";
constexpr const char* kTitle = "Corvane Logs";

/// The one record that the collection writes where there is no manager to ask.
constexpr const char* kNoManagerMessage = "RAID Manager is not installed.";

TReportClass MakeManagerEventTable()
{
   TTableDraft table("ZANSG_LogRecord_RAIDMgrEvent", "Corvane Manager Events");
   table.SortBy("MessageTimestamp");
   table.Column("MessageTimestamp", "18%");
   table.Column("Severity", "17%");
   table.Column("Message", "65%");
   return table.Finish();
}

TReportClass MakeDefunctDriveTable()
{
   TTableDraft table("ZANSG_LogRecord_cvDDD", "Corvane Defunct Drive Log");
   table.MakeSortable();
   table.Column("Controller", "5%");
   table.Column("Date", "10%");
   table.Column("Time", "10%");
   table.Column("Channel", "5%");
   table.Column("ID", "5%");
   table.Column("Reason", "20%");
   table.Column("Descrip", "45%");
   return table.Finish();
}

TReportClass MakeDeviceEventTable()
{
   TTableDraft table("ZANSG_cvSCSIDeviceData", "Device Event Table");
   table.SetWidth("80%");
   table.SortBy("ControllerNum");
   table.SortBy("Channel");
   table.SortBy("ScsiId");
   table.Column("ControllerNum", "13%");
   table.Column("Channel", "12%");
   table.Column("ScsiId", "12%");
   table.Column("NumParityErrors", "13%");
   table.Column("NumSoftErrors", "13%");
   table.Column("NumHardErrors", "13%");
   table.Column("PFA", "12%");
   table.Column("Misc", "12%");
   return table.Finish();
}

/// The class of a section. mark tells the sections apart in the log.
/// Missing: an empty handle. Throws: any other failure of the store, logged.
TClassHandle FindLogClass(const TNamespaceHandle& cimNamespace, const std::string& className,
                          const std::string& mark)
{
   try {
      return FindClass(cimNamespace, className);
   } catch (const TQSXException& failure) {
      LogStatus("Exiting TWriter::WriteCorvaneLogsReport" + mark + ", ex.fStatusCode.fStatusCode=",
                failure);
      throw;
   }
}

TInstances GetLogInstances(const TNamespaceHandle& cimNamespace, const std::string& className,
                           const std::string& mark)
{
   const TClassHandle logClass = FindLogClass(cimNamespace, className, mark);
   return logClass ? EnumerateInstances(logClass) : TInstances();
}

/// Each section tells whether it wrote anything.
bool WriteManagerEvents(TWriter& writer)
{
   const TReportClass table = MakeManagerEventTable();
   TInstances events = writer.GetInstances(table);
   if (events.empty() || writer.GetPropertyValue(events[0], "Message", ",") == kNoManagerMessage)
      return false;
   // Sorted once already, with failures logged; this time a failure leaves the report.
   table.GetInstanceSorter().SortInstances(events);
   writer.WriteTable(table, events, true, false, {});
   return true;
}

bool WriteLogTable(TWriter& writer, const TNamespaceHandle& cimNamespace, const TReportClass& table,
                   const std::string& mark)
{
   TInstances records = GetLogInstances(cimNamespace, table.GetClass(), mark);
   if (records.empty())
      return false;
   table.GetInstanceSorter().SortInstances(records);
   writer.WriteTable(table, records, true, false, {});
   return true;
}

bool WriteEventLog(TWriter& writer, const TInstances& events, const std::string& title,
                   const std::string& linkName)
{
   if (events.empty())
      return false;
   writer.WriteEventLogTable(events, title, linkName);
   return true;
}

}  // namespace

void TWriter::WriteCorvaneLogsReport()
{
   LogTrace("Entering TWriter::WriteCorvaneLogsReport");
   const bool serviceMode = fMode == TReportParametersBuilder::kServiceMode;
   bool hasData = false;
   const bool hasManager = FindLogClass(fNamespace, "ZANSG_LogRecord_RAIDMgrEvent", "") != nullptr;
   std::string linkText;
   std::string linkTarget;
   if (serviceMode)
      WriteCorvaneManagerRawDataReport(linkText, linkTarget);
   OpenReportFile(fOutputDirectory + TOSSpecific::kFileSeparator + kLinkName);
   WriteReportPreamble();
   BeginReportBody();
   WriteReportTitle(kTitle, linkText, linkTarget);

   if (hasManager)
      hasData |= WriteManagerEvents(*this);
   hasData |= WriteLogTable(*this, fNamespace, MakeDefunctDriveTable(), "(2)");
   hasData |= WriteLogTable(*this, fNamespace, MakeDeviceEventTable(), "(3)");
   if (serviceMode) {
      hasData |=
         WriteEventLog(*this, GetLogInstances(fNamespace, "ZANSG_LogRecord_HardEvent", "(4)"),
                       "Corvane Hard Event Log", "cvHardEventLog");
      hasData |=
         WriteEventLog(*this, GetLogInstances(fNamespace, "ZANSG_LogRecord_SoftEvent", "(5)"),
                       "Corvane Soft Event Log", "cvSoftEventLog");
   }

   CloseReportPage(*this);
   WriteIndexEntry(kLinkName, kTitle, hasData);
   LogTrace("Exiting TWriter::WriteCorvaneLogsReport");
}
