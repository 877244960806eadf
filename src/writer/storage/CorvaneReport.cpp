#include "catalogue/TReportDraft.h"
#include "writer/ReportFrame.h"
#include "writer/StoreWalk.h"
#include "writer/WriterLog.h"

namespace {

using TReportProperty = TWriter::TReportProperty;

constexpr const char* kLinkName = "cv";
constexpr const char* kIndexName = "Corvane";

constexpr const char* kTableWidth = "60%";
constexpr const char* kLabelWidth = "40%";
constexpr const char* kStripeOrderLabelWidth = "25%";

/// From this controller type on, a stripe order belongs to a logical drive, not to an array.
constexpr int kFirstTypeWithoutArrays = 7;

constexpr TReportRows kControllerRows = {
   {"ControllerType"},
   {"ControllerStatus"},
   {"ChannelDescription"},
   {"SerialNum"},
   {"ControllerSlotInfo"},
   {"InstalledMemory"},
   {"PartNum"},
   {"Version", "ZANSG_cvBiosOnController", "ZANSG_cvBiosVersion", "BIOS Version", ""},
   {"Version", "ZANSG_cvFirmwareOnController", "ZANSG_cvFirmwareVersion", "Firmware Version", ""},
   {"Version", "ZANSG_cvBootBlockOnController", "ZANSG_cvBootBlockVersion", "Boot Block Version",
    ""},
   {"DeviceDriverVersion"},
   {"ClusterSolutionVersion"},
   {"ControllerName"},
   {"CopyBackEnabled"},
   {"ScsiChannelDescr"},
   {"InitiatorChannelScsiId"},
   {"MaxPhysicalDevices"},
   {"DefunctDiskDriveCnt"},
   {"LogicalDriveStatusCnt"},
   {"ReadAhead"},
   {"StripeUnitSize"},
   {"RebuildRate"},
   {"HotSwapRebuild"},
   {"DataScrubbing"},
   {"HotSpareCopyBack"},
   {"PartOfCluster"},
   {"UnattendedMode"},
   {"ConcurrentCommandsSupported"},
   {"ConfigurationUpdateCount"},
   {"Current_MostRecentOperation"},
   {"Logical_Drive"},
   {"BackgroundOperationActive"},
   {"LastCmdStatus"},
   {"LogicalDriveSizeInStripes"},
   {"NumberOfRemainingStripes"},
   {"VPD"},
   {"ECVersion"},
   {"ControllerFRU"},
   {"ControllerTemp"},
   {"ControllerBatteryStatus"},
   {"ControllerBatteryOverTemp"},
   {"ControllerBatteryCapacity"},
   {"ControllerBatteryFRU"},
   {"BatteryTimeRemaining"},
};

constexpr TReportRows kLogicalDriveRows = {
   {"ControllerNum"},   {"LogicalDriveNum"},    {"LogicalDriveName"},
   {"RaidLevel"},       {"LogicalDriveStatus"}, {"Size"},
   {"ReadCacheStatus"}, {"WriteCacheStatus"},   {"WriteCacheSetting"},
   {"Partitioned"},     {"NumOfSegments"},      {"StripeUnitSize"},
   {"DriveList"},       {"StripeOrder"},        {"DefunctSegments"},
};

constexpr TReportRow kBadStripesRow = {"NumBadStripes", "ZANSG_ElementBadStripeData",
                                       "ZANSG_BadStripeData"};

constexpr TReportRows kArrayStripeOrderRows = {
   {"Array"},
   {"ControllerNum"},
   {"StripeOrder"},
};

constexpr TReportRows kLogicalDriveStripeOrderRows = {
   {"LogicalDrive"},
   {"ControllerNum"},
   {"StripeOrder"},
};

constexpr TReportRows kPhysicalDeviceRows = {
   {"ControllerNum"},
   {"DeviceNumber"},
   {"DeviceType"},
   {"Channel"},
   {"ScsiId"},
   {"DeviceCode"},
   {"State"},
   {"Supported"},
   {"TransferSpeed"},
   {"ReportedChannel"},
   {"ReportedLocation"},
   {"ReportedESD"},
   {"EnclosureId"},
   {"Type"},
   {"Vendor"},
   {"Model"},
   {"Firmware"},
   {"DeviceSerialNum"},
   {"WorldWideName"},
   {"Size"},
   {"WriteCache"},
   {"FRU"},
   {"PFA"},
   {"Enclosure"},
};

TReportParameters::TReportClass MakeDataRateTable()
{
   TTableDraft table("ZANSG_cvSCSISubStatData", "Operating Data Rate of Disk");
   table.SetWidth("75%");
   table.Column("ControllerNum", "14%");
   table.Column("Channel", "14%");
   table.Column("ScsiId", "14%");
   table.Column("Params", "14%");
   table.Column("Req_Off", "14%");
   table.Column("Max_Txer_P", "15%");
   table.Column("Cur_Txer_P", "15%");
   return table.Finish();
}

/// What the report can't do without.
struct TCorvaneModel
{
   TClassHandle fControllerClass;
   TInstances fControllers;
   TClassHandle fLogicalDiskClass;
   TClassHandle fDiskGroupClass;
};

/// Missing: false when a class or every controller is.
bool FindModel(const TNamespaceHandle& cimNamespace, TCorvaneModel& model)
{
   model.fControllerClass = FindClass(cimNamespace, "ZANSG_cvSCSIProtocolController");
   if (!model.fControllerClass)
      return false;
   model.fControllers = EnumerateInstances(model.fControllerClass);
   if (model.fControllers.empty())
      return false;
   model.fLogicalDiskClass = FindClass(cimNamespace, "ZANSG_cvLogicalDisk");
   if (!model.fLogicalDiskClass)
      return false;
   model.fDiskGroupClass = FindClass(cimNamespace, "ZANSG_cvDiskGroup");
   return model.fDiskGroupClass != nullptr;
}

void WriteControllerTable(TWriter& writer, const TClassHandle& controllerClass,
                          const TInstanceHandle& controller, const std::string& title)
{
   writer.WriteTableTitle(title, false, false);
   writer.BeginRowTable(kTableWidth, kLabelWidth, title);
   WriteFilledRows(writer, controllerClass, controller, kControllerRows);
   writer.EndTable();
}

void WriteBadStripesRow(TWriter& writer, const TInstanceHandle& drive)
{
   const TReportProperty property = kBadStripesRow;
   const std::string count = writer.GetValuesFromProperties(
      writer.GetProperties(drive, property.GetProperty(), property.GetAssociationClass(),
                           property.GetAssociationTarget()),
      writer.GetArrayValueSeparatorText(property.GetArrayValueSeparator()), false);
   if (count != "0" && !count.empty())
      WriteRow(writer, drive->GetClass({}), drive, property);
}

void WriteLogicalDrives(TWriter& writer, const TClassHandle& driveClass, const TInstances& drives,
                        const std::string& title)
{
   if (drives.empty())
      return;
   writer.WriteTableTitle("Logical Drive Information", false, false);
   for (const TInstanceHandle& drive : drives) {
      writer.BeginRowTable(kTableWidth, kLabelWidth, title + " logical drive information");
      WriteFilledRows(writer, driveClass, drive, kLogicalDriveRows);
      WriteBadStripesRow(writer, drive);
   }
   // One end for all the tables of a section, here and below: meant, writers cope with it.
   writer.EndTable();
}

/// The name and number of the logical drive at the position, a single blank behind the last one.
std::string NameLogicalDrive(TWriter& writer, const TInstances& drives, std::size_t position)
{
   if (position >= drives.size())
      return " ";
   return writer.GetPropertyValue(drives[position], "LogicalDriveName", ",") + " " +
          writer.GetPropertyValue(drives[position], "LogicalDriveNum", ",");
}

/// Enters the logical drive in the store, where the row and every later report read it.
void SetLogicalDrive(const TInstanceHandle& group, const std::string& text)
{
   try {
      // The text ends at its first NUL.
      group->SetProperty("LogicalDrive", TCIMValue(text.c_str()), {});
   } catch (const TQSXException&) {
      // The row then shows what the group had, or falls away.
   }
}

void WriteStripeOrders(TWriter& writer, const TClassHandle& groupClass,
                       const TInstanceHandle& controller, const TInstances& drives,
                       const std::string& title)
{
   const TInstances groups =
      EnumerateAssociators(controller, "ZANSG_cvStripeOrderForController", "ZANSG_cvDiskGroup");
   // A controller without logical drives shows no stripe orders and leaves the store alone.
   if (drives.empty() || groups.empty())
      return;
   std::string controllerType = writer.GetPropertyValue(controller, "ControllerType", ",");
   const bool hasArrays = writer.GetNumberInString(controllerType) < kFirstTypeWithoutArrays;
   writer.WriteTableTitle("Stripe Order", false, false);
   for (std::size_t i = 0; i < groups.size(); ++i) {
      if (!hasArrays)
         SetLogicalDrive(groups[i], NameLogicalDrive(writer, drives, i));
      writer.BeginRowTable(kTableWidth, kStripeOrderLabelWidth, title + " stripe order");
      WriteFilledRows(writer, groupClass, groups[i],
                      hasArrays ? kArrayStripeOrderRows : kLogicalDriveStripeOrderRows);
   }
   writer.EndTable();
}

void WritePhysicalDevices(TWriter& writer, const TInstanceHandle& controller,
                          const std::string& title)
{
   const TInstances devices = EnumerateAssociators(
      controller, "ZANSG_cvProtocolControllerForPhysicalDisk", "ZANSG_cvDiskDrive");
   if (devices.empty())
      return;
   writer.WriteTableTitle("Physical Device Information", false, false);
   for (const TInstanceHandle& device : devices) {
      writer.BeginRowTable(kTableWidth, kLabelWidth, title + " physical drive information");
      WriteFilledRows(writer, device->GetClass({}), device, kPhysicalDeviceRows);
   }
   writer.EndTable();
}

void WriteController(TWriter& writer, const TCorvaneModel& model, const TInstanceHandle& controller)
{
   const std::string title =
      "Controller " + writer.GetPropertyValue(controller, "ControllerNum", ",");
   WriteControllerTable(writer, model.fControllerClass, controller, title);
   const TInstances drives =
      EnumerateAssociators(controller, "ZANSG_cvProtocolControllerForUnit", "ZANSG_cvLogicalDisk");
   WriteLogicalDrives(writer, model.fLogicalDiskClass, drives, title);
   WriteStripeOrders(writer, model.fDiskGroupClass, controller, drives, title);
   WritePhysicalDevices(writer, controller, title);
}

}  // namespace

void TWriter::WriteCorvaneReport()
{
   LogTrace("Entering TWriter::WriteCorvaneReport");
   TCorvaneModel model;
   if (!FindModel(fNamespace, model)) {
      // No exit line here: meant.
      WriteIndexEntry("", kIndexName, false);
      return;
   }
   const bool serviceMode = fMode == TReportParametersBuilder::kServiceMode;
   std::string linkText;
   std::string linkTarget;
   if (serviceMode)
      WriteRawDataLink(linkText, linkTarget);
   OpenReportPage(*this, fOutputDirectory, kLinkName);
   WriteReportTitle("Corvane Information", linkText, linkTarget);
   for (const TInstanceHandle& controller : model.fControllers)
      WriteController(*this, model, controller);
   if (serviceMode) {
      const TReportClass table = MakeDataRateTable();
      if (const TClassHandle rateClass = FindClass(fNamespace, table.GetClass()))
         WriteTable(table, EnumerateInstances(rateClass), true, false, {});
   }
   CloseReportPage(*this);
   WriteIndexEntry(kLinkName, kIndexName, true);
   LogTrace("Exiting TWriter::WriteCorvaneReport");
}
