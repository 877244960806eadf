#include <gtest/gtest.h>

#include "writer/platform/ReportRun.h"

namespace {

const std::string kSensorClass = R"(
class CIM_NumericSensor { [Key, DisplayName("Sensor")] string ElementName; sint32 CurrentReading;
   sint32 UnitModifier; string BaseUnits;
   [ValueMap{"0","2"}, Values{"Unknown","OK"}] uint16 OperationalStatus[]; };
)";

std::string MakeSensor(const std::string& name, const std::string& reading,
                       const std::string& modifier, const std::string& status = "2")
{
   return "instance of CIM_NumericSensor { ElementName = \"" + name +
          "\"; CurrentReading = " + reading + "; UnitModifier = " + modifier +
          "; BaseUnits = \"V\"; OperationalStatus = {" + status + "}; };\n";
}

}  // namespace

TEST(Environmentals, ShowReadingsByTheirModifierInSinglePrecision)
{
   const auto run = RunReport(
      kSensorClass + MakeSensor("vcore", "235", "-1") + MakeSensor("Ambient <1>", "21", "0") +
         MakeSensor("fan", "12", "6") + MakeSensor("wide", "1234565", "-1") +
         MakeSensor("gone", "1", "0", "0") + MakeSensor("both", "-5", "-3", "2, 0"),
      &TWriter::WriteEnvironmentalsReport);
   EXPECT_EQ(R"(
OpenReportFile "Environmentals"
BeginReportBody
WriteReportTitle "Environmentals", "", ""
WriteTableTitle "Environmentals", false, false
WriteGrid
| Sensor | CurrentReading | BaseUnits |
| Ambient <1> | 21 | V |
| both | -0.005 | V |
| fan | 1.2e+07 | V |
| vcore | 23.5 | V |
| wide | 123456 | V |
CloseReportFile
WriteIndexEntry "Environmentals", "Environmentals", true)",
             run.GetText());
}

TEST(Environmentals, ClaimDataOfAPageWithoutSensors)
{
   EXPECT_EQ("\nCloseReportFile\nWriteIndexEntry \"Environmentals\", \"Environmentals\", true",
             RunReport("", &TWriter::WriteEnvironmentalsReport)
                .GetText({"WriteTableTitle", "WriteGrid", "EndReportBody", "CloseReportFile",
                          "WriteIndexEntry"}));
}

TEST(Environmentals, LeaveThePageOpenAtASensorWithoutReading)
{
   for (const auto& sensor : {MakeSensor("a", "NULL", "0"), MakeSensor("a", "1", "NULL")}) {
      const auto run = RunReport(kSensorClass + sensor, &TWriter::WriteEnvironmentalsReport);
      EXPECT_EQ(15, run.fStatus);
      EXPECT_EQ("WriteTableTitle \"Environmentals\", false, false", run.fWriter.fLines.back());
   }
}

TEST(Environmentals, OfServiceProcessorsTellTheNodeOfAMultiNodeSystem)
{
   const std::string sensorClass = "class ZANSG_SP_NumericSensor { [Key] string Id; };";
   const std::string sensor = "instance of ZANSG_SP_NumericSensor { Id = \"s\"; };";
   const std::string multiNode =
      "class ZANSG_ComputerSystem { string MachineType; };"
      "instance of ZANSG_ComputerSystem { MachineType = \"5310\"; };";
   const auto countCells = [](const TReportRun& run) {
      return run.fWriter.GetLines({"WriteValueCell", "WriteNumericSensorCell"}).size();
   };
   EXPECT_EQ(3u, countCells(RunReport(sensorClass + sensor, &TWriter::WriteEnvironmentals)));
   EXPECT_EQ(
      4u, countCells(RunReport(sensorClass + sensor + multiNode, &TWriter::WriteEnvironmentals)));
   for (const auto& nothing : {std::string(), sensorClass})
      EXPECT_EQ("\nWriteIndexEntry \"environmentals\", \"Environmentals\", false",
                RunReport(nothing, &TWriter::WriteEnvironmentals).GetText());
}
