#include <array>

#include "writer/ReportFrame.h"
#include "writer/StoreWalk.h"
#include "writer/WriterLog.h"
#include "writer/storage/KeyJoin.h"

namespace {

constexpr const char* kLinkName = "lsi_mr";
// The raw-data page spells it "MegaRAID": both are meant.
constexpr const char* kTitle = "MegaRaid Information";

constexpr const char* kTableWidth = "50%";
constexpr const char* kLabelWidth = "40%";
constexpr const char* kControllerCaption = "Controller Information";
// The controller's caption runs into the section's without a blank: meant.
constexpr const char* kVolumeCaption = "Controller Informationlogical drive information";
constexpr const char* kDriveCaption = "Physical Drive Information";

/// The classes that the report can't do without, in the order in which they are looked up.
enum EModelClass : std::size_t
{
   kHBA,
   kCard,
   kControllerBIOS,
   kControllerFirmware,
   kDrive,
   kDriveFirmware,
   kVolume,
   kVolumeSetting,
   kRedundancySet,
   kExtent,
   kConcreteDependency,  // looked up and not used further
   kModelClassCount
};

constexpr std::array<const char*, kModelClassCount> kClassNames = {
   "LSIESG_MegaRAIDHBA",
   "LSIESG_PhysicalCard",
   "LSIESG_ControllerBIOSIdentity",
   "LSIESG_ControllerFirmwareIdentity",
   "LSIESG_DiskDrive",
   "LSIESG_DriveFirmwareIdentity",
   "LSIESG_StorageVolume",
   "LSIESG_StorageVolumeSetting",
   "LSIESG_StorageRedundancySet",
   "LSIESG_DiskExtent",
   "LSIESG_ConcreteDependency",
};

using TModelClasses = std::array<TClassHandle, kModelClassCount>;

/// The vendor's model: its classes, and the instance sets that hold for all controllers.
struct TMegaRaidModel
{
   TModelClasses fClasses;
   TInstances fHBAs;
   TInstances fCards;
   TInstances fControllerBIOSes;
   TInstances fControllerFirmwares;
   TInstances fDriveFirmwares;
   TInstances fExtents;
};

void ReadInstances(TMegaRaidModel& model)
{
   model.fHBAs = EnumerateInstances(model.fClasses[kHBA]);
   model.fCards = EnumerateInstances(model.fClasses[kCard]);
   model.fControllerBIOSes = EnumerateInstances(model.fClasses[kControllerBIOS]);
   model.fControllerFirmwares = EnumerateInstances(model.fClasses[kControllerFirmware]);
   model.fDriveFirmwares = EnumerateInstances(model.fClasses[kDriveFirmware]);
   model.fExtents = EnumerateInstances(model.fClasses[kExtent]);
}

/// The row of the first identity of the controller. Missing: no row.
void WriteControllerVersion(TWriter& writer, const TClassHandle& identityClass,
                            const TInstances& identities, const std::string& systemName)
{
   const TInstanceHandle identity = FindByKeyPart(identities, "ComputerSystem_Name", systemName);
   if (identity)
      WriteRow(writer, identityClass, identity, TReportRow{"VersionString"});
}

void WriteControllerTable(TWriter& writer, const TMegaRaidModel& model, const TInstanceHandle& card,
                          const std::string& systemName)
{
   writer.WriteTableTitle(kControllerCaption, false, false);
   writer.BeginRowTable(kTableWidth, kLabelWidth, kControllerCaption);
   WriteRow(writer, model.fClasses[kCard], card, TReportRow{"Model"});
   WriteControllerVersion(writer, model.fClasses[kControllerBIOS], model.fControllerBIOSes,
                          systemName);
   WriteControllerVersion(writer, model.fClasses[kControllerFirmware], model.fControllerFirmwares,
                          systemName);
   writer.EndTable();
}

/// The extents of the redundancy sets that lie in the volume's pool.
void WriteVolumeExtents(TWriter& writer, const TClassHandle& extentClass,
                        const TInstances& redundancySets, const TInstanceHandle& volume)
{
   for (const TInstanceHandle& set : redundancySets) {
      for (const TInstanceHandle& extent :
           EnumerateAssociators(set, "LSIESG_MemberOfCollection", "LSIESG_DiskExtent")) {
         if (!KeyContains(ReadKey(volume, "StoragePool_InstanceID"),
                          ReadKey(extent, "StoragePool_InstanceID")))
            continue;
         WriteRow(writer, extentClass, TReportRow{"Name"}, extent, TReportRow{"DeviceID"});
         WriteRow(writer, extentClass, extent, TReportRow{"ExtentStatus"});
      }
   }
}

/// Missing: an empty handle. Throws: for a pool without a volume, when there are any settings.
TInstanceHandle FindSetting(const TInstances& settings, const TInstanceHandle& volume)
{
   if (settings.empty())
      return {};
   // The volume is not tested: a pool without one stops the report here, and that is meant.
   const std::string key = ReadKey(volume, "SystemName") + "_" + ReadKey(volume, "DeviceID");
   return FindByKeyPart(settings, "InstanceID", key);
}

void WriteVolumes(TWriter& writer, const TModelClasses& classes, const TInstanceHandle& hba)
{
   const TInstances volumes = EnumerateInstances(classes[kVolume]);
   const TInstances settings = EnumerateInstances(classes[kVolumeSetting]);
   const TInstances redundancySets = EnumerateInstances(classes[kRedundancySet]);
   for (const TInstanceHandle& pool :
        EnumerateAssociators(hba, "LSIESG_HostedStoragePool", "LSIESG_StoragePool")) {
      const TInstanceHandle volume =
         FindByKeyPart(volumes, "StoragePool_InstanceID", ReadKey(pool, "InstanceID"));
      const TInstanceHandle setting = FindSetting(settings, volume);
      if (!volume || !setting)
         continue;
      writer.WriteTableTitle("Logical drive information", false, false);
      writer.BeginRowTable(kTableWidth, kLabelWidth, kVolumeCaption);
      WriteRow(writer, classes[kVolume], volume, TReportRow{"ElementName"});
      WriteRow(writer, classes[kVolume], volume, TReportRow{"OperationalStatus"});
      // The setting's name tells the level in words.
      WriteRow(writer, classes[kVolumeSetting], TReportRow{"RAIDLevel"}, setting,
               TReportRow{"ElementName"});
      WriteVolumeExtents(writer, classes[kExtent], redundancySets, volume);
      writer.EndTable();
   }
}

/// The sizes of the drive's extents. The caller has begun one row, so each further "BlockSize"
/// stands outside of any, and without an extent the row stays open: meant.
void WriteExtentSizes(TWriter& writer, const TMegaRaidModel& model, const std::string& driveId)
{
   const TClassHandle& extentClass = model.fClasses[kExtent];
   for (const TInstanceHandle& extent : model.fExtents) {
      if (!KeyContains(ReadKey(extent, "DeviceID"), driveId))
         continue;
      writer.WriteHeaderCell(extentClass, TReportRow{"BlockSize"});
      writer.WriteValueCell(extent, TReportRow{"BlockSize"});
      writer.EndTableRow();
      WriteRow(writer, extentClass, extent, TReportRow{"NumberOfBlocks"});
   }
}

void WriteDrive(TWriter& writer, const TMegaRaidModel& model, const TInstanceHandle& drive)
{
   const TClassHandle& firmwareClass = model.fClasses[kDriveFirmware];
   writer.BeginRowTable(kTableWidth, kLabelWidth, kDriveCaption);
   WriteRow(writer, model.fClasses[kDrive], drive, TReportRow{"Name"});
   WriteRow(writer, model.fClasses[kDrive], drive, TReportRow{"OperationalStatus"});
   writer.BeginTableRow(true);
   const std::string driveId = ReadKey(drive, "DeviceID");
   WriteExtentSizes(writer, model, driveId);
   const TInstanceHandle firmware =
      FindByKeyPart(model.fDriveFirmwares, "DiskDrive_DeviceID", driveId);
   if (firmware) {
      WriteRow(writer, firmwareClass, firmware, TReportRow{"Manufacturer"});
      WriteRow(writer, firmwareClass, firmware, TReportRow{"VersionString"});
   }
   writer.EndTableRow();
}

void WriteDrives(TWriter& writer, const TMegaRaidModel& model, const TInstanceHandle& hba)
{
   const TInstances drives = EnumerateAssociators(hba, "LSIESG_SystemDevice", "LSIESG_DiskDrive");
   if (drives.empty())
      return;
   writer.WriteTableTitle(kDriveCaption, false, false);
   for (const TInstanceHandle& drive : drives)
      WriteDrive(writer, model, drive);
   // One end for the tables of all drives: meant.
   writer.EndTable();
}

/// The sections of one port. Volumes and drives hang on the adapter, so each of its ports repeats
/// them. Missing: a port whose card isn't there writes nothing.
void WritePort(TWriter& writer, const TMegaRaidModel& model, const TInstanceHandle& hba,
               const TInstanceHandle& port)
{
   const std::string systemName = ReadKey(port, "SystemName");
   const TInstanceHandle card = FindByKeyPart(model.fCards, "Tag", systemName);
   if (!card)
      return;
   WriteControllerTable(writer, model, card, systemName);
   WriteVolumes(writer, model.fClasses, hba);
   WriteDrives(writer, model, hba);
}

/// Missing: false, logged, when a class is.
bool FindClasses(const TNamespaceHandle& cimNamespace, TModelClasses& classes)
{
   try {
      for (std::size_t i = 0; i < classes.size(); ++i)
         classes[i] = cimNamespace->GetClass(kClassNames[i], {});
   } catch (const TQSXException& failure) {
      RethrowUnlessNotFound(failure);
      LogStatus("Exiting TWriter::WriteLSIMegaRaidReport, ex.fStatusCode.fStatusCode=", failure);
      return false;
   }
   if (!classes[kHBA] || !classes[kCard]) {
      LogTrace("raidCSClass = NULL && raidCardClass = NULL");
      return false;
   }
   return true;
}

}  // namespace

void TWriter::WriteLSIMegaRaidReport()
{
   LogTrace("Entering TWriter::WriteLSIMegaRaidReport");
   // It writes the index entry of both pages, so this report has none of its own.
   WriteMegaLSIRawDataReport();
   TMegaRaidModel model;
   if (FindClasses(fNamespace, model.fClasses)) {
      OpenReportPage(*this, fOutputDirectory, kLinkName);
      if (fOutputFormat == "html" && fMode == TReportParametersBuilder::kServiceMode &&
          isMRRawDataPresent())
         WriteReportTitle(kTitle, " - [Show Rawdata Report]", "megalsi_rawData");
      else
         WriteReportTitle(kTitle, "", "");
      ReadInstances(model);
      for (const TInstanceHandle& hba : model.fHBAs)
         for (const TInstanceHandle& port :
              EnumerateAssociators(hba, "LSIESG_SystemDevice", "LSIESG_DAPort"))
            WritePort(*this, model, hba, port);
      CloseReportPage(*this);
   }
   LogTrace("Exiting TWriter::WriteLSIMegaRaidReport");
}
