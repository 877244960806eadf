#include <gmock/gmock.h>

#include "support/MakeStore.h"
#include "support/TRecordingWriter.h"

using testing::ElementsAre;

namespace {

const std::string kClasses = R"(
class LSIESG_Device { };
class LSIESG_MegaRAIDHBA { [Key] string Name; };
class LSIESG_PhysicalCard { [Key] string Tag; };
class LSIESG_ControllerBIOSIdentity { [Key] string ComputerSystem_Name; };
class LSIESG_ControllerFirmwareIdentity { [Key] string ComputerSystem_Name; };
class LSIESG_DiskDrive : LSIESG_Device { [Key] string DeviceID; };
class LSIESG_DriveFirmwareIdentity { [Key] string DiskDrive_DeviceID; };
class LSIESG_StorageVolume { [Key] string DeviceID; string SystemName;
   string StoragePool_InstanceID; };
class LSIESG_StorageVolumeSetting { [Key] string InstanceID; };
class LSIESG_StorageRedundancySet { [Key] string InstanceID; };
class LSIESG_DiskExtent { [Key] string DeviceID; string StoragePool_InstanceID; };
class LSIESG_ConcreteDependency { [Key] string InstanceID; };
class LSIESG_DAPort : LSIESG_Device { [Key] string DeviceID; string SystemName; };
class LSIESG_StoragePool { [Key] string InstanceID; };
[Association] class LSIESG_SystemDevice { LSIESG_MegaRAIDHBA REF A; LSIESG_Device REF B; };
[Association] class LSIESG_HostedStoragePool { LSIESG_MegaRAIDHBA REF A; LSIESG_StoragePool REF B; };
[Association] class LSIESG_MemberOfCollection
{ LSIESG_StorageRedundancySet REF A; LSIESG_DiskExtent REF B; };
instance of LSIESG_MegaRAIDHBA as $hba { Name = "hba"; };
instance of LSIESG_PhysicalCard { Tag = "card 7"; };
)";

std::string MakePort(const std::string& systemName)
{
   return "instance of LSIESG_DAPort as $port { DeviceID = \"p\"; SystemName = \"" + systemName +
          "\"; };\ninstance of LSIESG_SystemDevice { A = $hba; B = $port; };\n";
}

const std::string kPool = R"(
instance of LSIESG_StoragePool as $pool { InstanceID = "P1"; };
instance of LSIESG_HostedStoragePool { A = $hba; B = $pool; };
)";

const std::string kVolume = R"(
instance of LSIESG_StorageVolume { DeviceID = "0"; SystemName = "7";
   StoragePool_InstanceID = "in P1"; };
)";

std::string MakeSetting(const std::string& id)
{
   return "instance of LSIESG_StorageVolumeSetting { InstanceID = \"" + id + "\"; };\n";
}

std::vector<std::string> WriteReport(const std::string& mof)
{
   TRecordingWriter writer;
   writer.Use(MakeNamespace(kClasses + mof));
   writer.WriteLSIMegaRaidReport();
   return writer.fLines;
}

/// The tables behind the controller's own.
std::vector<std::string> GetSections(const std::string& mof)
{
   std::vector<std::string> lines = WriteReport(mof);
   lines.erase(lines.begin(), std::find(lines.begin(), lines.end(), "EndTable") + 1);
   lines.erase(std::find(lines.begin(), lines.end(), "EndReportBody"), lines.end());
   return lines;
}

}  // namespace

TEST(MegaRaidReport, WritesNothingOfAPortWithoutItsCard)
{
   EXPECT_THAT(WriteReport(MakePort("8") + kPool + kVolume + MakeSetting("7_0")),
               ElementsAre("OpenReportFile \"lsi_mr\"", "BeginReportBody",
                           "WriteReportTitle \"MegaRaid Information\", \"\", \"\"", "EndReportBody",
                           "CloseReportFile"));
}

TEST(MegaRaidReport, ShowsTheLevelByTheSettingsNameAndTheExtentsOfThePool)
{
   const std::string mof = MakePort("7") + kPool + kVolume + MakeSetting("x7_0y") + R"(
instance of LSIESG_StorageRedundancySet as $set { InstanceID = "s"; };
instance of LSIESG_DiskExtent as $near { DeviceID = "near"; StoragePool_InstanceID = "P1"; };
instance of LSIESG_DiskExtent as $far { DeviceID = "far"; StoragePool_InstanceID = "P2"; };
instance of LSIESG_MemberOfCollection { A = $set; B = $near; };
instance of LSIESG_MemberOfCollection { A = $set; B = $far; };)";
   TRecordingWriter writer;
   writer.Use(MakeNamespace(kClasses + mof));
   writer.WriteLSIMegaRaidReport();
   std::vector<std::string> cells = writer.GetLines({"WriteHeaderCell", "WriteValueCell"});
   cells.erase(cells.begin(), cells.begin() + 2);  // the card
   const std::string volume = "WriteValueCell LSIESG_StorageVolume.DeviceID=\"0\", ";
   const std::string extent = "WriteValueCell LSIESG_DiskExtent.DeviceID=\"near\", ";
   EXPECT_THAT(
      cells,
      ElementsAre("WriteHeaderCell \"LSIESG_StorageVolume\", ElementName", volume + "ElementName",
                  "WriteHeaderCell \"LSIESG_StorageVolume\", OperationalStatus",
                  volume + "OperationalStatus",
                  "WriteHeaderCell \"LSIESG_StorageVolumeSetting\", RAIDLevel",
                  "WriteValueCell LSIESG_StorageVolumeSetting.InstanceID=\"x7_0y\", ElementName",
                  "WriteHeaderCell \"LSIESG_DiskExtent\", Name", extent + "DeviceID",
                  "WriteHeaderCell \"LSIESG_DiskExtent\", ExtentStatus", extent + "ExtentStatus"));
}

TEST(MegaRaidReport, StopsAtAPoolWithoutVolumeOnlyWhereThereAreSettings)
{
   EXPECT_THAT(GetSections(MakePort("7") + kPool), testing::IsEmpty());
   EXPECT_THAT(GetSections(MakePort("7") + kPool + kVolume + MakeSetting("7_1")),
               testing::IsEmpty());
   try {
      WriteReport(MakePort("7") + kPool + MakeSetting("7_0"));
      FAIL() << "the empty handle was not noticed";
   } catch (const TQSXException& failure) {
      EXPECT_EQ(failure.fStatusCode.fStatusCode, 1);
   }
}

TEST(MegaRaidReport, LeavesTheRowOfADriveWithoutExtentsOpen)
{
   const std::string drive = MakePort("7") + R"(
instance of LSIESG_DiskDrive as $d { DeviceID = "252:1"; };
instance of LSIESG_SystemDevice { A = $hba; B = $d; };)";
   const auto getRows = [](const std::vector<std::string>& sections) {
      std::string rows;
      for (const std::string& line : sections)
         rows += line == "BeginTableRow true" ? "(" : line == "EndTableRow" ? ")" : "";
      return rows;
   };
   EXPECT_EQ(getRows(GetSections(drive)), "()()()");
   EXPECT_EQ(getRows(GetSections(drive + "instance of LSIESG_DriveFirmwareIdentity "
                                         "{ DiskDrive_DeviceID = \"of 252:1\"; };")),
             "()()(()())");
   // Each extent closes a row and writes one; only the first row was begun.
   EXPECT_EQ(getRows(GetSections(drive + R"(
instance of LSIESG_DiskExtent { DeviceID = "0 of 252:1"; };
instance of LSIESG_DiskExtent { DeviceID = "1 of 252:1"; };)")),
             "()()()())())");
}
