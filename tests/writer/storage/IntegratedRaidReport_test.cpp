#include <gmock/gmock.h>

#include "support/MakeStore.h"
#include "support/TRecordingWriter.h"

using testing::ElementsAre;

namespace {

const std::string kModel = R"(
class LSI_RAID_Card { [Key] string SerialNumber; string Model; };
class LSI_RAID_ComputerSystem { [Key] string Name; string ElementName; };
class LSI_RAID_DiskDrive { [Key] string DeviceID; string Name; };
class LSI_RAID_ControllerBIOSSoftwareIdentity { [Key] string Id; string VersionString; };
class LSI_RAID_DiskDrivePhysicalPackage { [Key] string Tag; string VendorEquipmentType; };
class LSI_RAID_ConcreteStoragePool { [Key] string InstanceID; };
class LSI_RAID_StorageVolume { [Key] string DeviceID; };
class LSI_RAID_StorageExtent { [Key] string DeviceID; };
class LSI_RAID_ConcreteJob { [Key] string Id; uint16 PercentComplete; };
[Association] class LSI_RAID_SystemDeviceDiskDrive
{ LSI_RAID_ComputerSystem REF A; LSI_RAID_DiskDrive REF B; };
[Association] class LSI_RAID_VolumeAllocatedFromConcreteStoragePool
{ LSI_RAID_ConcreteStoragePool REF Antecedent; LSI_RAID_StorageVolume REF Dependent; };
[Association] class LSI_RAID_ConcreteComponentOfConcretePool
{ LSI_RAID_ConcreteStoragePool REF A; LSI_RAID_StorageExtent REF B; };
)";

const std::string kInstances = R"(
instance of LSI_RAID_Card { SerialNumber = "S1"; };
instance of LSI_RAID_Card { SerialNumber = "S12"; };
instance of LSI_RAID_ComputerSystem as $s { Name = "S1"; ElementName = "Mirror <1>"; };
instance of LSI_RAID_DiskDrive as $d { DeviceID = "D0"; };
instance of LSI_RAID_SystemDeviceDiskDrive { A = $s; B = $d; };
instance of LSI_RAID_ConcreteStoragePool as $p { InstanceID = "P"; };
instance of LSI_RAID_StorageVolume as $v { DeviceID = "V0 of S1"; };
instance of LSI_RAID_VolumeAllocatedFromConcreteStoragePool { Antecedent = $p; Dependent = $v; };
instance of LSI_RAID_VolumeAllocatedFromConcreteStoragePool { Antecedent = $p; Dependent = NULL; };
instance of LSI_RAID_StorageExtent as $e { DeviceID = "D0"; };
instance of LSI_RAID_StorageExtent as $e2 { DeviceID = "D01"; };
instance of LSI_RAID_ConcreteComponentOfConcretePool { A = $p; B = $e; };
instance of LSI_RAID_ConcreteComponentOfConcretePool { A = $p; B = $e2; };
)";

TRecordingWriter WriteReport(const std::string& mof)
{
   TRecordingWriter writer;
   writer.Use(MakeNamespace(mof));
   writer.WriteLSIIntegratedRaidReport();
   return writer;
}

}  // namespace

TEST(IntegratedRaidReport, JoinsCardsSystemsDrivesAndVolumesByTheirKeys)
{
   wroteLSIReport = false;
   const TRecordingWriter writer = WriteReport(kModel + kInstances);
   EXPECT_TRUE(wroteLSIReport);
   const std::string drive = "WriteValueCell LSI_RAID_DiskDrive.DeviceID=\"D0\", ";
   const std::string volume = "WriteValueCell LSI_RAID_StorageVolume.DeviceID=\"V0 of S1\", ";
   EXPECT_THAT(
      writer.GetLines({"WriteReportTitle", "WriteTableTitle", "BeginRowTable", "WriteValueCell",
                       "EndTable", "WriteIndexEntry"}),
      ElementsAre("WriteReportTitle \"LSI Controller\", \"\", \"\"",
                  "WriteTableTitle \"Mirror &lt;1>\", false, false",
                  "BeginRowTable \"50%\", \"40%\", \"Mirror &lt;1>\"",
                  "WriteValueCell LSI_RAID_Card.SerialNumber=\"S1\", Model",
                  // The row of the firmware falls away: nothing declares its label.
                  "WriteValueCell LSI_RAID_ComputerSystem.Name=\"S1\", VersionString", "EndTable",
                  "WriteTableTitle \"Physical drive information\", false, false",
                  "BeginRowTable \"50%\", \"40%\", \"Mirror &lt;1>physical drive information\"",
                  drive + "Name", drive + "OperationalStatus", drive + "MaxMediaSize",
                  drive + "VendorEquipmentType", drive + "Model", "EndTable",
                  "WriteTableTitle \"Logical drive information\", false, false",
                  "BeginRowTable \"50%\", \"40%\", \"Mirror &lt;1>logical drive information\"",
                  volume + "ElementName", volume + "OperationalStatus", volume + "RAIDLevel",
                  drive + "Name",
                  "WriteValueCell LSI_RAID_StorageExtent.DeviceID=\"D0\", ExtentStatus",
                  volume + "PercentComplete", "EndTable",
                  "WriteIndexEntry \"lsi\", \"LSI Controller\", true"));
   // The equipment type stands under another label.
   EXPECT_THAT(
      writer.fLines,
      testing::Contains("WriteHeaderCell \"LSI_RAID_DiskDrivePhysicalPackage\", DeviceID"));
}
