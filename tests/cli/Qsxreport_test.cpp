#include <rapidjson/document.h>

#include "cli/TToolRun.h"

using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

namespace {

constexpr const char* kServer =
   "class ZANSG_ComputerSystem { [Key] string Name; };\n"
   "instance of ZANSG_ComputerSystem { Name = \"srv1\"; };\n";

constexpr int kUsage = 2;
constexpr int kInput = 3;
constexpr int kRun = 4;

class Qsxreport : public TToolTest
{
protected:
   Qsxreport() { Write("server.mof", kServer); }

   std::string fTrace = "report server.mof --format trace -o out ";
};

}  // namespace

TEST_F(Qsxreport, KeepsStandardOutputForResults)
{
   const TResult result = Run(fTrace);
   EXPECT_EQ(0, result.fExitCode) << result.fError;
   EXPECT_THAT(result.fOutput, IsEmpty());
   EXPECT_EQ("qsxreport: wrote out/trace.ndjson\n", result.fError);
   EXPECT_EQ("trace.ndjson", List("out"));
   EXPECT_THAT(Read("out/trace.ndjson"),
               StartsWith("{\"log\":3,\"text\":\"Report - GetOSType: Unknown\"}\n"));
   EXPECT_THAT(Read("out/trace.ndjson"), EndsWith("{\"end\":\"ok\"}\n"));
}

TEST_F(Qsxreport, SaysNothingWhenQuiet)
{
   const TResult result = Run(fTrace + "--quiet");
   EXPECT_EQ(0, result.fExitCode);
   EXPECT_THAT(result.fOutput + result.fError, IsEmpty());
}

TEST_F(Qsxreport, ReadsStandardInput)
{
   EXPECT_EQ(0, Run("report - --format trace -o out < server.mof").fExitCode);
   EXPECT_THAT(Read("out/trace.ndjson"), HasSubstr("srv1"));
}

TEST_F(Qsxreport, WritesSeveralFormatsFromOneStandardInput)
{
   const TResult result =
      RunShell("cat server.mof | '" QSX_TOOL "' report - -o out --format trace --format html");
   EXPECT_EQ(0, result.fExitCode) << result.fError;
   EXPECT_EQ("html trace", List("out"));
   EXPECT_EQ("qsxreport: wrote out/trace/trace.ndjson\nqsxreport: wrote out/html/index.html\n",
             result.fError);
   EXPECT_THAT(Read("out/trace/trace.ndjson"), HasSubstr("srv1"));
   EXPECT_THAT(Read("out/html/index.html"), HasSubstr("srv1"));
}

TEST_F(Qsxreport, LeadsWhatTheLibraryPrintsIntoTheLog)
{
   // The columns of the drives' table do not fill it.
   Write("server.mof",
         std::string(kServer) +
            "class OMC_ATADevice { [Key] string Tag; };\n"
            "class OMC_IDESMARTErrorLog { [Key] string Name; };\n"
            "class OMC_IDESMARTUseOfMessageLog { [Key] OMC_ATADevice ref Drive; "
            "[Key] OMC_IDESMARTErrorLog ref Log; };\n"
            "instance of OMC_ATADevice as $Drive { Tag = \"1\"; };\n"
            "instance of OMC_IDESMARTErrorLog as $Log { Name = \"1\"; };\n"
            "instance of OMC_IDESMARTUseOfMessageLog { Drive = $Drive; Log = $Log; };\n");
   const TResult result = Run(fTrace + "--log run.log");
   EXPECT_THAT(result.fOutput, IsEmpty());
   EXPECT_THAT(Read("run.log"),
               HasSubstr("missing: Report: columns add to 75% for the ATA Device"));
   EXPECT_THAT(Read("out/trace.ndjson"), Not(HasSubstr("columns add to")));
}

TEST_F(Qsxreport, TellsDifferencesByTheExitCode)
{
   const std::string zone = "class ZANSG_TimeZone { [Key] string Name; };\n";
   Write("a.mof", kServer + zone);
   Write("b.mof", "instance of ZANSG_ComputerSystem { Name = \"srv2\"; };\n" + (kServer + zone));
   EXPECT_EQ(0, Run("compare a.mof b.mof --format trace -o told").fExitCode);
   EXPECT_THAT(Read("told/trace.ndjson"), HasSubstr("srv2"));
   EXPECT_EQ(kUsage, Run("compare a.mof -o out").fExitCode);
}

