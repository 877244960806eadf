#include <gmock/gmock.h>

#include "support/MakeStore.h"
#include "support/TRecordingWriter.h"
#include "writer/StoreWalk.h"

using testing::Contains;
using testing::ElementsAre;
using testing::Not;

namespace {

const std::string kClasses = R"(
class ZANSG_cvSCSIProtocolController { [Key] uint32 ControllerNum; string ControllerType;
   string SerialNum; string VPD; };
class ZANSG_cvLogicalDisk { [Key] uint32 LogicalDriveNum; string LogicalDriveName; };
class ZANSG_cvDiskGroup { [Key] string Id; string Array; string LogicalDrive; };
class ZANSG_cvDiskDrive { [Key] uint32 DeviceNumber; string State; };
class ZANSG_cvSasDrive : ZANSG_cvDiskDrive { };
class ZANSG_BadStripeData { [Key] string Id; uint32 NumBadStripes; };
[Association] class ZANSG_cvProtocolControllerForUnit
{ ZANSG_cvSCSIProtocolController REF A; ZANSG_cvLogicalDisk REF B; };
[Association] class ZANSG_cvStripeOrderForController
{ ZANSG_cvSCSIProtocolController REF A; ZANSG_cvDiskGroup REF B; };
[Association] class ZANSG_cvProtocolControllerForPhysicalDisk
{ ZANSG_cvSCSIProtocolController REF A; ZANSG_cvDiskDrive REF B; };
[Association] class ZANSG_ElementBadStripeData
{ ZANSG_cvLogicalDisk REF A; ZANSG_BadStripeData REF B; };
)";

std::string MakeController(const std::string& type, const std::string& rest = "")
{
   return "instance of ZANSG_cvSCSIProtocolController as $c { ControllerNum = 1; ControllerType = "
          "\"" +
          type + "\"; };\n" + rest;
}

std::string MakeDrive(int number, const std::string& badStripes)
{
   const std::string alias = "$l" + std::to_string(number);
   std::string mof = "instance of ZANSG_cvLogicalDisk as " + alias +
                     " { LogicalDriveNum = " + std::to_string(number) +
                     "; LogicalDriveName = \"data <" + std::to_string(number) + ">\"; };\n" +
                     "instance of ZANSG_cvProtocolControllerForUnit { A = $c; B = " + alias +
                     "; };\n";
   if (!badStripes.empty())
      mof += "instance of ZANSG_BadStripeData as $s" + std::to_string(number) + " { Id = \"" +
             std::to_string(number) + "\"; NumBadStripes = " + badStripes +
             "; };\ninstance of ZANSG_ElementBadStripeData { A = " + alias + "; B = $s" +
             std::to_string(number) + "; };\n";
   return mof;
}

const std::string kTwoGroups = R"(
instance of ZANSG_cvDiskGroup as $g0 { Id = "0"; Array = "A"; LogicalDrive = "stale"; };
instance of ZANSG_cvDiskGroup as $g1 { Id = "1"; Array = "B"; LogicalDrive = "stale"; };
instance of ZANSG_cvStripeOrderForController { A = $c; B = $g0; };
instance of ZANSG_cvStripeOrderForController { A = $c; B = $g1; };
)";

/// The report over the classes and these instances.
TRecordingWriter WriteReport(const boost::shared_ptr<ICIMNamespace>& cimNamespace,
                             const std::string& mode = "default")
{
   TRecordingWriter writer;
   writer.Use(cimNamespace, mode);
   writer.WriteCorvaneReport();
   return writer;
}

const std::vector<std::string> kTables = {"WriteTableTitle", "BeginRowTable", "WriteValueCell",
                                          "EndTable"};

}  // namespace

TEST(CorvaneReport, LeavesOutNullRowsButNoVersion)
{
   const TRecordingWriter writer = WriteReport(MakeNamespace(
      kClasses +
      "instance of ZANSG_cvSCSIProtocolController { ControllerNum = 1; VPD = \" \"; };"));
   const std::string cell = "WriteValueCell ZANSG_cvSCSIProtocolController.ControllerNum=1, ";
   EXPECT_THAT(writer.GetLines(kTables),
               ElementsAre("WriteTableTitle \"Controller 1\", false, false",
                           "BeginRowTable \"60%\", \"40%\", \"Controller 1\"", cell + "Version",
                           cell + "Version", cell + "Version", cell + "VPD", "EndTable"));
}

