#include <string>

#include "catalogue/TReportDraft.h"
#include "catalogue/TReportParametersBuilder.h"

using TReportProperty = TReportParameters::TReportProperty;

namespace {

std::string NameIPMIReport()
{
   // The size that getIPMIAddress is asked with.
   constexpr int kAddressSize = 40;
   IIPMILan* lan = TRootObject::GetipmiLanIns();
   if (lan == nullptr || !lan->getipmiLanStatus())
      return "IPMI Event";
   char address[kAddressSize] = {};
   lan->getIPMIAddress(address, kAddressSize);
   return std::string("IPMI Event - Remote BMC ") + address;
}

/// The event records of one Windows log.
TReportParameters BuildWindowsEvents(const std::string& linkName, const std::string& reportName,
                                     const std::string& cimClass)
{
   TReportDraft report(linkName, reportName);
   report.MakeLinkSortable();

   TTableDraft& events = report.Table(cimClass);
   events.SortBy("RecordID");
   events.Column("Type", "5%");
   events.Column("MessageTimestamp", "16%");
   events.Column("Source", "14%");
   events.Column("Category", "3%");
   events.Column("Message", "39%");
   events.Column("EventID", "5%");
   events.Column("User", "8%");
   events.Column("Computer", "10%");

   return report.Finish();
}

}  // namespace

TReportParameters TReportParametersBuilder::BuildCELLogParams()
{
   TReportDraft report("chassis_event", "Chassis Event Log");
   report.MakeLinkSortable();

   TTableDraft& events = report.Table("ZAN_StandardMessageLogEntry", "Chassis Event Log");
   events.MakeSortable();
   events.SortBy("CreationTimeStamp");
   events.Column("LogName", "10%");
   events.Column("CreationTimeStamp", "30%");
   events.Column("MessageID", "10%");
   events.Column("Message", "40%");
   events.Column("PerceivedSeverity", "10%");

   return report.Finish();
}

TReportParameters TReportParametersBuilder::BuildTLMLogParams()
{
   TReportDraft report("tlm_event", "TLM Event");
   report.MakeLinkSortable();

   TTableDraft& events = report.Table("ZANSG_TLMLog", "TLM Event");
   events.MakeSortable();
   events.SortBy("MessageTimestamp");
   events.Column("MessageTimestamp", "15%");
   events.Column("Type", "2%");
   events.Column("LoggingSource", "14%");
   events.Column("Message", "69%");

   return report.Finish();
}

TReportParameters TReportParametersBuilder::BuildWRDPLogParams()
{
   TReportDraft report("wrdp_event", "WRDP Event");
   report.MakeLinkSortable();

   TTableDraft& events = report.Table("ZANSG_WRDPLog", "WRDP Event");
   events.MakeSortable();
   events.SortBy("MessageTimestamp");
   events.Column("MessageTimestamp", "15%");
   events.Column("Message", "85%");

   return report.Finish();
}

TReportParameters TReportParametersBuilder::BuildIPMILogParams()
{
   const bool multiNode = IsMultiNode();
   const bool serviceMode = fMode == kServiceMode;
   TReportDraft report("ipmi_event", NameIPMIReport());
   report.MakeLinkSortable();

   TTableDraft& events = report.Table("ZANSG_IPMILogRecord", "IPMI Event");
   events.MakeSortable();
   events.SortBy("RecordID");
   if (multiNode) {
      events.Column("RecordID", "5%");
      events.Column("SourceNode", "5%");
      events.Column("MessageTimestamp", "15%");
      events.Column("Message", "75%");
   } else {
      events.Column("RecordID", "5%");
      events.Column("MessageTimestamp", "10%");
      events.Column("Message", "55%");
      events.Column("AuxLog", "30%");
   }

   if (serviceMode) {
      TTableDraft& rawData = report.Table("ZANSG_IPMILogRecord", "Raw Hex Data");
      rawData.MakeSortable();
      rawData.SortBy("RecordID");
      rawData.SortBy("RecordID");
      rawData.Column("RecordID", "5%");
      rawData.Column("MessageTimestamp", "15%");
      rawData.Column("RawData", "80%").JoinedBy(TReportProperty::kSeparatorBlank);

      TTableDraft& auxData =
         report.Table("ZANSG_KMCAuxDebugRecord", "KMC Auxiliary Debugging Raw Data");
      auxData.MakeSortable();
      auxData.SortBy("RecordID");
      auxData.SortBy("RecordID");
      auxData.SortBy("RecordID");
      auxData.Column("RecordID", "5%");
      auxData.Column("MessageTimestamp", "15%");
      auxData.Column("RawData", "80%").JoinedBy(TReportProperty::kSeparatorBlank);
   }

   return report.Finish();
}

