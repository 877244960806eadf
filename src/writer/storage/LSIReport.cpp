#include "writer/ReportFrame.h"
#include "writer/StoreWalk.h"
#include "writer/WriterLog.h"
#include "writer/storage/LSIChannel.h"

namespace {

constexpr const char* kLinkName = "lsi";
constexpr const char* kTitle = "LSI Controller";

constexpr const char* kTableWidth = "50%";
constexpr const char* kLabelWidth = "40%";

/// Values of "LSIType" that the report tells apart.
constexpr int kPlainType = 0;
constexpr int kEnclosureType = 3;

constexpr TReportRows kConfigurationRows = {
   {"ControllerType"},
   {"Version", "ZANSG_LSIControllerBIOSElement", "ZANSG_LSIBIOSElement", "BIOS Version"},
   {"Version", "ZANSG_LSIControllerFirmwareElement", "ZANSG_LSIFirmwareElement",
    "Firmware Version"},
   {"SCSIChannelDescription"},
   {"InitiatorIDs"},
};

/// Ahead of the status and logical drive rows, for controllers with enclosures only.
constexpr TReportRows kVolumeRows = {
   {"VolumeID"},
};

constexpr TReportRows kStatusRows = {
   {"CurrentOperation"},
   {"LogicalDriveInProgress"},
   {"VolumeStatus"},
   {"VolumeState"},
};

/// Behind the status rows, while an operation runs.
constexpr TReportRows kProgressRows = {
   {"LogicalDriveSize"},
   {"NumRemainingSectors"},
   {"PercentComplete"},
};

constexpr TReportRows kLogicalDriveRows = {
   {"VolumeNumber"}, {"VolumeStatus"}, {"RAIDLevel"}, {"BlockSize"}, {"PhysicalHardDisks"},
};

constexpr TReportRows kPhysicalDeviceRows = {
   {"EnclosureNum"}, {"TargetID"},    {"SlotID"},      {"DeviceType"},       {"State"},
   {"MaxMediaSize"}, {"InquiryData"}, {"ModelNumber"}, {"FirmwareRevision"}, {"SerialNo"},
   {"DriveType"},
};

constexpr TReportRows kEnclosureRows = {
   {"EnclosureNum"}, {"LogicalID"}, {"Numslots"}, {"StartSlot"}, {"StartTargetID"}, {"StartBus"},
};

/// One controller, as its sections need it. The captions run into the title without a blank: meant.
struct TLSIController
{
   TInstanceHandle fInstance;
   TClassHandle fClass;
   std::string fTitle;
   int fType;
};

/// Missing: a type that can't be read counts as plain.
int ReadType(const TInstanceHandle& controller)
{
   try {
      return static_cast<unsigned char>(controller->GetProperty("LSIType", {})->GetValue({}));
   } catch (const TQSXException&) {
      return kPlainType;
   }
}

void WriteConfiguration(TWriter& writer, const TLSIController& controller)
{
   writer.WriteTableTitle(controller.fTitle, false, false);
   writer.BeginRowTable(kTableWidth, kLabelWidth, controller.fTitle);
   WriteAllRows(writer, controller.fClass, controller.fInstance, kConfigurationRows);
   writer.EndTable();
}

void WriteStatus(TWriter& writer, const TLSIController& controller, const std::string& operation)
{
   if (operation.empty())
      return;
   writer.WriteTableTitle("Controller Status", false, false);
   writer.BeginRowTable(kTableWidth, kLabelWidth, controller.fTitle + "status");
   if (controller.fType == kEnclosureType)
      WriteFilledRows(writer, controller.fClass, controller.fInstance, kVolumeRows);
   WriteFilledRows(writer, controller.fClass, controller.fInstance, kStatusRows);
   if (operation.find("None") == std::string::npos)
      WriteFilledRows(writer, controller.fClass, controller.fInstance, kProgressRows);
   writer.EndTable();
}

void WriteLogicalDrives(TWriter& writer, const TNamespaceHandle& cimNamespace,
                        const TLSIController& controller)
{
   constexpr const char* kDriveClass = "ZANSG_LSILogicalDisk";
   const TInstances drives =
      EnumerateAssociators(controller.fInstance, "ZANSG_LSIProtocolControllerForUnit", kDriveClass);
   if (drives.empty())
      return;
   const TClassHandle driveClass = cimNamespace->GetClass(kDriveClass, {});
   writer.WriteTableTitle("Logical drive information", false, false);
   for (const TInstanceHandle& drive : drives) {
      writer.BeginRowTable(kTableWidth, kLabelWidth,
                           controller.fTitle + "logical drive information");
      if (controller.fType == kEnclosureType)
         WriteAllRows(writer, driveClass, drive, kVolumeRows);
      WriteAllRows(writer, driveClass, drive, kLogicalDriveRows);
      writer.EndTable();
   }
}

void WritePhysicalDevices(TWriter& writer, const TNamespaceHandle& cimNamespace,
                          const TLSIController& controller)
{
   constexpr const char* kDriveClass = "ZANSG_LSIDiskDrive";
   const TInstances drives = EnumerateAssociators(
      controller.fInstance, "ZANSG_LSIProtocolControllerForPhysicalDisk", kDriveClass);
   if (drives.empty())
      return;
   const TClassHandle driveClass = cimNamespace->GetClass(kDriveClass, {});
   writer.WriteTableTitle("Physical device information", false, false);
   TLSIChannel channel(drives[0]);
   // Other types start without a heading, and get one when the bus changes: meant.
   if (controller.fType == kPlainType)
      channel.WriteHeading(writer);
   for (const TInstanceHandle& drive : drives) {
      writer.BeginRowTable(kTableWidth, kLabelWidth,
                           controller.fTitle + "physical drive information");
      channel.Follow(writer, drive, "ChannelNum");
      WriteFilledRows(writer, driveClass, drive, kPhysicalDeviceRows);
      writer.EndTable();
   }
}

/// All enclosures, at each controller again: an enclosure does not tell whose it is.
void WriteEnclosures(TWriter& writer, const TNamespaceHandle& cimNamespace,
                     const TLSIController& controller)
{
   const TClassHandle enclosureClass = FindClass(cimNamespace, "ZANSG_LSIEnclosureInformation");
   if (!enclosureClass) {
      // Spelled so: tools match on it.
      LogMissing("WriteLSIReport: Counldn't find class ZANSG_LSIEnclosureInformation");
      return;
   }
   const TInstances enclosures = EnumerateInstances(enclosureClass);
   if (enclosures.empty())
      return;
   writer.WriteTableTitle("Enclosure Information", false, false);
   for (const TInstanceHandle& enclosure : enclosures) {
      writer.BeginRowTable(kTableWidth, kLabelWidth, controller.fTitle + "enclosure information");
      WriteFilledRows(writer, enclosureClass, enclosure, kEnclosureRows);
      writer.EndTable();
   }
}

void WriteController(TWriter& writer, const TNamespaceHandle& cimNamespace,
                     const TClassHandle& controllerClass, const TInstanceHandle& instance)
{
   TLSIController controller;
   controller.fInstance = instance;
   controller.fClass = controllerClass;
   controller.fType = ReadType(instance);
   const std::string operation = writer.GetPropertyValue(instance, "CurrentOperation", ",");
   controller.fTitle =
      "Controller #" + writer.GetPropertyValue(instance, "ControllerNum", ",") + " Configuration";
   WriteConfiguration(writer, controller);
   WriteStatus(writer, controller, operation);
   WriteLogicalDrives(writer, cimNamespace, controller);
   WritePhysicalDevices(writer, cimNamespace, controller);
   if (controller.fType == kEnclosureType)
      WriteEnclosures(writer, cimNamespace, controller);
}

}  // namespace

