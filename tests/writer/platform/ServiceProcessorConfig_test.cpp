#include <gmock/gmock.h>

#include "run/TReport.h"
#include "writer/platform/ReportRun.h"

using testing::HasSubstr;
using testing::Not;

namespace {

const std::string kStaticAddress =
   "class CIM_StaticIPAssignmentSettingData { [Key] string InstanceID; };"
   "instance of CIM_StaticIPAssignmentSettingData { InstanceID = \"static\"; };";
const std::string kNameServiceClass = "class CIM_DNSSettingData { [Key] string InstanceID; };";
const std::string kNameService = kNameServiceClass +
                                 "instance of CIM_DNSSettingData { InstanceID = \"dns:1\"; };"
                                 "instance of CIM_DNSSettingData { InstanceID = \"dns:2\"; };";
const std::string kDynamicAddress = "class CIM_IPProtocolEndpoint { string Name; };";
const std::string kSNMP = "class CIM_SNMPCommunityString { string Name; };";
const std::string kAll = kStaticAddress + kNameService + kDynamicAddress + kSNMP;

}  // namespace

TEST(ServiceProcessorConfig, GivesEachSettingATableAndEndsEarlyWithoutNameService)
{
   const std::vector<std::string> operations = {"WriteTableTitle", "EndReportBody",
                                                "CloseReportFile", "WriteIndexEntry"};
   EXPECT_EQ(R"(
WriteTableTitle "Static IP ", false, false
WriteTableTitle "dns:1", false, false
WriteTableTitle "dns:2", false, false
EndReportBody
CloseReportFile
WriteIndexEntry "SPConfig", "KMC Configuration", true)",
             RunReport(kAll, &TWriter::WriteSPConfigReport).GetText(operations));
   EXPECT_EQ(R"(
WriteTableTitle "Static IP ", false, false
WriteIndexEntry "", "DNS IP", false
CloseReportFile)",
             RunReport(kStaticAddress + kNameServiceClass, &TWriter::WriteSPConfigReport)
                .GetText(operations));
   EXPECT_EQ("\nWriteIndexEntry \"\", \"Static IP\", false",
             RunReport("class CIM_StaticIPAssignmentSettingData { string X; };",
                       &TWriter::WriteSPConfigReport)
                .GetText());
}

TEST(ServiceProcessorConfig, RunsIntoTheAssertionHookWithoutAClass)
{
   for (const auto& mof : {std::string(), kStaticAddress, kStaticAddress + kNameService,
                           kStaticAddress + kNameService + kDynamicAddress}) {
      const auto run = RunReport(mof, &TWriter::WriteSPConfigReport);
      EXPECT_EQ(1, run.fStatus) << mof;
      EXPECT_EQ("", run.GetText({"EndReportBody", "CloseReportFile", "WriteIndexEntry"}));
   }
}

TEST(ServiceProcessorConfig, FallsBackToTheOlderPagesInARun)
{
   const auto getEntries = [](std::string mof) {
      for (const char* expected :
           {"ZANSG_FirmwareElement", "CIM_BIOSElement", "ZANSG_PostBIOSVPD", "ZANSG_DiagnosticVPD",
            "ZANSG_SPROMFirmwareVPDMain", "ZANSG_SPROMFirmwareVPDBootROM",
            "ZANSG_HardwareRevisionLevel", "ZANSG_FRU", "ZANSG_CadenzaDevices"})
         mof += std::string("class ") + expected + " { string X; };";
      TReportRun run;
      TReport(MakeNamespace(mof), {}, "out").Write(&run.fWriter, {});
      return run.GetText({"WriteIndexEntry"});
   };
   EXPECT_THAT(getEntries(kStaticAddress),
               AllOf(HasSubstr("\"servproc_config\", \"SP Configurations\", false"),
                     HasSubstr("\"environmentals\", \"Environmentals\", false"),
                     Not(HasSubstr("\"Environmentals\", \"Environmentals\""))));
   EXPECT_THAT(getEntries(kAll), AllOf(HasSubstr("\"Environmentals\", \"Environmentals\", true"),
                                       Not(HasSubstr("servproc_config"))));
}
