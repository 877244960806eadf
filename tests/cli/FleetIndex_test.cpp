#include <fmt/format.h>

#include "cli/TToolRun.h"

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

namespace {

class FleetIndex : public TToolTest
{
protected:
   /// A report of which only the manifest and an empty first page stand there.
   void MakeReport(const std::string& place, const std::string& manifest)
   {
      std::filesystem::create_directories(fFolder + "/all/" + place);
      Write("all/" + place + "/manifest.json", manifest);
      Write("all/" + place + "/index.html", "");
   }

   static std::string MakeManifest(const std::string& name, const std::string& verdict,
                                   const std::string& version)
   {
      return fmt::format(R"({{"manifest": 1, "kind": "report", "verdict": "{1}",
         "machine": {{"name": "{0}", "product": "R1"}}, "findings": {{"failed": {2}}},
         "subsystems": [{{"name": "Memory", "state": "{1}"}}],
         "firmware": [{{"name": "BIOS", "version": "{3}"}}]}})",
                         name, verdict, verdict == "failed" ? 2 : 0, version);
   }

   std::string ReadPage(const std::string& name = "index.html") const
   {
      return Read("all/fleet-index/" + name);
   }
};

}  // namespace

TEST_F(FleetIndex, TellsWhatFailedAndWhatStandsApart)
{
   MakeReport("a", MakeManifest("fine", "ok", "2"));
   MakeReport("deep/below/b", MakeManifest("broken", "failed", "2"));
   MakeReport("c", MakeManifest("old", "ok", "1"));
   MakeReport(".d.qsxreport-1", MakeManifest("unfinished", "ok", "1"));
   ASSERT_EQ(0, Run("fleet-index all").fExitCode);
   const std::string page = ReadPage();
   EXPECT_THAT(page, HasSubstr("1 of 3 machines has failed"));
   EXPECT_THAT(page,
               HasSubstr("<th scope=\"rowgroup\">Memory</th><td class=\"c-finding\">1 failed"));
   EXPECT_THAT(page, HasSubstr("<td class=\"outlier\">1</td><td><a href=\"../c/index.html\">"));
   EXPECT_LT(page.find("deep/below/b/index.html\"><bdi>broken"), page.find("<bdi>fine"));
   EXPECT_THAT(page, Not(HasSubstr("unfinished")));
   EXPECT_THAT(ReadPage("firmware.html"),
               HasSubstr("<td class=\"num\">2 of 3</td><td>common</td>"));
   EXPECT_THAT(ReadPage("rows/1.js"), HasSubstr("old"));
   EXPECT_EQ(0, Run("fleet-index all").fExitCode) << "an index is replaced";
}

TEST_F(FleetIndex, NamesManifestsThatAreNone)
{
   MakeReport("good", MakeManifest("<i>&\\u202e", "ok", "1"));
   MakeReport("cut", R"({"manifest": 1, "kind": "rep)");
   MakeReport("deep", std::string(1'000'000, '['));
   MakeReport("foreign", R"({"name": "another program's"})");
   MakeReport("later", R"({"manifest": 2, "kind": "report"})");
   MakeReport("odd", R"({"manifest": 1, "kind": "report", "machine": [], "verdict": {},
                        "subsystems": [7], "worst": [[]], "firmware": ["x", {"version": 1}]})");
   MakeReport("sparse", "{}");
   std::filesystem::resize_file(fFolder + "/all/sparse/manifest.json", std::uintmax_t{1} << 40);
   MakeReport("wrap", R"({"manifest": 1, "kind": "report", "verdict": "failed",
                         "worst": [{"text": "Broken."}],
                         "findings": {"failed": 18446744073709551615, "attention": 3}})");
   MakeReport("link", "");
   std::filesystem::remove(fFolder + "/all/link/manifest.json");
   std::filesystem::create_symlink("../good/manifest.json", fFolder + "/all/link/manifest.json");
   std::filesystem::create_directories(fFolder + "/all/pipe");
   const TResult result = Run("fleet-index all", "mkfifo all/pipe/manifest.json; timeout 20");
   EXPECT_EQ(5, result.fExitCode);
   EXPECT_THAT(result.fError,
               AllOf(HasSubstr("cut: manifest.json is no JSON: byte"), HasSubstr("deep: "),
                     HasSubstr("foreign: manifest.json is not the manifest of a report"),
                     HasSubstr("later: manifest.json has the version 2"),
                     HasSubstr("link: manifest.json is a link"),
                     HasSubstr("sparse: manifest.json is larger than 4194304 bytes"),
                     HasSubstr("pipe: manifest.json is no regular file")));
   const std::string page = ReadPage();
   EXPECT_THAT(page, AllOf(HasSubstr("&lt;i&gt;&amp;\xEF\xBF\xBD"), HasSubstr("<bdi>odd</bdi>"),
                           HasSubstr("id=\"gaps\""), HasSubstr("<th scope=\"row\">cut</th>"),
                           HasSubstr("Broken. And 2 more."), Not(HasSubstr("<i>"))));
}

TEST_F(FleetIndex, GoesOnOnFurtherPages)
{
   for (int i = 0; i < 251; ++i)
      MakeReport(fmt::format("{:03}", i), MakeManifest(fmt::format("m{:03}", i), "ok", "1"));
   ASSERT_EQ(0, Run("fleet-index all").fExitCode);
   EXPECT_THAT(ReadPage(), HasSubstr("href=\"index~2.html\""));
   EXPECT_THAT(ReadPage(), Not(HasSubstr("m250")));
   EXPECT_THAT(ReadPage("index~2.html"), HasSubstr("id=\"t2-r1\""));
   EXPECT_THAT(ReadPage("rows/1.js"), HasSubstr("\"Machines 251 to 251\""));
}

TEST_F(FleetIndex, ReplacesNothingButAnIndex)
{
   MakeReport("a", MakeManifest("fine", "ok", "2"));
   MakeReport("fleet-index", MakeManifest("a machine of that name", "ok", "2"));
   EXPECT_EQ(4, Run("fleet-index all").fExitCode);
   EXPECT_TRUE(std::filesystem::exists(fFolder + "/all/fleet-index/manifest.json"));
   EXPECT_EQ(3, Run("fleet-index all/a").fExitCode) << "no folder of reports";
   EXPECT_EQ(3, Run("fleet-index none").fExitCode);
   EXPECT_EQ(2, Run("fleet-index").fExitCode);
}
