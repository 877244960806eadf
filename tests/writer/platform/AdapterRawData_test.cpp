#include <filesystem>
#include <fstream>
#include <iterator>

#include <gtest/gtest.h>

#include "writer/platform/ReportRun.h"

namespace {

const std::string kFibreChannel = R"(
class ZANSG_QLogicFibreChannelRawData { [Key] string Id; string Command; string RawResults[]; };
instance of ZANSG_QLogicFibreChannelRawData { Command = "scan <all>"; RawResults = {"a<b", ""}; };
instance of ZANSG_QLogicFibreChannelRawData { Command = ""; };
)";
const std::string kIScsi = R"(
class ZANSG_QLogicIScsiRawData { [Key] string Id; string Command; string RawResults[]; };
instance of ZANSG_QLogicIScsiRawData { Command = "list"; RawResults = {"one"}; };
)";
const std::string kEmulex =
   "class ELXHBA_Product { string RawResults[]; }; instance of ELXHBA_Product { };";

/// Runs with an output directory, and reads what a report left there.
class AdapterRawData : public testing::Test
{
protected:
   void TearDown() override { std::filesystem::remove_all(fFolder); }

   /// What is written but the table, each call behind a line end.
   std::string Run(const std::string& mof, void (TWriter::*report)(), const std::string& mode)
   {
      fRun.fWriter.Initialize(MakeNamespace(mof), {{"mode", mode}}, fFolder);
      fRun.fWriter.fLines.clear();
      (fRun.fWriter.*report)();
      return fRun.GetText();
   }

   std::string ReadFile(const std::string& name)
   {
      std::ifstream file(fFolder + "/" + name);
      EXPECT_TRUE(file) << name;
      return {std::istreambuf_iterator<char>(file), {}};
   }

   static std::string MakeFolder()
   {
      std::string name = testing::TempDir() + "qsx_adapter_XXXXXX";
      return mkdtemp(name.data());
   }

   std::string fFolder = MakeFolder();
   TReportRun fRun;
};

}  // namespace

TEST_F(AdapterRawData, HasATextFilePerCommand)
{
   EXPECT_EQ(R"(
OpenReportFile "fc_rawData"
BeginReportBody
WriteReportTitle "QLogic Fibre Channel Data", "", ""
WriteTableTitle "Commands Issued", false, false
WriteGrid
| Command | Raw Result |
| <font face="Courier">scan <all></font> | <a href="fc_rawData_results0.txt">View Results</a> |
| <font face="Courier"></font> | <a href="fc_rawData_results1.txt">View Results</a> |
EndReportBody
CloseReportFile
WriteIndexEntry "fc_rawData", "QLogic Fibre Channel Data", true)",
             Run(kFibreChannel, &TWriter::WriteFibreChannelReport, "default"));
   EXPECT_EQ("a<b\n\n", ReadFile("fc_rawData_results0.txt"));
   EXPECT_EQ("", ReadFile("fc_rawData_results1.txt"));
   EXPECT_EQ("\nWriteIndexEntry \"iscsi_rawData\", \"QLogic IScsi Data\", false",
             Run("", &TWriter::WriteIScsiRawDataReport, "default"));
}

TEST_F(AdapterRawData, SharesOnePageBetweenTwoClassesInServiceMode)
{
   Run(kFibreChannel + kIScsi, &TWriter::WriteQlogicRawDataReport, "mek");
   EXPECT_EQ(R"(
OpenReportFile "fc_rawData"
BeginReportBody
WriteReportTitle "Qlogic Data", " - [Show Standard Report]", "Qlogic"
WriteTableBreak
WriteReportTitle "Fibre Channel", "", ""
WriteReportTitle "iSCSI", "", ""
CloseReportFile)",
             fRun.GetText({"OpenReportFile", "BeginReportBody", "WriteReportTitle",
                           "WriteTableBreak", "CloseReportFile", "WriteIndexEntry"}));
   Run(kIScsi, &TWriter::WriteQlogicRawDataReport, "mek");
   EXPECT_EQ(R"(
OpenReportFile "fc_rawData"
WriteReportTitle "Qlogic Data", " - [Show Standard Report]", "Qlogic"
WriteReportTitle "iSCSI", "", "")",
             fRun.GetText({"OpenReportFile", "WriteReportTitle", "WriteTableBreak"}));
   EXPECT_EQ("one\n", ReadFile("iscsi_rawData_results0.txt"));
   EXPECT_EQ("", Run("", &TWriter::WriteQlogicRawDataReport, "mek"));
   EXPECT_EQ("", Run(kIScsi, &TWriter::WriteQlogicRawDataReport, "MEK"));
}

TEST_F(AdapterRawData, TellsTheCommandsOfAnEmulexAdapterInAFixedText)
{
   EXPECT_EQ("", Run(kEmulex, &TWriter::WriteEmulexReport, "default"));
   Run(kEmulex, &TWriter::WriteEmulexReport, "mek");
   EXPECT_EQ(R"(
| <font face="Courier"> HBA commands:<br>&nbsp&nbspListHBAs/HBAAttrib/PortAttrib/PortStat/)"
             R"(TargetMapping</font> | <a href="emulex_rawData_results0.txt">View Results</a> |
EndReportBody
CloseReportFile)",
             fRun.GetText().substr(fRun.GetText().rfind("\n| <font")));
}

TEST_F(AdapterRawData, LeavesThePageWhereAFileCannotBeOpened)
{
   std::filesystem::create_directory(fFolder + "/fc_rawData_results0.txt");
   try {
      Run(kFibreChannel, &TWriter::WriteFibreChannelReport, "default");
      FAIL() << "no exception";
   } catch (const TQSXException& failure) {
      EXPECT_EQ(11, failure.fStatusCode.fStatusCode);
   }
   EXPECT_EQ("WriteTableTitle \"Commands Issued\", false, false", fRun.fWriter.fLines.back());
}
