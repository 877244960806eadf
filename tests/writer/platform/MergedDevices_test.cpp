#include <gtest/gtest.h>

#include "writer/platform/ReportRun.h"

namespace {

const std::string kDeviceClass =
   "class ZANSG_LogicalDevice { [Key] string ElementName; string DeviceClass; };";

std::string MakeDevice(const std::string& name, const std::string& deviceClass)
{
   return "instance of ZANSG_LogicalDevice { ElementName = \"" + name +
          "\"; DeviceClass = " + deviceClass + "; };";
}

}  // namespace

TEST(MergedDevices, GroupByClassWithItsFirstLetterRaised)
{
   const auto run = RunReport(kDeviceClass + MakeDevice("b", "\"network\"") +
                                 MakeDevice("a", "\"Network\"") + MakeDevice("v", "\"video\"") +
                                 MakeDevice("u", "\"USB\"") + MakeDevice("none", "NULL"),
                              &TWriter::WriteMergedDevicesReport);
   std::string groups;
   for (const auto& line : run.fWriter.GetLines({"BeginColumnTable", "WriteValueCell"}))
      if (line.find("Begin") == 0 || line.find(", Location") != std::string::npos)
         groups += "\n" + line;
   EXPECT_EQ(R"(
BeginColumnTable "100%", "Network", false
WriteValueCell ZANSG_LogicalDevice.ElementName="a", Location
WriteValueCell ZANSG_LogicalDevice.ElementName="b", Location
BeginColumnTable "100%", "USB", false
WriteValueCell ZANSG_LogicalDevice.ElementName="u", Location
BeginColumnTable "100%", "Video", false
WriteValueCell ZANSG_LogicalDevice.ElementName="v", Location)",
             groups);
}

TEST(MergedDevices, HaveAPageWithoutAnyOfTheirClasses)
{
   EXPECT_EQ(
      "\nOpenReportFile \"mergedDevices\"\nCloseReportFile"
      "\nWriteIndexEntry \"mergedDevices\", \"Merged Devices\", false",
      RunReport("", &TWriter::WriteMergedDevicesReport)
         .GetText({"OpenReportFile", "CloseReportFile", "WriteIndexEntry"}));
}

TEST(MergedDevices, LeaveAtWhatTheyCannotRead)
{
   const std::string identity =
      "class ZANSG_DeviceIdentity { ZANSG_LogicalDevice REF SystemElement; };"
      "instance of ZANSG_DeviceIdentity { };";
   const std::string unsorted =
      "class ZANSG_LogicalDevice { [Key] string DeviceClass; };"
      "instance of ZANSG_LogicalDevice { DeviceClass = \"a\"; };"
      "instance of ZANSG_LogicalDevice { DeviceClass = \"b\"; };";
   const std::string unclassed =
      "class ZANSG_LogicalDevice { [Key] string ElementName; };"
      "instance of ZANSG_LogicalDevice { ElementName = \"a\"; };";
   const auto getStatus = [](const std::string& mof) {
      return RunReport(mof, &TWriter::WriteMergedDevicesReport).fStatus;
   };
   EXPECT_EQ(0, getStatus(kDeviceClass + identity)) << "read beside a PCI class only";
   EXPECT_EQ(15, getStatus(kDeviceClass + identity + "class ZANSG_PCIDevice { string X; };"));
   EXPECT_EQ(0, getStatus(unsorted)) << "a failing sort is traced and passed over";
   EXPECT_EQ(15, getStatus(unclassed));
}
