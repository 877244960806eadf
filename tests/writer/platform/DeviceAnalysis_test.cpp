#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>

#include "writer/platform/ReportRun.h"

namespace {

const std::string kFindings = R"(
class ZANSG_CadenzaDevices { [Key] string Id; real32 CadenzaScore; };
instance of ZANSG_CadenzaDevices { Id = "low"; CadenzaScore = 9.5; };
instance of ZANSG_CadenzaDevices { Id = "none"; };
instance of ZANSG_CadenzaDevices { Id = "high"; CadenzaScore = 100.0; };
)";

class TAnalysisWriter : public TRecordingWriter
{
public:
   using TWriter::fBaseDirectory;
};

}  // namespace

TEST(DeviceAnalysis, ShowsTheHighestScoreFirst)
{
   std::string order;
   for (const auto& line :
        RunReport(kFindings, &TWriter::WriteCadenzaReport)
           .fWriter.GetLines({"PrepareCadenzaReport", "OpenReportFile", "BeginReportBody",
                              "WriteCadenzaHeader", "BeginTableRow", "WriteCadenzaRow"}))
      order += line.substr(0, line.find(',')) + "|" + line.back() + "\n";
   EXPECT_EQ(R"(PrepareCadenzaReport|t
OpenReportFile "cadenzadevices"|"
WriteCadenzaHeader|r
BeginTableRow false|e
WriteCadenzaRow ZANSG_CadenzaDevices.Id="high"|0
WriteCadenzaRow ZANSG_CadenzaDevices.Id="low"|1
WriteCadenzaRow ZANSG_CadenzaDevices.Id="none"|2
)",
             order);
}

TEST(DeviceAnalysis, TakesItsTitleFromTheInstalledFile)
{
   TAnalysisWriter writer;
   writer.Use(MakeNamespace(kFindings));
   writer.fBaseDirectory = testing::TempDir() + "qsx_analysis";
   std::filesystem::create_directories(writer.fBaseDirectory + "/data");
   std::ofstream(writer.fBaseDirectory + "/data/cadenzadeviceheader.txt") << "Two lines\njoined\n";
   writer.WriteCadenzaReport();
   std::filesystem::remove_all(writer.fBaseDirectory);
   EXPECT_EQ("WriteReportTitle \"Two linesjoined\", \"\", \"\"",
             writer.GetLines({"WriteReportTitle"}).front());
}

TEST(DeviceAnalysis, LeavesWithTheStatusOfAMissingClass)
{
   const auto run = RunReport("", &TWriter::WriteCadenzaReport);
   EXPECT_EQ(15, run.fStatus);
   EXPECT_EQ("\nPrepareCadenzaReport", run.GetText());
}
