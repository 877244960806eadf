#include <gtest/gtest.h>

#include "writer/platform/ReportRun.h"

TEST(BIOSSettings, AreSortedByNameAndHaveAPageWithoutTheirClass)
{
   const std::string settings = R"(
      class ZANSG_BIOSEnumeration { [Key, DisplayName("Setting")] string AttributeName;
         string CurrentValue[]; string DefaultValue[]; string PendingValue[]; };
      instance of ZANSG_BIOSEnumeration { AttributeName = "Wake"; CurrentValue = {"On"}; };
      instance of ZANSG_BIOSEnumeration { AttributeName = "boot"; CurrentValue = {"A", "B"}; };)";
   EXPECT_EQ(R"(
OpenReportFile "biosenumeration"
WriteReportTitle "BIOS Settings", "", ""
WriteTableTitle "BIOS Settings", false, false
WriteGrid
| Setting | CurrentValue | DefaultValue | PendingValue |
| boot (raw: N/A) | A, B |  |  |
| Wake (raw: N/A) | On |  |  |
EndReportBody
CloseReportFile
WriteIndexEntry "biosenumeration", "BIOS Settings", true)",
             RunReport(settings, &TWriter::WriteBIOSEnumeration).GetText());
   EXPECT_EQ("\nWriteIndexEntry \"biosenumeration\", \"BIOS Settings\", false",
             RunReport("", &TWriter::WriteBIOSEnumeration)
                .GetText({"WriteTableTitle", "WriteGrid", "WriteIndexEntry"}));
}
