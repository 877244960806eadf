#include <gmock/gmock.h>

#include "support/MakeStore.h"
#include "support/TRecordingWriter.h"

using testing::Contains;
using testing::ElementsAre;
using testing::Not;

namespace {

const std::string kClasses = R"(
class ZANSG_LSISCSIProtocolController { [Key] uint32 ControllerNum; uint8 LSIType;
   uint32 VolumeID; string CurrentOperation; string VolumeStatus; uint16 PercentComplete; };
class ZANSG_LSILogicalDisk { [Key] uint32 VolumeNumber; };
class ZANSG_LSIMirror : ZANSG_LSILogicalDisk { };
class ZANSG_LSIDiskDrive { [Key] uint32 TargetID; uint32 Bus; };
class ZANSG_LSIChannelDrive : ZANSG_LSIDiskDrive { uint32 ChannelNum; };
[Association] class ZANSG_LSIProtocolControllerForUnit
{ ZANSG_LSISCSIProtocolController REF A; ZANSG_LSILogicalDisk REF B; };
[Association] class ZANSG_LSIProtocolControllerForPhysicalDisk
{ ZANSG_LSISCSIProtocolController REF A; ZANSG_LSIDiskDrive REF B; };
)";

std::string MakeController(const std::string& settings)
{
   return "instance of ZANSG_LSISCSIProtocolController as $c { ControllerNum = 0; " + settings +
          " };\n";
}

std::string MakeDrive(const std::string& cimClass, int target, int bus)
{
   const std::string number = std::to_string(target);
   return "instance of " + cimClass + " as $d" + number + " { TargetID = " + number +
          "; Bus = " + std::to_string(bus) + "; };\n" +
          "instance of ZANSG_LSIProtocolControllerForPhysicalDisk { A = $c; B = $d" + number +
          "; };\n";
}

TRecordingWriter WriteReport(const std::string& mof)
{
   TRecordingWriter writer;
   writer.Use(MakeNamespace(kClasses + mof));
   writer.WriteLSIReport();
   return writer;
}

std::vector<std::string> GetDriveLines(const TRecordingWriter& writer)
{
   std::vector<std::string> lines =
      writer.GetLines({"WriteTableTitle", "BeginRowTable", "EndTable"});
   lines.erase(lines.begin(),
               std::find(lines.begin(), lines.end(),
                         "WriteTableTitle \"Physical device information\", false, false") +
                  1);
   return lines;
}

const std::string kDriveTable =
   "BeginRowTable \"50%\", \"40%\", \"Controller #0 Configurationphysical drive information\"";

}  // namespace

TEST(LSIReport, HeadsTheFirstDriveOfTypeZeroAndEachChangeOfBusInsideTheTable)
{
   const std::string drives =
      MakeDrive("ZANSG_LSIChannelDrive", 1, 0) + MakeDrive("ZANSG_LSIChannelDrive", 2, 4) +
      // Without the marker property its bus is not looked at.
      MakeDrive("ZANSG_LSIDiskDrive", 3, 9) + MakeDrive("ZANSG_LSIChannelDrive", 4, 4);
   const std::string bus0 = "WriteTableTitle \"Channel #: 0\", true, false";
   const std::string bus4 = "WriteTableTitle \"Channel #: 4\", true, false";
   EXPECT_THAT(GetDriveLines(WriteReport(MakeController("LSIType = 0;") + drives)),
               ElementsAre(bus0, kDriveTable, "EndTable", kDriveTable, bus4, "EndTable",
                           kDriveTable, "EndTable", kDriveTable, "EndTable"));
   EXPECT_THAT(GetDriveLines(WriteReport(MakeController("LSIType = 1;") + drives)),
               ElementsAre(kDriveTable, "EndTable", kDriveTable, bus4, "EndTable", kDriveTable,
                           "EndTable", kDriveTable, "EndTable"));
}

