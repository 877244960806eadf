#include "writer/ReportFrame.h"
#include "writer/StoreWalk.h"
#include "writer/WriterLog.h"
#include "writer/storage/KeyJoin.h"

bool wroteLSIReport = false;

namespace {

// The page of the LSI report, whose place this one takes.
constexpr const char* kLinkName = "lsi";
constexpr const char* kTitle = "LSI Controller";

constexpr const char* kTableWidth = "50%";
constexpr const char* kLabelWidth = "40%";

constexpr TReportRow kControllerRows[] = {
   {"VersionString", "LSI_RAID_SystemBIOSSoftwareIdentity",
    "LSI_RAID_ControllerBIOSSoftwareIdentity", "BIOS version"},
   {"VersionString", "LSI_RAID_SystemFWSoftwareIdentity", "LSI_RAID_ControllerFWSoftwareIdentity",
    "Firmware version"},
};

constexpr TReportRows kDriveOwnRows = {
   {"Name"},
   {"OperationalStatus"},
   {"MaxMediaSize"},
};

/// Headed by another property: the package's equipment type stands under "DeviceID".
constexpr TReportRow kEquipmentTypeLabel = {"DeviceID", "LSI_RAID_DiskDriveRealizesPhysicalPackage",
                                            "LSI_RAID_DiskDrivePhysicalPackage"};
constexpr TReportRow kEquipmentTypeRow = {"VendorEquipmentType",
                                          "LSI_RAID_DiskDriveRealizesPhysicalPackage",
                                          "LSI_RAID_DiskDrivePhysicalPackage"};

constexpr TReportRow kDriveRows[] = {
   {"Model", "LSI_RAID_DiskDriveRealizesPhysicalPackage", "LSI_RAID_DiskDrivePhysicalPackage"},
   {"VersionString", "LSI_RAID_DiskDriveSoftwareIdentity", "LSI_RAID_DDSoftwareIdentity"},
   {"SerialNumber", "LSI_RAID_DiskDriveSoftwareIdentity", "LSI_RAID_DDSoftwareIdentity"},
};

constexpr TReportRows kVolumeRows = {
   {"ElementName"},
   {"OperationalStatus"},
   {"RAIDLevel"},
};

constexpr TReportRow kProgressRow = {"PercentComplete", "LSI_RAID_AffectedStorageVolume",
                                     "LSI_RAID_ConcreteJob"};

struct TIntegratedRaid
{
   TNamespaceHandle fNamespace;
   TClassHandle fCardClass;
   TClassHandle fSystemClass;
   TClassHandle fDriveClass;
   TInstances fCards;
   TInstances fSystems;
   TInstances fDrives;
};

/// A row whose label comes from the class at the far end of its association.
/// Missing: no row where that class is.
void WriteTargetRow(TWriter& writer, const TNamespaceHandle& cimNamespace,
                    const TReportRow& labelRow, const TInstanceHandle& instance,
                    const TReportRow& row)
{
   if (const TClassHandle labelClass = FindClass(cimNamespace, row.fAssocTarget))
      WriteRow(writer, labelClass, labelRow, instance, row);
}

void WriteController(TWriter& writer, const TIntegratedRaid& raid, const TInstanceHandle& card,
                     const TInstanceHandle& system, const std::string& title)
{
   writer.WriteTableTitle(title, false, false);
   writer.BeginRowTable(kTableWidth, kLabelWidth, title);
   WriteRow(writer, raid.fCardClass, card, TReportRow{"Model"});
   for (const TReportRow& row : kControllerRows)
      WriteTargetRow(writer, raid.fNamespace, row, system, row);
   writer.EndTable();
}

void WriteDrives(TWriter& writer, const TIntegratedRaid& raid, const TInstanceHandle& system,
                 const std::string& title)
{
   const TInstances drives =
      EnumerateAssociators(system, "LSI_RAID_SystemDeviceDiskDrive", "LSI_RAID_DiskDrive");
   if (drives.empty())
      return;
   writer.WriteTableTitle("Physical drive information", false, false);
   for (const TInstanceHandle& drive : drives) {
      // The captions of the sections run into the title without a blank: meant.
      writer.BeginRowTable(kTableWidth, kLabelWidth, title + "physical drive information");
      WriteAllRows(writer, drive->GetClass({}), drive, kDriveOwnRows);
      WriteTargetRow(writer, raid.fNamespace, kEquipmentTypeLabel, drive, kEquipmentTypeRow);
      for (const TReportRow& row : kDriveRows)
         WriteTargetRow(writer, raid.fNamespace, row, drive, row);
      writer.EndTable();
   }
}

/// What the reference of an association names. Missing: an empty handle.
TInstanceHandle FollowReference(const TInstanceHandle& association, const std::string& role)
{
   try {
      const TCIMReference path =
         static_cast<TCIMReference>(association->GetProperty(role, {})->GetValue({}));
      return path.GetClass()->GetNamespace({})->GetInstance(path, {});
   } catch (const TQSXException& failure) {
      RethrowUnlessNotFound(failure);
      return {};
   }
}

/// The extents of the pool as the drives that they lie on.
void WriteExtents(TWriter& writer, const TIntegratedRaid& raid, const TInstanceHandle& pool)
{
   const TClassHandle extentClass = FindClass(raid.fNamespace, "LSI_RAID_StorageExtent");
   if (!extentClass)
      return;
   for (const TInstanceHandle& extent : EnumerateAssociators(
           pool, "LSI_RAID_ConcreteComponentOfConcretePool", "LSI_RAID_StorageExtent")) {
      const std::string extentId = ReadKey(extent, "DeviceID");
      for (const TInstanceHandle& drive : raid.fDrives) {
         if (ReadKey(drive, "DeviceID") != extentId)
            continue;
         WriteRow(writer, extentClass, TReportRow{"DiskName"}, drive, TReportRow{"Name"});
         WriteRow(writer, extentClass, extent, TReportRow{"ExtentStatus"});
      }
   }
}

void WriteVolume(TWriter& writer, const TIntegratedRaid& raid, const TInstanceHandle& pool,
                 const TInstanceHandle& volume, const std::string& title)
{
   const TClassHandle volumeClass = FindClass(raid.fNamespace, "LSI_RAID_StorageVolume");
   if (!volumeClass)
      return;
   writer.WriteTableTitle("Logical drive information", false, false);
   writer.BeginRowTable(kTableWidth, kLabelWidth, title + "logical drive information");
   WriteAllRows(writer, volumeClass, volume, kVolumeRows);
   WriteExtents(writer, raid, pool);
   WriteTargetRow(writer, raid.fNamespace, kProgressRow, volume, kProgressRow);
   // One more end of a row than there are rows: meant.
   writer.EndTableRow();
   writer.EndTable();
}

void WriteVolumes(TWriter& writer, const TIntegratedRaid& raid, const std::string& systemName,
                  const std::string& title)
{
   for (const TInstanceHandle& allocation :
        FindInstances(raid.fNamespace, "LSI_RAID_VolumeAllocatedFromConcreteStoragePool")) {
      // A volume depends on the pool that it is allocated from.
      const TInstanceHandle pool = FollowReference(allocation, "Antecedent");
      const TInstanceHandle volume = FollowReference(allocation, "Dependent");
      if (pool && volume && KeyContains(ReadKey(volume, "DeviceID"), systemName))
         WriteVolume(writer, raid, pool, volume, title);
   }
}

void WriteSystem(TWriter& writer, const TIntegratedRaid& raid, const TInstanceHandle& card,
                 const TInstanceHandle& system, const std::string& systemName)
{
   const std::string title = writer.GetPropertyValue(system, "ElementName", ",");
   WriteController(writer, raid, card, system, title);
   WriteDrives(writer, raid, system, title);
   WriteVolumes(writer, raid, systemName, title);
}

/// Whether any card found its system. Missing: a card without one writes nothing.
bool WriteSystems(TWriter& writer, const TIntegratedRaid& raid)
{
   bool found = false;
   for (const TInstanceHandle& system : raid.fSystems) {
      const std::string systemName = ReadKey(system, "Name");
      for (const TInstanceHandle& card : raid.fCards) {
         if (ReadKey(card, "SerialNumber") != systemName)
            continue;
         found = true;
         WriteSystem(writer, raid, card, system, systemName);
      }
   }
   return found;
}

void FindClasses(TIntegratedRaid& raid)
{
   raid.fCardClass = raid.fNamespace->GetClass("LSI_RAID_Card", {});
   raid.fSystemClass = raid.fNamespace->GetClass("LSI_RAID_ComputerSystem", {});
   raid.fDriveClass = raid.fNamespace->GetClass("LSI_RAID_DiskDrive", {});
}

void ReadInstances(TIntegratedRaid& raid)
{
   raid.fCards = EnumerateInstances(raid.fCardClass);
   raid.fSystems = EnumerateInstances(raid.fSystemClass);
   raid.fDrives = EnumerateInstances(raid.fDriveClass);
}

}  // namespace

