#include <gmock/gmock.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "support/MakeStore.h"
#include "support/TRecordingWriter.h"
#include "support/TTemporaryFolder.h"

using testing::ElementsAre;

namespace {

constexpr uid_t kNobody = 65534;

const std::string kMegaRaid = R"(
class ZANSG_MegaLSIRawData { [Key] string Command; string Message; string RawResults[]; };
instance of ZANSG_MegaLSIRawData { Command = "list <all>"; Message = "All & more"; };
)";

/// Reports that write into a folder of their own.
class TRawDataTest : public testing::Test
{
protected:
   TRecordingWriter MakeWriter(const std::string& mof, const char* mode = "default") const
   {
      TRecordingWriter writer;
      writer.Initialize(MakeNamespace(mof), {{"mode", mode}}, fFolder.GetPath());
      writer.fLines.clear();
      return writer;
   }

   /// The status with which the raw data of one command of 2,000 lines ends; 0 when it does not.
   int WriteLongOutput()
   {
      std::string lines = "\"a line\"";
      for (int i = 1; i < 2000; ++i)
         lines += ", \"a line\"";
      TRecordingWriter writer = MakeWriter(
         "class ZANSG_lsiRawData { [Key] string Command; string RawResults[]; };\n"
         "instance of ZANSG_lsiRawData { Command = \"c\"; RawResults = { " +
         lines + " }; };");
      std::string text;
      std::string target;
      try {
         writer.WriteLSIRawData(text, target);
      } catch (const TQSXException& failure) {
         return failure.fStatusCode.fStatusCode;
      }
      return 0;
   }

   std::string GetFirstFile() const { return fFolder.GetPath("lsi_rawData_results0.txt"); }

   TTemporaryFolder fFolder;
};

}  // namespace

TEST_F(TRawDataTest, NumbersTheFilesInTheOrderOfTheCommands)
{
   TRecordingWriter writer = MakeWriter(R"(
class ZANSG_lsiRawData { [Key] string Id; string Command; string RawResults[]; };
instance of ZANSG_lsiRawData { Id = "9"; Command = "list <all>"; RawResults = { "a", "", "b" }; };
instance of ZANSG_lsiRawData { Id = "1"; RawResults = { }; };)");
   std::string text;
   std::string target;
   writer.WriteLSIRawData(text, target);
   EXPECT_EQ(text, " - [Show Raw Data Report]");
   EXPECT_EQ(target, "lsi_rawData_index");
   EXPECT_THAT(
      writer.fLines,
      ElementsAre("OpenReportFile \"lsi_rawData_index\"", "BeginReportBody",
                  "WriteReportTitle \"LSI Controller\", \" - [Show Standard Report]\", \"lsi\"",
                  "WriteTableTitle \"Commands Issued\", false, false", "WriteGrid",
                  "| Command | Result |",
                  "| <font face=\"Courier\">list <all></font> | "
                  "<a href=\"lsi_rawData_results0.txt\">View Results</a> |",
                  "| <font face=\"Courier\"></font> | "
                  "<a href=\"lsi_rawData_results1.txt\">View Results</a> |",
                  "EndReportBody", "CloseReportFile"));
   EXPECT_EQ(fFolder.Read("lsi_rawData_results0.txt"), "a\n\nb\n");
   EXPECT_EQ(fFolder.Read("lsi_rawData_results1.txt"), "");
}

TEST_F(TRawDataTest, MegaRaidShowsTheCommandInServiceModeOnly)
{
   for (const auto& [mode, cell] :
        {std::pair("mek", "list <all>"), std::pair("default", "All & more")}) {
      TRecordingWriter writer = MakeWriter(kMegaRaid, mode);
      writer.WriteMegaLSIRawDataReport();
      EXPECT_THAT(writer.fLines, testing::Contains(testing::HasSubstr(std::string("\"Courier\">") +
                                                                      cell + "</font>")));
      EXPECT_EQ(writer.fLines.back(),
                "WriteIndexEntry \"megalsi_rawData\", \"MR Controller\", true");
   }
}

TEST_F(TRawDataTest, MegaRaidLeavesTheIndexToTheProvidersPage)
{
   TRecordingWriter writer = MakeWriter(
      "class ZANSG_MegaLSIRawData { [Key] string Command; };\n"
      "class LSIESG_MegaRAIDHBA { [Key] string Name; };\n"
      "instance of LSIESG_MegaRAIDHBA { Name = \"hba\"; };",
      "mek");
   writer.WriteMegaLSIRawDataReport();
   EXPECT_THAT(writer.GetLines({"WriteReportTitle", "WriteIndexEntry"}),
               ElementsAre("WriteReportTitle \"MegaRAID Information\", \" - [Show Standard "
                           "Report]\", \"lsi_mr\"",
                           "WriteIndexEntry \"lsi_mr\", \"MR Controller\", true"));
}

TEST_F(TRawDataTest, RefusesALinkAPipeAndAMissingFolder)
{
   const std::string elsewhere = fFolder.GetPath("elsewhere");
   std::ofstream(elsewhere) << "precious";
   std::filesystem::create_symlink(elsewhere, GetFirstFile());
   EXPECT_EQ(WriteLongOutput(), 11);
   EXPECT_EQ(fFolder.Read("elsewhere"), "precious");
   std::filesystem::remove(GetFirstFile());
   ASSERT_EQ(mkfifo(GetFirstFile().c_str(), 0600), 0);
   EXPECT_EQ(WriteLongOutput(), 11);
   std::filesystem::remove_all(fFolder.GetPath());
   EXPECT_EQ(WriteLongOutput(), 11);
}

TEST_F(TRawDataTest, TellsDeniedAccessApart)
{
   std::filesystem::permissions(fFolder.GetPath(), std::filesystem::perms(0555));
   // Root may write anywhere.
   const bool isRoot = geteuid() == 0;
   ASSERT_TRUE(!isRoot || seteuid(kNobody) == 0);
   EXPECT_EQ(WriteLongOutput(), 27);
   ASSERT_TRUE(!isRoot || seteuid(0) == 0);
   std::filesystem::permissions(fFolder.GetPath(), std::filesystem::perms(0755));
}

TEST_F(TRawDataTest, NoticesAFileThatCannotBeWrittenToItsEnd)
{
   EXPECT_EQ(WriteLongOutput(), 0);
   rlimit before;
   ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
   const rlimit little = {1000, before.rlim_max};
   signal(SIGXFSZ, SIG_IGN);
   ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &little), 0);
   const int status = WriteLongOutput();
   setrlimit(RLIMIT_FSIZE, &before);
   EXPECT_EQ(status, 11);
}
