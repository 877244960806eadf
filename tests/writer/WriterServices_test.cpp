#include <gmock/gmock.h>

#include "support/MakeStore.h"
#include "support/TRecordingWriter.h"

using TReportClass = TReportParameters::TReportClass;
using testing::ElementsAre;

namespace {

/// What ClassFilter writes of all instances of a class; "false" where it leaves the class alone.
std::vector<std::string> Filter(const std::string& cimClass, const std::string& mof)
{
   TRecordingWriter writer;
   writer.Use(MakeNamespace(mof));
   std::vector<TReportClass> classes(1);
   classes[0].SetClass(cimClass);
   classes[0].SetTitle("T");
   classes[0].SetProperties({{"Name", "100%", "", "", ""}});
   bool wroteTable = false;
   const bool filtered =
      writer.ClassFilter(classes.begin(), writer.GetInstances(classes[0]), wroteTable);
   EXPECT_EQ(filtered, wroteTable);
   return filtered ? writer.GetLines({"WriteTableTitle", "|"}) : std::vector<std::string>{"false"};
}

constexpr const char* kTitle = "WriteTableTitle \"T\", false, false";

std::string ReadSensor(const std::string& reading, const std::string& modifier)
{
   TRecordingWriter writer;
   writer.Use(MakeNamespace(
      "class S { [Key] uint32 Id; sint32 CurrentReading; sint8 UnitModifier; string Text; };"
      "instance of S { Id = 0; CurrentReading = " +
      reading + "; UnitModifier = " + modifier + "; };"));
   TReportClass sensors;
   sensors.SetClass("S");
   return writer.GetNumericSensorValue(writer.GetInstances(sensors).at(0), false);
}

bool IsLinux(const std::string& mof)
{
   TRecordingWriter writer;
   writer.Use(MakeNamespace(mof));
   return writer.IsLinux();
}

}  // namespace

TEST(WriterServices, ScalesSensorReadings)
{
   EXPECT_EQ("1234", ReadSensor("1234", "0"));
   EXPECT_EQ("-1200", ReadSensor("-12", "2"));
   EXPECT_EQ("1.25", ReadSensor("125", "-2"));
   EXPECT_EQ("N/A", ReadSensor("NULL", "0"));
}

TEST(WriterServices, KnowsLinuxByTheOnlyOperatingSystem)
{
   const std::string os = "class ZANSG_OperatingSystem { [Key] string Name; uint16 OSType; };";
   EXPECT_TRUE(IsLinux(os + "instance of ZANSG_OperatingSystem { Name = \"a\"; OSType = 36; };"));
   EXPECT_FALSE(IsLinux(os + "instance of ZANSG_OperatingSystem { Name = \"a\"; OSType = 67; };"));
   EXPECT_FALSE(IsLinux(os + "instance of ZANSG_OperatingSystem { Name = \"a\"; OSType = 36; };"
                             "instance of ZANSG_OperatingSystem { Name = \"b\"; OSType = 36; };"));
   EXPECT_FALSE(
      IsLinux("class ZANSG_OperatingSystem { [Key] string Name; };"
              "instance of ZANSG_OperatingSystem { Name = \"a\"; };"));
   EXPECT_FALSE(IsLinux(""));
}

TEST(WriterServices, LeavesDevicesToTheTablesThatShowThem)
{
   const std::string mof = R"(
      class ZANSG_LogicalDevice { [Key] string Name; string DeviceClass; string ElementName; };
      instance of ZANSG_LogicalDevice { Name = "c"; DeviceClass = "a cpu"; };
      instance of ZANSG_LogicalDevice { Name = "s"; DeviceClass = "system"; ElementName = "System"; };
      instance of ZANSG_LogicalDevice { Name = "t"; DeviceClass = "system"; ElementName = "timer"; };
      instance of ZANSG_LogicalDevice { Name = "u"; DeviceClass = "CPU"; };
      instance of ZANSG_LogicalDevice { Name = "v"; };)";
   EXPECT_THAT(
      Filter("ZANSG_LogicalDevice", mof),
      ElementsAre(kTitle, "| Name |", "| t (raw: N/A) |", "| u (raw: N/A) |", "| v (raw: N/A) |"));
   EXPECT_THAT(Filter("ZANSG_LogicalDevice", "class ZANSG_LogicalDevice { [Key] string Name; };"),
               ElementsAre(kTitle))
      << "written even when nothing is left";
}

TEST(WriterServices, FiltersTheOtherClasses)
{
   const std::string vpd =
      "class ZANSG_DiagnosticVPD { [Key] string Name; string BuildNumber; };"
      "instance of ZANSG_DiagnosticVPD { Name = \"a\"; };";
   EXPECT_THAT(Filter("ZANSG_DiagnosticVPD", vpd), ElementsAre("false"));
   EXPECT_EQ(4u, Filter("ZANSG_DiagnosticVPD",
                        vpd + "instance of ZANSG_DiagnosticVPD { Name = \"b\"; BuildNumber = "
                              "\"1\"; };")
                    .size());
   EXPECT_THAT(Filter("ZANSG_MemoryDiagLogRecord", R"(
      class ZANSG_MemoryDiagLogRecord { [Key] string Name; uint32 MessageTimestamp; };
      instance of ZANSG_MemoryDiagLogRecord { Name = "late"; MessageTimestamp = 10; };
      instance of ZANSG_MemoryDiagLogRecord { Name = "early"; MessageTimestamp = 9; };)"),
               ElementsAre(kTitle, "| Name |", "| early (raw: N/A) |", "| late (raw: N/A) |"));
   for (const char* name : {"ZANSG_SPDData", "CIM_DiagnosticCompletionRecord", "Fan"})
      EXPECT_THAT(Filter(name, std::string("class ") + name + " { [Key] string Name; };"),
                  ElementsAre("false"));
}
