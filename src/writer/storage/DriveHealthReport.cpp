#include "catalogue/TReportDraft.h"
#include "writer/ReportFrame.h"
#include "writer/StoreWalk.h"

namespace {

using TReportClass = TWriter::TReportClass;
using TReportProperty = TWriter::TReportProperty;

constexpr const char* kLinkName = "drive_health";
constexpr const char* kTitle = "Drive Health";

constexpr const char* kTableWidth = "100%";

TReportClass MakeDeviceTable()
{
   TTableDraft table("OMC_ATADevice", "ATA Device");
   table.Column("VendorID", "25%");
   table.Column("ProductID", "25%");
   table.Column("DeviceID", "25%");
   return table.Finish();
}

TReportClass MakeStatusTable()
{
   TTableDraft table("OMC_IDESMARTErrorLog", "SMART Status");
   table.SetWidth("75%");
   table.Column("smartStatus", "25%");
   table.Column("selftestExecutionStatus", "75%");
   return table.Finish();
}

TReportClass MakeAttributeTable()
{
   TTableDraft table("OMC_IDESMARTAttrib", "SMART Attributes Data");
   table.SetWidth("90%");
   table.Column("attribID", "10%");
   table.Column("attribName", "18%");
   table.Column("flags", "12%");
   table.Column("value", "11%");
   table.Column("worst", "11%");
   table.Column("threshold", "12%");
   table.Column("type", "12%");
   table.Column("rawVal", "14%").JoinedBy(TReportProperty::kSeparatorBlank);
   return table.Finish();
}

/// Stands below each error record. Its class is left open: the association filter finds it.
TReportClass MakeCommandTable()
{
   TTableDraft draft("", "Commands that preceded the error");
   draft.Column("commandId", "10%");
   draft.Column("commandReg", "10%");
   draft.Column("deviceControl", "10%");
   draft.Column("features", "10%");
   draft.Column("sectorCount", "10%");
   draft.Column("LBAHigh", "9%");
   draft.Column("LBAMid", "8%");
   draft.Column("LBALow", "8%");
   draft.Column("timestamp", "25%");
   TReportClass table = draft.Finish();
   table.EnableSubTitle();
   table.SetAssociatorsFilter("OMC_IDESMARTLogCmdData", "OMC_IDESMARTErrorCmdData", "", "");
   return table;
}

TReportClass MakeErrorTable()
{
   TTableDraft draft("", "SMART Error Log");
   draft.Column("RecordID", "10%");
   draft.Column("deviceState", "10%");
   draft.Column("errorReg", "10%");
   draft.Column("sectorCount", "10%");
   draft.Column("statusReg", "10%");
   draft.Column("LBAHigh", "10%");
   draft.Column("LBAMid", "10%");
   draft.Column("LBALow", "10%");
   draft.Column("MessageTimestamp", "20%");
   TReportClass table = draft.Finish();
   table.SetAssociatedClass();
   table.SetAssociatedClasses({MakeCommandTable()});
   return table;
}

/// The page, opened by the first section that has something to show.
struct TDriveHealthPage
{
   TWriter& fWriter;
   const std::string& fOutputDirectory;
   bool fIsOpen = false;
   bool fHasData = false;

   void Open()
   {
      if (fIsOpen)
         return;
      OpenReportPage(fWriter, fOutputDirectory, kLinkName);
      fWriter.WriteReportTitle(kTitle, "", "");
      fIsOpen = true;
   }