TReportParameters TReportParametersBuilder::BuildWinAppEventParams()
{
   return BuildWindowsEvents("event_application", "Application Event",
                             "ZANSG_WindowsApplicationEventLogRecord");
}

TReportParameters TReportParametersBuilder::BuildWinSysEventParams()
{
   return BuildWindowsEvents("event_system", "System Event", "ZANSG_WindowsSystemEventLogRecord");
}

TReportParameters TReportParametersBuilder::BuildWinSecEventParams()
{
   return BuildWindowsEvents("event_security", "Security Event",
                             "ZANSG_WindowsSecurityEventLogRecord");
}

TReportParameters TReportParametersBuilder::BuildMergeLogParams()
{
   TReportDraft report("merged_log", "Merged Log");
   report.MakeLinkSortable();

   TTableDraft& log = report.Table("ZANSG_LogRecord", "Merged Log");
   log.SortBy("MessageTimestamp");
   log.Column("MessageTimestamp", "15%");
   log.Column("LogName", "7%");
   log.Column("SourceNode", "8%");
   log.Column("Message", "70%");

   return report.Finish();
}

TReportParameters TReportParametersBuilder::BuildFileLoaderParams()
{
   TReportDraft report("fileloader.html", "File Loader Results");

   TTableDraft& files = report.Table("ZANSG_LogRecord_FileLoader", "File Loader");
   files.UseRowStyle("75%", "30%");
   files.Limit(1);
   files.Column("FileName");
   files.Column("Message").Monospaced();

   return report.Finish();
}

TReportParameters TReportParametersBuilder::BuildPSParams()
{
   TReportDraft report("ps", "PatchStream");

   TTableDraft& updates = report.Table("ZANSG_PSResult");
   updates.SetWidth("80%");
   updates.Column("Type", "25%");
   updates.Column("Name", "25%");
   updates.Column("InstalledVersion", "25%");
   updates.Column("PSVersion", "25%");

   return report.Finish();
}

TReportParameters TReportParametersBuilder::BuildQSXLogParams()
{
   TReportDraft report("qsx_log", "QSX Error Log");
   report.MakeLinkSortable();

   TTableDraft& errors = report.Table("ZANSG_QSXLogRecord", "QSX Error Log");
   errors.MakeSortable();
   errors.SortBy("RecordID");
   errors.Column("MessageTimestamp", "11%");
   errors.Column("Source", "13%");
   errors.Column("Type", "7%");
   errors.Column("Message", "69%");

   return report.Finish();
}

TReportParameters TReportParametersBuilder::BuildDiagsParams()
{
   TReportDraft report("diags", "Diagnostics Log");
   report.MakeLinkSortable();

   TTableDraft& completions =
      report.Table("CIM_DiagnosticCompletionRecord", "Diagnostics Completion Log");
   completions.MakeSortable();
   completions.SortBy("ServiceName");
   completions.SortBy("CreationTimeStamp");
   completions.Column("ServiceName", "16%");
   completions.Column("ManagedElementName", "15%");
   completions.Column("RecordData", "55%");
   completions.Column("CreationTimeStamp", "14%");

   TTableDraft& diagnostics = report.Table("ZANSG_QSXDiagnosticLogRecord", "QSX Diagnostic Log");
   diagnostics.MakeSortable();
   diagnostics.SortBy("ServiceName");
   diagnostics.SortBy("CreationTimeStamp");
   diagnostics.SortBy("RecordID");
   diagnostics.SortBy("MessageTimestamp");
   diagnostics.Column("MessageTimestamp", "20%");
   diagnostics.Column("LogName", "15%");
   diagnostics.Column("RecordID", "15%");
   diagnostics.Column("Message", "50%");

   TTableDraft& memory = report.Table("ZANSG_MemoryDiagLogRecord", "Memory Diagnostics Log");
   memory.MakeSortable();
   memory.SortBy("ServiceName");
   memory.SortBy("CreationTimeStamp");
   memory.SortBy("RecordID");
   memory.SortBy("MessageTimestamp");
   memory.SortBy("MessageTimestamp");
   memory.Column("MessageTimestamp", "20%");
   memory.Column("Type", "15%");
   memory.Column("Message", "65%");

   return report.Finish();
}