TEST_F(Qsxreport, NamesTheCommandThatACollectionIsFor)
{
   Write("esxi.mof",
         "class VMware_HypervisorSoftwareIdentity { [Key] string Name; };\n"
         "instance of VMware_HypervisorSoftwareIdentity { Name = \"h\"; };\n");
   Write("linux.mof",
         "class ZANSG_OperatingSystem { [Key] string Name; };\n"
         "instance of ZANSG_OperatingSystem { Name = \"o\"; };\n");
   const std::string options = " --format trace --force -o out";
   EXPECT_THAT(Run("report esxi.mof" + options).fError, HasSubstr("'qsxreport hypervisor'"));
   EXPECT_THAT(Run("hypervisor linux.mof" + options).fError, HasSubstr("'qsxreport report'"));
   EXPECT_EQ("qsxreport: wrote out/trace.ndjson\n", Run("hypervisor esxi.mof" + options).fError);
   EXPECT_THAT(Read("out/trace.ndjson"),
               HasSubstr("{\"op\":\"WriteSystemOverviewReport\",\"args\":[{\"link\":"));
}

TEST_F(Qsxreport, PrintsTheCatalogueAsJson)
{
   rapidjson::Document catalogue;
   catalogue.Parse(Run("catalogue server.mof").fOutput.c_str());
   ASSERT_TRUE(catalogue.IsObject());
   EXPECT_STREQ("BuildSystemConfigParams", catalogue.MemberBegin()->name.GetString());
   EXPECT_STREQ("system_overview", catalogue["BuildSystemConfigParams"]["link"].GetString());
   rapidjson::Document hypervisor;
   hypervisor.Parse(Run("catalogue --hypervisor server.mof").fOutput.c_str());
   ASSERT_TRUE(hypervisor.IsObject());
   EXPECT_EQ(5u, hypervisor.MemberCount());
   EXPECT_STREQ("OMC_SMASHFirmwareIdentity",
                hypervisor["BuildHardwareInventoryParams"]["classes"][0]["class"].GetString());
}

TEST_F(Qsxreport, TellsWhatACollectionHolds)
{
   Write("links.mof",
         "class A { [Key] string Name; };\n"
         "class L { [Key] A ref To; [Key] uint8 N; };\n"
         "instance of A { Name = \"\x1b[31m\"; };\n"
         "instance of L { To = \"A.Name=\\\"gone\\\"\"; N = 1; };\n"
         "instance of L { To = \"A.Name=\\\"gone\\\"\"; N = 1; };\n");
   const TResult result = Run("check links.mof --strict");
   EXPECT_EQ(0, result.fExitCode);
   EXPECT_THAT(result.fOutput,
               StartsWith("links.mof: MOF, 2 classes, 3 instances\n\n2 classes, 3 instances\n\n"
                          "Instances  Class\n        2  L\n        1  A\n"));
   EXPECT_THAT(result.fOutput, HasSubstr("        2  L.To, such as A.Name=\"gone\"\n"));
   EXPECT_THAT(result.fOutput, HasSubstr("several instances of L have one path"));
   EXPECT_THAT(Run("check links.mof").fOutput, HasSubstr("added without instances\n  ZANSG_"));
}

TEST_F(Qsxreport, WritesCoreLogLinesUpToALevel)
{
   EXPECT_EQ(0, Run(fTrace + "--log quiet.log").fExitCode);
   EXPECT_THAT(Read("quiet.log"), Not(HasSubstr("trace: ")));
   const TResult result = Run(fTrace + "--force --log loud.log --log-level 3 -v");
   EXPECT_THAT(Read("loud.log"), HasSubstr("trace: Entering TWriter::BaseInitialize\n"));
   EXPECT_THAT(result.fError, HasSubstr("trace: Entering TWriter::BaseInitialize\n"));
}

TEST_F(Qsxreport, LogsOverNoInput)
{
   const std::string before = Read("server.mof");
   for (const char* input : {"server.mof", "./server.mof", "."}) {
      const TResult result = Run(std::string("report ") + input + " -o out --log server.mof");
      EXPECT_EQ(4, result.fExitCode) << input;
      EXPECT_THAT(result.fError, HasSubstr("server.mof: the log would replace the input "));
   }
   EXPECT_EQ(4, Run("compare . . --findings server.mof -o out --log server.mof").fExitCode);
   EXPECT_EQ(before, Read("server.mof"));
}

TEST_F(Qsxreport, TellsAWrongUse)
{
   const struct
   {
      const char* fArguments;
      const char* fHint;
   } cases[] = {
      {"", "'qsxreport --help'"},
      {"reprot server.mof -o out", "did you mean 'report'?"},
      {"report server.mof --outptu out", "did you mean '--output'?"},
      {"report server.mof -o out --format trac", "did you mean 'trace'?"},
      {"report server.mof -o out --format trace --format trace:x", "given twice"},
      {"report server.mof", "--output DIR"},
      {"report -o out", "no COLLECTION"},
      {"report - - -o out", "once only"},
      {"report server.mof -o out --log-level high", "--log-level"},
   };

   for (const auto& row : cases) {
      const TResult result = Run(row.fArguments);
      EXPECT_EQ(kUsage, result.fExitCode) << row.fArguments;
      EXPECT_THAT(result.fError, HasSubstr(row.fHint));
      EXPECT_THAT(result.fOutput, IsEmpty());
   }
   EXPECT_EQ("server.mof", List());
}