TEST(LSIReport, ShowsProgressUnlessTheOperationSaysNone)
{
   const std::string cell = "WriteValueCell ZANSG_LSISCSIProtocolController.ControllerNum=0, ";
   const std::string state = "VolumeStatus = \"Okay\"; VolumeID = 2; PercentComplete = 7;";
   const auto busy =
      WriteReport(MakeController("LSIType = 3; CurrentOperation = \"Resync\"; " + state));
   EXPECT_THAT(busy.fLines, Contains(cell + "PercentComplete"));
   EXPECT_THAT(busy.fLines, Contains(cell + "VolumeID"));
   const auto idle =
      WriteReport(MakeController("LSIType = 2; CurrentOperation = \"(None)\"; " + state));
   EXPECT_THAT(idle.fLines, Contains(cell + "VolumeStatus"));
   EXPECT_THAT(idle.fLines, Not(Contains(cell + "PercentComplete")));
   EXPECT_THAT(idle.fLines, Not(Contains(cell + "VolumeID")));
   const auto silent = WriteReport(MakeController("LSIType = 2; " + state));
   EXPECT_THAT(silent.fLines, Not(Contains(cell + "VolumeStatus")));
}

TEST(LSIReport, WritesEveryRowOfALogicalDriveUnderTheClassLookedUp)
{
   const TRecordingWriter writer = WriteReport(MakeController("LSIType = NULL;") + R"(
instance of ZANSG_LSIMirror as $l { VolumeNumber = 1; };
instance of ZANSG_LSIProtocolControllerForUnit { A = $c; B = $l; };)");
   std::vector<std::string> labels = writer.GetLines({"WriteHeaderCell"});
   labels.erase(labels.begin(), labels.begin() + 5);  // the configuration
   const std::string label = "WriteHeaderCell \"ZANSG_LSILogicalDisk\", ";
   EXPECT_THAT(labels,
               ElementsAre(label + "VolumeNumber", label + "VolumeStatus", label + "RAIDLevel",
                           label + "BlockSize", label + "PhysicalHardDisks"));
}

TEST(LSIReport, RepeatsAllEnclosuresAtEachControllerOfTypeThree)
{
   const TRecordingWriter writer = WriteReport(R"(
class ZANSG_LSIEnclosureInformation { [Key] uint32 EnclosureNum; };
instance of ZANSG_LSIEnclosureInformation { EnclosureNum = 2; };
instance of ZANSG_LSISCSIProtocolController { ControllerNum = 0; LSIType = 3; };
instance of ZANSG_LSISCSIProtocolController { ControllerNum = 1; LSIType = 2; };
instance of ZANSG_LSISCSIProtocolController { ControllerNum = 2; LSIType = 3; };)");
   std::string controllers;
   for (const std::string& line : writer.GetLines({"BeginRowTable"}))
      controllers += line[line.find('#') + 1];
   EXPECT_EQ(controllers, "00122");
}

TEST(LSIIDEReport, WritesVersionsAndLabelsOfTheDrivesOwnClass)
{
   TRecordingWriter writer;
   writer.Use(MakeNamespace(R"(
class ZANSG_LSIIDEProtocolController { [Key] uint32 ControllerNum; };
class ZANSG_LSIIDEDiskDrive { [Key] uint32 Bus; };
class ZANSG_LSIIDEHotSpare : ZANSG_LSIIDEDiskDrive { };
[Association] class ZANSG_LSIIDEProtocolControllerForPhysicalDisk
{ ZANSG_LSIIDEProtocolController REF A; ZANSG_LSIIDEDiskDrive REF B; };
instance of ZANSG_LSIIDEProtocolController as $c { ControllerNum = 0; };
instance of ZANSG_LSIIDEHotSpare as $d { Bus = 1; };
instance of ZANSG_LSIIDEProtocolControllerForPhysicalDisk { A = $c; B = $d; };)"));
   writer.WriteLSIIDEReport();
   const std::string caption =
      "BeginRowTable \"50%\", \"40%\", \"Controller #0 Configuration physical drive information\"";
   std::vector<std::string> lines =
      writer.GetLines({"WriteTableTitle", "BeginRowTable", "WriteHeaderCell"});
   lines.erase(lines.begin(), lines.begin() + 5);  // the controller
   EXPECT_THAT(lines, ElementsAre("WriteTableTitle \"Physical drive information\", false, false",
                                  "WriteTableTitle \"Channel #: 1\", true, false", caption,
                                  "WriteHeaderCell \"ZANSG_LSIIDEHotSpare\", Bus",
                                  "WriteHeaderCell \"ZANSG_LSIIDEHotSpare\", Version"));
}
