#include <gmock/gmock.h>

#include "support/MakeStore.h"
#include "support/TRecordingWriter.h"

using TReportClass = TReportParameters::TReportClass;
using testing::ElementsAre;

namespace {

TReportParameters MakeReport(const std::string& cimClass)
{
   TReportClass table;
   table.SetClass(cimClass);
   table.SetTitle(cimClass);
   table.SetProperties({{"Name", "100%", "", "", ""}});
   TReportParameters report;
   report.SetLinkName("page");
   report.SetReportName("Page");
   report.SetClasses({table});
   return report;
}

std::string MakeInstances(const std::string& cimClass, int count)
{
   std::string mof = "class " + cimClass + " { [Key] string Name; };";
   for (int i = 0; i < count; ++i)
      mof += "instance of " + cimClass + " { Name = \"n" + std::to_string(i) + "\"; };";
   return mof;
}

}  // namespace

TEST(GenericReport, FramesAPage)
{
   TRecordingWriter writer;
   writer.Use(MakeNamespace(MakeInstances("Fan", 1)));
   WriteGenericReport(&writer, false, MakeReport("Fan"));
   EXPECT_THAT(
      writer.fLines,
      ElementsAre("OpenReportFile \"page\"", "WriteReportPreamble", "BeginReportBody",
                  "WriteReportTitle \"Page\", \"\", \"\"", "WriteTableTitle \"Fan\", false, false",
                  "WriteGrid", "| Name |", "| n0 (raw: N/A) |", "EndReportBody", "CloseReportFile",
                  "WriteIndexEntry \"page\", \"Page\", true"));
}

TEST(GenericReport, AReportWithoutDataKeepsItsPage)
{
   TRecordingWriter writer;
   writer.Use(MakeNamespace(MakeInstances("Fan", 0)));
   TReportParameters report = MakeReport("Fan");
   report.GetClasses().push_back(MakeReport("Gone").GetClasses().front());
   report.SetShowReportTitle(false);
   writer.WriteGenericReport(report);
   EXPECT_THAT(writer.fLines, ElementsAre("OpenReportFile \"page\"", "WriteReportPreamble",
                                          "BeginReportBody", "EndReportBody", "CloseReportFile",
                                          "WriteIndexEntry \"page\", \"Page\", false"));
}

TEST(GenericReport, LinksToTheRawDataInServiceMode)
{
   const auto writeTitle = [](const std::string& mode) {
      TRecordingWriter writer;
      writer.Use(MakeNamespace(MakeInstances("Fan", 0)), mode);
      TReportParameters report = MakeReport("Fan");
      report.SetShowReportTitle(false);
      writer.WriteGenericReportWithLink(report, "raw");
      EXPECT_THAT(writer.GetLines({"WriteReportPreamble"}), ElementsAre());
      return writer.GetLines({"WriteReportTitle"}).at(0);
   };
   EXPECT_EQ("WriteReportTitle \"Page\", \" - [Show Rawdata Report]\", \"raw\"", writeTitle("mek"));
   EXPECT_EQ("WriteReportTitle \"Page\", \"\", \"\"", writeTitle("default"));
}

TEST(GenericReport, MemoryModulesComeInTablesOfEight)
{
   for (const auto& [count, tables] : {std::pair{8, 1}, {9, 2}, {17, 3}}) {
      TRecordingWriter writer;
      writer.Use(MakeNamespace(MakeInstances("ZANSG_SPDData", count)));
      writer.WriteGenericReport(MakeReport("ZANSG_SPDData"));
      EXPECT_EQ(tables, writer.GetLines({"WriteGrid"}).size());
      writer.fLines.clear();
      writer.WriteGenericReportWithLink(MakeReport("ZANSG_SPDData"), "");
      EXPECT_EQ(1u, writer.GetLines({"WriteGrid"}).size()) << "no such case with a link";
   }
}

TEST(GenericReport, UpdateResultsRunByTypeAndName)
{
   const std::string mof = R"(
      class ZANSG_PSResult { [Key] uint32 Id; string Type; string Name; };
      instance of ZANSG_PSResult { Id = 0; Type = "b"; Name = "z"; };
      instance of ZANSG_PSResult { Id = 1; Type = "a"; Name = "n10"; };
      instance of ZANSG_PSResult { Id = 2; Type = "b"; Name = "Z"; };
      instance of ZANSG_PSResult { Id = 3; Type = "a"; Name = "n1"; };)";
   TRecordingWriter writer;
   writer.Use(MakeNamespace(mof));
   writer.WriteGenericReport(MakeReport("ZANSG_PSResult"));
   EXPECT_THAT(writer.GetLines({"|"}),
               ElementsAre("| Name |", "| n1 (raw: N/A) |", "| n10 (raw: N/A) |",
                           "| Z (raw: N/A) |", "| z (raw: N/A) |"));
}

TEST(GenericReport, AFailureInTheSortOfUpdateResultsIsPassedOnAndLosesNothing)
{
   TRecordingWriter writer;
   writer.Use(MakeNamespace(R"(
      class ZANSG_PSResult { [Key] uint32 Id; string Name; string Type[]; };
      instance of ZANSG_PSResult { Id = 0; Type = {"a"}; Name = "b"; };
      instance of ZANSG_PSResult { Id = 1; Type = {"b"}; Name = "a"; };)"));
   auto instances = writer.GetInstances(MakeReport("ZANSG_PSResult").GetClasses().front());
   const auto before = instances;
   EXPECT_THROW(PSResultSort(instances), TQSXException) << "a type that is no text";
   EXPECT_EQ(before, instances);
   EXPECT_THROW(writer.WriteGenericReport(MakeReport("ZANSG_PSResult")), TQSXException);
   EXPECT_THAT(writer.GetLines({"CloseReportFile", "WriteIndexEntry"}), ElementsAre());
}
