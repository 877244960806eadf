#include "cli/TToolRun.h"

using testing::HasSubstr;
using testing::Not;

namespace {

constexpr const char* kServer =
   "class ZANSG_ComputerSystem { [Key] string Name; };\n"
   "instance of ZANSG_ComputerSystem { Name = \"srv1\"; };\n";

class Each : public TToolTest
{
protected:
   Each()
   {
      std::filesystem::create_directories(fFolder + "/all/many");
      Write("all/a.mof", kServer);
      Write("all/a.xml", "<CIM><DECLARATION/></CIM>");
      Write("all/b&c.mof", "class {");
      Write("all/many/1.mof", kServer);
      Write("all/.hidden", "class {");
   }

   bool Exists(const std::string& name) const
   {
      return std::filesystem::exists(fFolder + '/' + name);
   }
};

}  // namespace

TEST_F(Each, OneBadCollectionCostsItsOwnPagesOnly)
{
   const TResult result = Run("report --each all -o out --format trace --jobs 2");
   EXPECT_EQ(5, result.fExitCode);
   EXPECT_EQ("a a~2 fleet-index index.html many", List("out"));
   EXPECT_THAT(result.fError, HasSubstr("error: b&c.mof: all/b&c.mof:1:7: expected"));
   EXPECT_THAT(result.fError, HasSubstr("1 of 4 collections have no pages"));
   EXPECT_THAT(Read("out/index.html"), HasSubstr("url=fleet-index/index.html"));
   const std::string index = Read("out/fleet-index/index.html");
   EXPECT_THAT(index, HasSubstr("b&amp;c.mof</th><td>all/b&amp;c.mof:1:7: expected"));
   EXPECT_THAT(index, HasSubstr("<a href=\"../a~2/trace.ndjson\"><bdi>a~2</bdi></a>"));
   EXPECT_THAT(index, Not(HasSubstr(".hidden")));
}

TEST_F(Each, ResumesWhereItStopped)
{
   const std::string each = "report --each all -o out --format trace ";
   Run(each);
   EXPECT_EQ(4, Run(each).fExitCode);
   Write("out/a/trace.ndjson", "kept");
   std::filesystem::remove_all(fFolder + "/out/many");
   Write("all/b&c.mof", kServer);
   EXPECT_EQ(0, Run(each + "--resume").fExitCode);
   EXPECT_EQ("a a~2 b&c fleet-index index.html many", List("out"));
   EXPECT_EQ("kept", Read("out/a/trace.ndjson"));
   EXPECT_EQ(0, Run(each + "--force").fExitCode);
   EXPECT_NE("kept", Read("out/a/trace.ndjson"));
}

TEST_F(Each, AnInterruptStopsTheWorkersAndLeavesNoHalfFolder)
{
   std::string large = kServer;
   for (int i = 0; i < 200'000; ++i)
      large += "instance of ZANSG_ComputerSystem { Name = \"" + std::to_string(i) + "\"; };\n";
   for (const char* name : {"all/c.mof", "all/d.mof", "all/e.mof", "all/f.mof"})
      Write(name, large);
   EXPECT_EQ(128 + SIGTERM,
             RunShell("'" QSX_TOOL "' report --each all -o out --jobs 2 & "
                      "until ls -A out | grep -q qsxreport; do sleep 0.01; done; kill $!; wait $!")
                .fExitCode);
   EXPECT_THAT(List("out"), Not(HasSubstr("qsxreport")));
   EXPECT_FALSE(Exists("out/index.html"));
}

TEST_F(Each, IsAnErrorWithoutAnythingToReport)
{
   EXPECT_EQ(3, Run("report --each none -o out").fExitCode);
   EXPECT_EQ(2, Run("report --each all all/a.mof -o out").fExitCode);
   EXPECT_EQ(2, Run("report all/a.mof --resume -o out").fExitCode);
   EXPECT_FALSE(Exists("out"));
}