void TWriter::WriteLSIIntegratedRaidReport()
{
   LogTrace("Entering TWriter::WriteLSIIntegratedRaidReport");
   TIntegratedRaid raid;
   raid.fNamespace = fNamespace;
   try {
      FindClasses(raid);
   } catch (const TQSXException& failure) {
      RethrowUnlessNotFound(failure);
      LogStatus("Exiting TWriter::WriteLSIIntegratedRaidReport, ex.fStatusCode.fStatusCode=",
                failure);
      LogTrace("Exiting TWriter::WriteLSIIntegratedRaidReport");
      return;
   }
   if (!raid.fCardClass) {
      LogTrace("Exiting TWriter::WriteLSIIntegratedRaidReport, raidCardClass == NULL");
      return;
   }
   std::string linkText;
   std::string linkTarget;
   if (fOutputFormat == "html")
      WriteLSIRawData(linkText, linkTarget);
   ReadInstances(raid);
   OpenReportPage(*this, fOutputDirectory, kLinkName);
   bool hasData = false;
   if (raid.fCards.empty()) {
      // It names the other report: meant.
      LogTrace("Exiting TWriter::WriteLSIReport, No Class Instances Found ******");
   } else {
      WriteReportTitle(kTitle, linkText, linkTarget);
      hasData = WriteSystems(*this, raid);
   }
   CloseReportPage(*this);
   WriteIndexEntry(kLinkName, kTitle, hasData);
   wroteLSIReport = true;
   LogTrace("Exiting TWriter::WriteLSIIntegratedRaidReport");
}