TEST(CorvaneReport, EndsTheTablesOfASectionOnce)
{
   const TRecordingWriter writer = WriteReport(MakeNamespace(
      kClasses + MakeController("Corvane-6M", MakeDrive(0, "0") + MakeDrive(1, "3") + R"(
instance of ZANSG_cvSasDrive as $d { DeviceNumber = 9; State = ""; };
instance of ZANSG_cvProtocolControllerForPhysicalDisk { A = $c; B = $d; };)")));
   const std::string caption = "\"60%\", \"40%\", \"Controller 1 logical drive information\"";
   std::vector<std::string> lines = writer.GetLines(
      {"WriteTableTitle", "BeginRowTable", "WriteHeaderCell", "EndTable", "EndReportBody"});
   // Behind the controller's own table.
   lines.erase(lines.begin(), std::find(lines.begin(), lines.end(), "EndTable"));
   EXPECT_THAT(
      lines,
      ElementsAre(
         "EndTable", "WriteTableTitle \"Logical Drive Information\", false, false",
         "BeginRowTable " + caption, "WriteHeaderCell \"ZANSG_cvLogicalDisk\", LogicalDriveNum",
         "WriteHeaderCell \"ZANSG_cvLogicalDisk\", LogicalDriveName", "BeginRowTable " + caption,
         "WriteHeaderCell \"ZANSG_cvLogicalDisk\", LogicalDriveNum",
         "WriteHeaderCell \"ZANSG_cvLogicalDisk\", LogicalDriveName",
         // Only where there are bad stripes.
         "WriteHeaderCell \"ZANSG_cvLogicalDisk\", NumBadStripes", "EndTable",
         "WriteTableTitle \"Physical Device Information\", false, false",
         "BeginRowTable \"60%\", \"40%\", \"Controller 1 physical drive information\"",
         // The labels are those of the device's own class.
         "WriteHeaderCell \"ZANSG_cvSasDrive\", DeviceNumber", "EndTable", "EndReportBody"));
}

TEST(CorvaneReport, PairsStripeOrdersWithLogicalDrivesFromTypeSeven)
{
   const auto cimNamespace =
      MakeNamespace(kClasses + MakeController("Corvane 7t", MakeDrive(5, "") + kTwoGroups));
   const TRecordingWriter writer = WriteReport(cimNamespace);
   EXPECT_THAT(writer.fLines, Contains("WriteValueCell ZANSG_cvDiskGroup.Id=\"0\", LogicalDrive"));
   EXPECT_THAT(writer.fLines, Not(Contains("WriteValueCell ZANSG_cvDiskGroup.Id=\"0\", Array")));
   const TInstances groups = FindInstances(cimNamespace, "ZANSG_cvDiskGroup");
   ASSERT_EQ(groups.size(), 2u);
   // The encoded name goes into the store; a group past the last drive gets one blank.
   EXPECT_EQ(groups[0]->GetProperty("LogicalDrive", {})->GetValueString(), "data &lt;5> 5");
   EXPECT_EQ(groups[1]->GetProperty("LogicalDrive", {})->GetValueString(), " ");
}

TEST(CorvaneReport, LeavesTheStoreAloneBelowTypeSevenAndWithoutDrives)
{
   for (const std::string& controller :
        {MakeController("Corvane-6M", MakeDrive(5, "") + kTwoGroups),
         MakeController("Corvane 8i", kTwoGroups)}) {
      const auto cimNamespace = MakeNamespace(kClasses + controller);
      const TRecordingWriter writer = WriteReport(cimNamespace);
      const TInstances groups = FindInstances(cimNamespace, "ZANSG_cvDiskGroup");
      EXPECT_EQ(groups[0]->GetProperty("LogicalDrive", {})->GetValueString(), "stale");
      EXPECT_THAT(writer.fLines,
                  Not(Contains("WriteValueCell ZANSG_cvDiskGroup.Id=\"0\", LogicalDrive")));
   }
}

TEST(CorvaneReport, LinksToRawDataAndShowsDataRatesInServiceModeOnly)
{
   const auto cimNamespace = MakeNamespace(kClasses + MakeController("Corvane 8i") + R"(
class ZANSG_cvSCSISubStatData { [Key] uint32 ControllerNum; uint32 Channel; uint32 ScsiId;
   string Params; string Req_Off; string Max_Txer_P; string Cur_Txer_P; };
instance of ZANSG_cvSCSISubStatData { ControllerNum = 1; Max_Txer_P = "320"; };)");
   EXPECT_THAT(
      WriteReport(cimNamespace, "mek")
         .GetLines({"WriteRawDataLink", "WriteReportTitle", "WriteTableTitle", "WriteIndexEntry"}),
      ElementsAre("WriteRawDataLink",
                  "WriteReportTitle \"Corvane Information\", \" - [Show Rawdata Report]\", "
                  "\"cv_rawData\"",
                  "WriteTableTitle \"Controller 1\", false, false",
                  "WriteTableTitle \"Operating Data Rate of Disk\", false, false",
                  "WriteIndexEntry \"cv\", \"Corvane\", true"));
   EXPECT_THAT(
      WriteReport(cimNamespace).GetLines({"WriteRawDataLink", "WriteReportTitle", "WriteGrid"}),
      ElementsAre("WriteReportTitle \"Corvane Information\", \"\", \"\""));
}