TEST_F(Qsxreport, PrintsHelpAndVersionAsResults)
{
   for (const char* arguments : {"--help", "report --help", "catalogue -h", "--version"}) {
      const TResult result = Run(arguments);
      EXPECT_EQ(0, result.fExitCode) << arguments;
      EXPECT_THAT(result.fOutput, HasSubstr("qsxreport"));
      EXPECT_THAT(result.fError, IsEmpty());
   }
}

TEST_F(Qsxreport, NamesThePlaceOfBadInput)
{
   Write("cut.mof", "class A {\n  string Na");
   Write("wrong.mof", "class A { uint8 N; };\ninstance of A { N = 256; };\n");

   const struct
   {
      const char* fInput;
      const char* fMessage;
   } cases[] = {
      {"cut.mof", "cut.mof:2:"},
      {"wrong.mof", "wrong.mof:2:21: "},
      {"absent.mof", "absent.mof: "},
   };

   for (const auto& row : cases) {
      const TResult result = Run("report --format trace -o out " + std::string(row.fInput));
      EXPECT_EQ(kInput, result.fExitCode) << row.fInput;
      EXPECT_THAT(result.fError, StartsWith(row.fMessage));
      EXPECT_FALSE(std::filesystem::exists(fFolder + "/out"));
   }
}

TEST_F(Qsxreport, LeavesAFolderThatItMayNotReplace)
{
   std::filesystem::create_directory(fFolder + "/out");
   Write("out/mine", "kept");
   const TResult refused = Run(fTrace);
   EXPECT_EQ(kRun, refused.fExitCode);
   EXPECT_THAT(refused.fError, HasSubstr("--force"));
   EXPECT_EQ("mine", List("out"));

   EXPECT_EQ(0, Run(fTrace + "--force").fExitCode);
   EXPECT_EQ("trace.ndjson", List("out"));
   EXPECT_EQ("out server.mof", List()) << "what was replaced or staged is gone";
}

TEST_F(Qsxreport, RefusesOutputFoldersThatWouldCostTheUserData)
{
   std::filesystem::create_directory(fFolder + "/data");
   Write("data/server.mof", kServer);
   std::filesystem::create_directory_symlink(fFolder + "/data", fFolder + "/link");

   const struct
   {
      const char* fArguments;
      const char* fReason;
   } cases[] = {
      {"data/server.mof -o data", "holds the input data/server.mof"},
      {"server.mof -o .", "name of its own"},
      {"server.mof -o '../../'", "name of its own"},
      {"server.mof -o \"$PWD\"", "holds the current folder"},
      {"server.mof -o link/", "symbolic link"},
      {"server.mof -o server.mof", "Not a directory"},
      {"server.mof -o server.mof/out", "Not a directory"},
      {"server.mof -o /proc/out", ""},
   };

   for (const auto& row : cases) {
      const TResult result = Run("report --force --format trace " + std::string(row.fArguments));
      EXPECT_EQ(kRun, result.fExitCode) << row.fArguments;
      EXPECT_THAT(result.fError, HasSubstr(row.fReason));
   }
   EXPECT_EQ("data link server.mof", List());
   EXPECT_EQ("server.mof", List("data"));
}

TEST_F(Qsxreport, LeavesWhatWasThereWhenTheDiskIsFull)
{
   std::filesystem::create_directory(fFolder + "/out");
   Write("out/mine", "kept");
   // A file size limit fails as a full disk does.
   const TResult result = Run("report server.mof --force --format trace -o out", "ulimit -f 1;");
   EXPECT_EQ(kRun, result.fExitCode);
   EXPECT_THAT(result.fError, HasSubstr("out/trace.ndjson"));
   EXPECT_THAT(List("out"), StartsWith("mine"));
   EXPECT_EQ("out server.mof", List());
}

TEST_F(Qsxreport, GivesTheFolderTheModeOfTheUser)
{
   ASSERT_EQ(0, Run(fTrace, "umask 027;").fExitCode);
   using std::filesystem::perms;
   EXPECT_EQ(perms::owner_all | perms::group_read | perms::group_exec,
             std::filesystem::status(fFolder + "/out").permissions());
   EXPECT_EQ(perms::owner_read | perms::owner_write | perms::group_read,
             std::filesystem::status(fFolder + "/out/trace.ndjson").permissions());
}

