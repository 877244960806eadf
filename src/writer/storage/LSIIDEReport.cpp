#include "writer/ReportFrame.h"
#include "writer/StoreWalk.h"
#include "writer/WriterLog.h"
#include "writer/storage/LSIChannel.h"

namespace {

constexpr const char* kLinkName = "lsiide";
constexpr const char* kTitle = "LSI IDE Controller";

constexpr const char* kTableWidth = "50%";
constexpr const char* kLabelWidth = "40%";

constexpr TReportRows kControllerRows = {
   {"ControllerType"},
   {"Version", "ZANSG_LSIIDEControllerBIOSElement", "ZANSG_LSIIDEBIOSElement", "BIOS version"},
   {"ControllerDevNum"},
};

constexpr TReportRows kLogicalDriveRows = {
   {"VolumeNumber"}, {"RAIDLevel"}, {"BlockSize"}, {"TotalStripe"}, {"PhysicalHardDisks"},
};

constexpr TReportRows kPhysicalDriveRows = {
   {"DriveStatus"},
   {"Bus"},
   {"TargetID"},
   {"Version", "ZANSG_LSIIDEControllerFirmwareElement", "ZANSG_LSIIDEFirmwareElement",
    "Firmware version"},
   {"MaxMediaSize"},
   {"ModelString"},
   {"SerialNumber"},
   {"MaxAddSector"},
   {"MaxPIOModeSupport"},
   {"MaxMDMAModeSupport"},
   {"MaxUDMAModeSupport"},
   {"MDMAModeProgrammed"},
   {"UDMAModeProgrammed"},
   {"SMARTFeatureSupport"},
   {"HOSTFeatureSupport"},
   {"PwrFeatureSupport"},
   {"SMARTFeatureEnable"},
   {"HOSTFeatureEnabled"},
   {"PwrFeatureEnable"},
};

void WriteLogicalDrives(TWriter& writer, const TInstanceHandle& controller,
                        const std::string& title)
{
   const TInstances drives = EnumerateAssociators(
      controller, "ZANSG_LSIIDEProtocolControllerForUnit", "ZANSG_LSIIDELogicalDisk");
   if (drives.empty())
      return;
   writer.WriteTableTitle("Logical drive information", false, false);
   for (const TInstanceHandle& drive : drives) {
      writer.BeginRowTable(kTableWidth, kLabelWidth, title + " logical drive information");
      WriteFilledRows(writer, drive->GetClass({}), drive, kLogicalDriveRows);
      writer.EndTable();
   }
}

void WritePhysicalDrives(TWriter& writer, const TInstanceHandle& controller,
                         const std::string& title)
{
   const TInstances drives = EnumerateAssociators(
      controller, "ZANSG_LSIIDEProtocolControllerForPhysicalDisk", "ZANSG_LSIIDEDiskDrive");
   if (drives.empty())
      return;
   writer.WriteTableTitle("Physical drive information", false, false);
   TLSIChannel channel(drives[0]);
   channel.WriteHeading(writer);
   for (const TInstanceHandle& drive : drives) {
      writer.BeginRowTable(kTableWidth, kLabelWidth, title + " physical drive information");
      channel.Follow(writer, drive, "DeviceNumber");
      WriteFilledRows(writer, drive->GetClass({}), drive, kPhysicalDriveRows);
      writer.EndTable();
   }
}

void WriteController(TWriter& writer, const TClassHandle& controllerClass,
                     const TInstanceHandle& controller)
{
   const std::string title =
      "Controller #" + writer.GetPropertyValue(controller, "ControllerNum", ",") + " Configuration";
   writer.WriteTableTitle(title, false, false);
   writer.BeginRowTable(kTableWidth, kLabelWidth, title);
   WriteAllRows(writer, controllerClass, controller, kControllerRows);
   writer.EndTable();
   WriteLogicalDrives(writer, controller, title);
   WritePhysicalDrives(writer, controller, title);
}

}  // namespace

void TWriter::WriteLSIIDEReport()
{
   LogTrace("Entering TWriter::WriteLSIIDEReport");
   TClassHandle controllerClass;
   try {
      controllerClass = fNamespace->GetClass("ZANSG_LSIIDEProtocolController", {});
   } catch (const TQSXException& failure) {
      RethrowUnlessNotFound(failure);
      WriteIndexEntry("", kTitle, false);
      LogStatus("Exiting TWriter::WriteLSIIDEReport, ex.fStatusCode.fStatusCode=", failure);
      return;
   }
   if (!controllerClass) {
      WriteIndexEntry("", kTitle, false);
      LogTrace("Exiting TWriter::WriteLSIIDEReport");
      return;
   }
   OpenReportPage(*this, fOutputDirectory, kLinkName);
   WriteReportTitle(kTitle, "", "");
   const TInstances controllers = EnumerateInstances(controllerClass);
   for (const TInstanceHandle& controller : controllers)
      WriteController(*this, controllerClass, controller);
   CloseReportPage(*this);
   WriteIndexEntry(kLinkName, kTitle, !controllers.empty());
   LogTrace("Exiting TWriter::WriteLSIIDEReport");
}