   /// Throws: TQSXException where a key of the order can't be read.
   void WriteSortedTable(const TReportClass& table, TInstances instances, const char* descendingKey)
   {
      if (instances.empty())
         return;
      fHasData = true;
      TReportParameters::TInstanceSorter sorter;
      sorter.AddProperty(descendingKey, false, false);
      sorter.SortInstances(instances);
      fWriter.WriteTable(table, instances, true, false, {});
   }
};

void WriteDevice(TDriveHealthPage& page, const TInstanceHandle& device)
{
   const TInstances logs =
      EnumerateAssociators(device, "OMC_IDESMARTUseOfMessageLog", "OMC_IDESMARTErrorLog");
   if (!logs.empty()) {
      page.Open();
      page.fHasData = true;
      page.fWriter.WriteTable(MakeDeviceTable(), {device}, true, false, {});
      page.fWriter.WriteTable(MakeStatusTable(), logs, true, false, {});
   }
   // Attributes alone do not open the page: those of a drive without a log, ahead of all drives
   // with one, are written before there is a page. Meant.
   page.WriteSortedTable(
      MakeAttributeTable(),
      EnumerateAssociators(device, "OMC_IDESMARTElementStatisticalData", "OMC_IDESMARTAttrib"),
      "attribID");
   if (!logs.empty())
      page.WriteSortedTable(
         MakeErrorTable(),
         EnumerateAssociators(logs[0], "OMC_IDESMARTRecordInLog", "OMC_IDESMARTError"), "RecordID");
}

void WritePropertyRow(TWriter& writer, const TInstanceHandle& instance,
                      const boost::shared_ptr<ICIMProperty>& property)
{
   writer.BeginTableRow(true);
   writer.WriteDeclHeaderCell(property->GetDecl({}));
   writer.WritePropertyValueCell(instance, property);
   writer.EndTableRow();
}

/// All properties of the drive, "timeToClean" last and "cleanNow" never, whatever it says: meant.
void WriteTape(TWriter& writer, const TInstanceHandle& tape)
{
   boost::shared_ptr<ICIMProperty> timeToClean;
   writer.BeginRowTable(kTableWidth, "40%", "");
   for (const boost::shared_ptr<ICIMProperty>& property : EnumerateProperties(tape)) {
      const boost::shared_ptr<const ICIMPropertyDecl> decl = property->GetDecl({});
      const std::string& name = decl->GetName({});
      if (name == "timeToClean")
         timeToClean = property;
      else if (name != "cleanNow")
         WritePropertyRow(writer, tape, property);
   }
   if (timeToClean)
      WritePropertyRow(writer, tape, timeToClean);
   writer.EndTable();
}

void WriteTapes(TDriveHealthPage& page, const TInstances& tapes)
{
   if (tapes.empty())
      return;
   page.Open();
   page.fHasData = true;
   page.fWriter.WriteTableTitle("Tape Drive Sense Data", false, false);
   for (const TInstanceHandle& tape : tapes)
      WriteTape(page.fWriter, tape);
}

/// Missing: no row where the property is.
void WriteSenseRow(TWriter& writer, const TInstanceHandle& sense, const std::string& name)
{
   try {
      const boost::shared_ptr<ICIMProperty> property = sense->GetProperty(name, {});
      writer.BeginTableRow(true);
      writer.WriteDeclHeaderCell(property->GetDecl({}));
      if (name == "rawData")
         writer.WriteRawDataCell(property);
      else
         writer.WritePropertyValueCell(sense, property);
      writer.EndTableRow();
   } catch (const TQSXException& failure) {
      RethrowUnlessNotFound(failure);
   }
}

void WriteSenseData(TDriveHealthPage& page, const TInstances& senses)
{
   if (senses.empty())
      return;
   page.Open();
   page.fHasData = true;
   page.fWriter.WriteTableTitle("SCSI Sense Data", false, false);
   for (const TInstanceHandle& sense : senses) {
      page.fWriter.BeginRowTable(kTableWidth, "10%", "");
      for (const char* name : {"InstanceID", "pageNumber", "rawData"})
         WriteSenseRow(page.fWriter, sense, name);
      page.fWriter.EndTable();
   }
}

}  // namespace

void TWriter::WriteDriveHealthReport()
{
   TDriveHealthPage page{*this, fOutputDirectory};
   for (const TInstanceHandle& device : FindInstances(fNamespace, "OMC_ATADevice"))
      WriteDevice(page, device);
   WriteTapes(page, FindInstances(fNamespace, "ZANSG_TapeDriveSensePageData"));
   if (fMode == TReportParametersBuilder::kServiceMode)
      WriteSenseData(page, FindInstances(fNamespace, "OMC_SCSISenseRawData"));
   if (!page.fIsOpen) {
      page.Open();
      WriteMessageTable(*this, "No Supported IDE or Tape Drive found\n",
                        "No Supported IDE or Tape Drive\n");
   }
   CloseReportPage(*this);
   WriteIndexEntry(kLinkName, kTitle, page.fHasData);
}