void TWriter::WriteLSIReport()
{
   LogTrace("Entering TWriter::WriteLSIReport");
   TClassHandle controllerClass;
   // Both ends without a controller class leave no index entry: meant.
   try {
      controllerClass = fNamespace->GetClass("ZANSG_LSISCSIProtocolController", {});
   } catch (const TQSXException& failure) {
      RethrowUnlessNotFound(failure);
      LogTrace("Exiting TWriter::WriteLSIReport, caught exception while getting class instances");
      return;
   }
   if (!controllerClass) {
      LogTrace(
         "Exiting TWriter::WriteLSIReport, no class instances for "
         "ZANSG_LSISCSIProtocolController found");
      return;
   }
   std::string linkText;
   std::string linkTarget;
   if (fOutputFormat == "html" && fMode == TReportParametersBuilder::kServiceMode)
      WriteLSIRawData(linkText, linkTarget);
   OpenReportPage(*this, fOutputDirectory, kLinkName);
   WriteReportTitle(kTitle, linkText, linkTarget);
   const TInstances controllers = EnumerateInstances(controllerClass);
   for (const TInstanceHandle& controller : controllers)
      WriteController(*this, fNamespace, controllerClass, controller);
   if (controllers.empty())
      WriteMessageTable(*this, "No LSI Controller Card Detected\n", "");
   CloseReportPage(*this);
   WriteIndexEntry(kLinkName, kTitle, !controllers.empty());
   LogTrace("Exiting TWriter::WriteLSIReport");
}