TEST_F(Qsxreport, KeepsTheTraceOfAFailedRun)
{
   // The name of an update result that is no text can't be sorted by.
   Write("bad.mof", kServer + std::string("class ZANSG_PSResult { [Key] uint32 Id; uint32 Name; "
                                          "string Type; };\n"
                                          "instance of ZANSG_PSResult { Id = 1; Name = 1; };\n"
                                          "instance of ZANSG_PSResult { Id = 2; Name = 2; };\n"));
   std::filesystem::create_directory(fFolder + "/out");
   Write("out/mine", "kept");
   const TResult result = Run("report bad.mof --force --format trace -o out");
   EXPECT_EQ(kRun, result.fExitCode);
   EXPECT_THAT(result.fError, HasSubstr("the run failed: Type mismatch (status 13)"));
   EXPECT_EQ("mine trace.ndjson", List("out"));
   EXPECT_THAT(Read("out/trace.ndjson"), EndsWith("{\"end\":\"exception\",\"status\":13}\n"));
}

TEST_F(Qsxreport, RemovesTheStagingFolderWhenInterrupted)
{
   std::string processes = "class ZANSG_Process { [Key] string Name; };\n";
   for (int i = 0; i < 3000; ++i)
      processes += "instance of ZANSG_Process { Name = \"p" + std::to_string(i) + "\"; };\n";
   Write("server.mof", kServer + processes);
   // Each missing property is a log line, into a pipe that nobody empties: the run stands still.
   const TResult result = RunShell(
      "mkfifo log; sleep 60 <log & reader=$!\n"
      "'" QSX_TOOL "' " +
      fTrace +
      "-v 2>log & tool=$!\n"
      "for i in 1 2 3 4 5 6 7 8 9; do ls -d .out.* && break; sleep 1; done\n"
      "kill -TERM $tool; wait $tool; code=$?; kill $reader; exit $code");
   EXPECT_EQ(128 + SIGTERM, result.fExitCode);
   EXPECT_EQ("log server.mof", List());
}

TEST_F(Qsxreport, ComparesCollections)
{
   const std::string system =
      "class ZANSG_ComputerSystem { [Key] string Name; string SerialNumber; };\n"
      "class Disk { [Key] string N; uint32 Size; };\n"
      "class ZANSG_OperatingSystem { [Key] string Name; uint32 UpTime; };\n";
   const std::string times = "instance of ZANSG_OperatingSystem { Name = \"x\"; UpTime = ";
   Write("base.mof", system + times + "1; }; instance of Disk { N = \"a\"; Size = 1; };");
   Write("later.mof", system + times + "2; }; instance of Disk { N = \"a\"; Size = 1; };");
   Write("other.mof", system + times + "1; }; instance of Disk { N = \"a\"; Size = 2; };");
   Write("apart.mof", "class Tape { [Key] string N; }; instance of Tape { N = \"t\"; };");
   Write("findings.mof",
         "class ZANSG_Delta { [Key] uint32 DeltaID; string InstanceName; };\n"
         "instance of ZANSG_Delta { DeltaID = 1; InstanceName = \"No.N=1\"; };");

   const struct
   {
      const char* fArguments;
      int fExitCode;
      const char* fError;
   } cases[] = {
      {"base.mof base.mof", 0, "no differences"},
      {"base.mof later.mof", 0, "no differences"},
      {"base.mof later.mof --no-default-ignore", 1, "1 difference\n"},
      {"base.mof other.mof", 1, "1 difference\n"},
      {"base.mof other.mof --ignore Disk.Size", 0, "no differences"},
      {"base.mof other.mof --ignore X --ignore Size", 0, "--ignore X: no class has this property"},
      {"base.mof apart.mof", 1, "base.mof and apart.mof have no class in common"},
      {"base.mof other.mof --findings findings.mof", 0, "the class \"No\""},
      {"base.mof other.mof --findings apart.mof", 0, "apart.mof holds no findings"},
      {"base.mof base.mof --strict", kRun, "without --strict the run does not need it"},
   };

   for (const auto& c : cases) {
      SCOPED_TRACE(c.fArguments);
      const TResult result =
         Run(std::string("compare --format trace --exit-code --force -o out ") + c.fArguments);
      EXPECT_EQ(c.fExitCode, result.fExitCode);
      EXPECT_THAT(result.fError, HasSubstr(c.fError));
   }
   EXPECT_THAT(Run("compare --list-ignored").fOutput, HasSubstr("ZANSG_OperatingSystem.UpTime\n"));
}
