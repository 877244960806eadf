#include <gmock/gmock.h>

#include "support/MakeStore.h"
#include "support/TRecordingWriter.h"

using testing::ElementsAre;

namespace {

const std::string kATAClasses = R"(
class OMC_ATADevice { [Key] string DeviceID; string VendorID; string ProductID; };
class OMC_IDESMARTErrorLog { [Key] string InstanceID; uint16 smartStatus;
   string selftestExecutionStatus; };
class OMC_IDESMARTAttrib { [Key] uint8 attribID; string attribName; uint16 flags; uint8 value;
   uint8 worst; uint8 threshold; string type; uint8 rawVal[]; };
class OMC_IDESMARTError { [Key] uint32 RecordID; string deviceState; uint8 errorReg;
   uint8 sectorCount; uint8 statusReg; uint8 LBAHigh; uint8 LBAMid; uint8 LBALow;
   datetime MessageTimestamp; };
[Association] class OMC_IDESMARTUseOfMessageLog
{ OMC_ATADevice REF A; OMC_IDESMARTErrorLog REF B; };
[Association] class OMC_IDESMARTElementStatisticalData
{ OMC_ATADevice REF A; OMC_IDESMARTAttrib REF B; };
[Association] class OMC_IDESMARTRecordInLog
{ OMC_IDESMARTErrorLog REF A; OMC_IDESMARTError REF B; };
)";

TRecordingWriter WriteReport(const std::string& mof, const std::string& mode = "default")
{
   TRecordingWriter writer;
   writer.Use(MakeNamespace(mof), mode);
   writer.WriteDriveHealthReport();
   return writer;
}

}  // namespace

TEST(DriveHealthReport, SortsDescendingAndTakesErrorsOfTheFirstLogOnly)
{
   const TRecordingWriter writer = WriteReport(kATAClasses + R"(
instance of OMC_ATADevice as $d { DeviceID = "ata0"; };
instance of OMC_IDESMARTErrorLog as $l1 { InstanceID = "1"; smartStatus = 1; };
instance of OMC_IDESMARTErrorLog as $l2 { InstanceID = "2"; smartStatus = 0; };
instance of OMC_IDESMARTUseOfMessageLog { A = $d; B = $l1; };
instance of OMC_IDESMARTUseOfMessageLog { A = $d; B = $l2; };
instance of OMC_IDESMARTAttrib as $a9 { attribID = 9; rawVal = { 1, 2 }; };
instance of OMC_IDESMARTAttrib as $a10 { attribID = 10; };
instance of OMC_IDESMARTElementStatisticalData { A = $d; B = $a9; };
instance of OMC_IDESMARTElementStatisticalData { A = $d; B = $a10; };
instance of OMC_IDESMARTError as $e9 { RecordID = 9; };
instance of OMC_IDESMARTError as $e10 { RecordID = 10; };
instance of OMC_IDESMARTError as $other { RecordID = 11; };
instance of OMC_IDESMARTRecordInLog { A = $l1; B = $e9; };
instance of OMC_IDESMARTRecordInLog { A = $l1; B = $e10; };
instance of OMC_IDESMARTRecordInLog { A = $l2; B = $other; };)");
   std::vector<std::string> firstCells;
   for (const std::string& line : writer.fLines)
      if (line[0] == '|')
         firstCells.push_back(line.substr(2, line.find_first_of(" |", 2) - 2));
   EXPECT_THAT(firstCells, ElementsAre("VendorID", "", "smartStatus", "1", "0", "attribID", "10",
                                       "9", "RecordID", "10", "RecordID", "9"));
   EXPECT_THAT(writer.fLines, testing::Contains(testing::EndsWith("|  | 1 2 |")));
   EXPECT_EQ(writer.fLines.back(), "WriteIndexEntry \"drive_health\", \"Drive Health\", true");
}

TEST(DriveHealthReport, DoesNotOpenThePageForAttributesAlone)
{
   const TRecordingWriter writer = WriteReport(kATAClasses + R"(
instance of OMC_ATADevice as $d { DeviceID = "ata0"; };
instance of OMC_IDESMARTAttrib as $a { attribID = 9; };
instance of OMC_IDESMARTElementStatisticalData { A = $d; B = $a; };)");
   EXPECT_THAT(writer.GetLines(
                  {"OpenReportFile", "WriteTableTitle", "WriteHeaderTextCell", "WriteIndexEntry"}),
               ElementsAre("WriteTableTitle \"SMART Attributes Data\", false, false",
                           "OpenReportFile \"drive_health\"",
                           "WriteHeaderTextCell \"No Supported IDE or Tape Drive found\n\", No "
                           "Supported IDE or Tape Drive\n",
                           "WriteIndexEntry \"drive_health\", \"Drive Health\", true"));
}

TEST(DriveHealthReport, ShowsTheTimeToCleanLastAndNeverWhetherToClean)
{
   const TRecordingWriter writer = WriteReport(R"(
class ZANSG_TapeDriveSensePageData { [Key] string DeviceID; boolean cleanNow; uint32 timeToClean;
   uint32 loads; };
instance of ZANSG_TapeDriveSensePageData { DeviceID = "t0"; cleanNow = TRUE; timeToClean = 5; };)");
   const std::string cell = "WritePropertyValueCell ZANSG_TapeDriveSensePageData.DeviceID=\"t0\", ";
   EXPECT_THAT(writer.GetLines({"WriteTableTitle", "BeginRowTable", "WritePropertyValueCell"}),
               ElementsAre("WriteTableTitle \"Tape Drive Sense Data\", false, false",
                           "BeginRowTable \"100%\", \"40%\", \"\"", cell + "DeviceID=t0",
                           cell + "loads=", cell + "timeToClean=5"));
}

TEST(DriveHealthReport, ShowsSenseDataInServiceModeAndPassesOverWhatIsNotDeclared)
{
   const std::string mof = R"(
class OMC_SCSISenseRawData { [Key] string InstanceID; uint8 rawData[]; };
instance of OMC_SCSISenseRawData { InstanceID = "s"; rawData = { 1, 255 }; };)";
   EXPECT_THAT(
      WriteReport(mof, "mek").fLines,
      ElementsAre("OpenReportFile \"drive_health\"", "BeginReportBody",
                  "WriteReportTitle \"Drive Health\", \"\", \"\"",
                  "WriteTableTitle \"SCSI Sense Data\", false, false",
                  "BeginRowTable \"100%\", \"10%\", \"\"", "BeginTableRow true",
                  "WriteDeclHeaderCell \"InstanceID\"",
                  "WritePropertyValueCell OMC_SCSISenseRawData.InstanceID=\"s\", InstanceID=s",
                  "EndTableRow", "BeginTableRow true", "WriteDeclHeaderCell \"rawData\"",
                  "WriteRawDataCell rawData=1, 255", "EndTableRow", "EndTable", "EndReportBody",
                  "CloseReportFile", "WriteIndexEntry \"drive_health\", \"Drive Health\", true"));
   EXPECT_EQ(WriteReport(mof).fLines.back(),
             "WriteIndexEntry \"drive_health\", \"Drive Health\", false");
}
