#include <gtest/gtest.h>

#include "writer/platform/ReportRun.h"

namespace {

const std::vector<std::string> kSectionClasses = {
   "ZANSG_FirmwareElement",       "CIM_BIOSElement",
   "ZANSG_PostBIOSVPD",           "ZANSG_DiagnosticVPD",
   "ZANSG_SPROMFirmwareVPDMain",  "ZANSG_SPROMFirmwareVPDBootROM",
   "ZANSG_HardwareRevisionLevel", "ZANSG_FRU"};

/// All section classes but one, and the RAID controllers'.
std::string MakeClasses(const std::string& leftOut = "")
{
   std::string mof = R"(
      class LSIESG_ControllerFirmwareIdentity { [Key] string Id; };
      class LSI_RAID_ControllerFWSoftwareIdentity { [Key] string Id; };
      class LSIESG_ControllerBIOSIdentity { [Key] string Id; };
      instance of LSI_RAID_ControllerFWSoftwareIdentity { Id = "2"; };
      instance of LSIESG_ControllerFirmwareIdentity { Id = "1"; };
      instance of LSIESG_ControllerBIOSIdentity { Id = "3"; };)";
   for (const auto& name : kSectionClasses)
      if (name != leftOut)
         mof += "class " + name + " { [Key] string Name; };";
   return mof;
}

}  // namespace

TEST(CustomFirmware, JoinsTheControllersToTheTablesOfTheSystem)
{
   const auto run = RunReport(MakeClasses() +
                                 "instance of CIM_BIOSElement { Name = \"bios\"; };"
                                 "instance of ZANSG_FirmwareElement { Name = \"fw\"; };",
                              &TWriter::WriteCustomFirmwareReport);
   std::string rows;
   for (const auto& line : run.fWriter.GetLines({"WriteValueCell", "WriteTextCell", "EndTable"}))
      if (line.find(".Name=") == std::string::npos)
         rows += line[0] == 'E' ? "end" : line.substr(line.find_last_of("., ") + 1) + ";";
   EXPECT_EQ(
      "ElementName;\"LSI\";\"\";\"\";VersionString;\"\";\"\";"
      "ElementName;\"LSI\";\"\";\"\";VersionString;\"\";\"\";end"
      "ElementName;\"\";VersionString;\"\";end",
      rows);
}

TEST(CustomFirmware, ShowsControllersOnlyBesideFirmwareOfTheSystem)
{
   EXPECT_EQ(R"(
OpenReportFile "firmware"
WriteReportTitle "Firmware/VPD", "", ""
EndReportBody
CloseReportFile
WriteIndexEntry "firmware", "Firmware", true)",
             RunReport(MakeClasses(), &TWriter::WriteCustomFirmwareReport).GetText());
}

TEST(CustomFirmware, EndsInTheAssertionHookWithoutOneOfItsClasses)
{
   for (const auto& name : kSectionClasses) {
      const auto run = RunReport(MakeClasses(name), &TWriter::WriteCustomFirmwareReport);
      EXPECT_EQ(1, run.fStatus) << name;
      EXPECT_EQ("\nOpenReportFile \"firmware\"", run.GetText({"OpenReportFile", "CloseReportFile"}))
         << name;
   }
}
