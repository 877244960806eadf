#include <sstream>

#include "cli/TToolRun.h"
#include "formats/json/JsonSchema.h"
#include "text/TextLines.h"

using testing::HasSubstr;

namespace {

/// The commands that write pages, over the examples.
const std::string kRuns[] = {
   "report " QSX_EXAMPLES "/windows-server",
   "report " QSX_EXAMPLES "/debian-host",
   "compare " QSX_EXAMPLES "/compare/three-alike/*",
   "hypervisor " QSX_EXAMPLES "/esxi-host",
};

class TOtherFormatsTest : public TToolTest
{};

}  // namespace

TEST_F(TOtherFormatsTest, JsonOnStandardOutputIsADocumentALine)
{
   for (const std::string& run : kRuns) {
      const TResult result = Run(run + " -q -o - --format json");
      EXPECT_EQ(0, result.fExitCode) << result.fError;
      std::istringstream lines(result.fOutput);
      std::size_t count = 0;
      std::string line;
      for (; std::getline(lines, line); ++count)
         ASSERT_EQ("", FindSchemaError(line)) << run;
      EXPECT_GT(count, 2u);
   }
   EXPECT_EQ("", List());
}

TEST_F(TOtherFormatsTest, TextFitsATerminal)
{
   for (const std::string& run : kRuns) {
      const TResult result = Run(run + " -q -o - --format text");
      EXPECT_EQ(0, result.fExitCode) << result.fError;
      std::istringstream lines(result.fOutput);
      for (std::string line; std::getline(lines, line);) {
         ASSERT_LE(GetWidth(line), kLineWidth) << line;
         for (const char byte : line)
            ASSERT_GE(static_cast<unsigned char>(byte), 0x20) << line;
      }
      EXPECT_THAT(result.fOutput, HasSubstr("\nReports\n-------\n"));
   }
}

TEST_F(TOtherFormatsTest, AFolderHoldsAFilePerReportAndTheIndex)
{
   const TResult result = Run(kRuns[0] + " -o out --format json --format text");
   EXPECT_EQ(0, result.fExitCode) << result.fError;
   EXPECT_THAT(result.fError, HasSubstr("wrote out/json/index.json"));
   EXPECT_THAT(result.fError, HasSubstr("wrote out/text/index.txt"));
   const TResult files = RunShell(
      "for f in out/json/*.json; do test -s out/text/$(basename $f .json).txt || echo $f; done");
   EXPECT_THAT(files.fOutput, testing::AnyOf("", "out/json/manifest.json\n"));
}

TEST_F(TOtherFormatsTest, StandardOutputTakesOneFormatThatIsOneFile)
{
   EXPECT_THAT(Run(kRuns[1] + " -o -").fError,
               HasSubstr("standard output takes one format: json, text, trace"));
   EXPECT_EQ(2, Run(kRuns[1] + " -o - --format json --format text").fExitCode);
   EXPECT_THAT(Run(kRuns[1] + " -q -o - --format trace").fOutput, HasSubstr("{\"end\":\"ok\"}\n"));
   Write("bad.mof", "class A {");
   const TResult failed = Run("report bad.mof -o - --format json");
   EXPECT_EQ(3, failed.fExitCode);
   EXPECT_EQ("", failed.fOutput);
}
