#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <regex>
#include <set>

#include "TToolRun.h"
#include "formats/json/JsonSchema.h"

namespace {

using testing::HasSubstr;
using testing::Not;

class Report : public TToolTest
{};

/// A machine with trouble, a gap, a correction and reports of every kind of emptiness.
constexpr const char* kMachine = R"(
   class ZANSG_OperatingSystem { [Key] string Name; string ProductVendor; uint16 OSType; };
   instance of ZANSG_OperatingSystem { Name = "Linux"; ProductVendor = "ZAN"; OSType = 36; };
   class ZANSG_ComputerSystem { [Key] string Name; string ProductName; };
   instance of ZANSG_ComputerSystem { Name = "zander"; ProductName = "Server R1 -"; };
   class ZANSG_LogicalDisk { [Key] string DeviceID; string FileSystemName;
      [Units("Bytes")] uint64 FreeSpace; [Units("Bytes")] uint64 TotalSpace; };
   instance of ZANSG_LogicalDisk { DeviceID = "/srv"; FileSystemName = "ext4"; FreeSpace = 5; TotalSpace = 100; };
   class ZANSG_FirmwareElement { [Key] string Name; string Version; };
   instance of ZANSG_FirmwareElement { Name = "<Brandt>"; Version = "1.2"; };
   class ZANSG_LinuxKernelModule { [Key] string Name; };
   class ZANSG_InstalledRPM { [Key] string ProductName; };
   class OMC_ATADevice { [Key] string DeviceID; };
   class QSX_NotCollected { [Key] string Subject; [Key] string Source;
      [ValueMap {"1"}, Values {"not installed"}] uint16 Reason; string Detail; string Classes[]; };
   instance of QSX_NotCollected { Subject = "Drive health"; Source = "/usr/sbin/smartctl"; Reason = 1;
      Classes = {"OMC_ATADevice"}; };)";

TEST_F(Report, TellsWhatIsWrongWhatIsMissingAndWhatWasRepaired)
{
   Write("a.mof", kMachine);
   ASSERT_EQ(Run("report a.mof -o out").fExitCode, 0);
   const std::string page = Read("out/index.html");
   EXPECT_THAT(page, HasSubstr("Volume /srv is 95\u00A0% full."));
   EXPECT_THAT(page, HasSubstr("Kernel Modules</th><td>no data</td>"));
   EXPECT_THAT(page, HasSubstr("Qlogic</th><td>not collected</td>"));
   EXPECT_THAT(page, HasSubstr("Drive Health</th><td>not collected</td>")) << "declared, and a gap";
   EXPECT_THAT(page, HasSubstr("id=\"not-collected\""));
   const std::string corrections = Read("out/corrections.html");
   EXPECT_THAT(corrections, HasSubstr("<td>Server R1 -</td><td>Server R1 </td>"));
   EXPECT_THAT(corrections, HasSubstr("behind which no machine type was known"));
}

TEST_F(Report, TheManifestTellsTheVerdictAndIsTheSameEachTime)
{
   Write("a.mof", kMachine);
   ASSERT_EQ(Run("report a.mof -o out && '" QSX_TOOL "' report a.mof -o again").fExitCode, 0);
   const std::string manifest = Read("out/manifest.json");
   EXPECT_EQ(manifest, Read("again/manifest.json"));
   for (const char* text :
        {"\"kind\": \"report\"", "\"name\": \"zander\"", "\"verdict\": \"attention\"",
         "\"name\": \"<Brandt>\"", "\"version\": \"1.2\"", "\"notCollected\": 1",
         "\"corrections\": 1", "\"file\": \"a.mof\"", "\"xxh3\": \""})
      EXPECT_THAT(manifest, HasSubstr(text));
   EXPECT_THAT(manifest, Not(HasSubstr(fFolder))) << "no path of this machine";
   EXPECT_EQ("", FindSchemaError(manifest, ReadSchema(QSX_MANIFEST_SCHEMA)));
}

/// The addresses within the folder that the pages link to.
std::set<std::string> FindLinks(const std::string& page)
{
   const std::regex link("href=\"([^\":]+\\.html(#[^\"]*)?)\"");
   std::set<std::string> links;
   for (std::sregex_iterator at(page.begin(), page.end(), link), end; at != end; ++at)
      links.insert((*at)[1]);
   return links;
}

TEST_F(Report, EveryLinkOfTheFrontPageLeadsSomewhere)
{
   ASSERT_EQ(Run("report " QSX_EXAMPLES "/windows-server -o out").fExitCode, 0);
   unsigned cells = 0;
   for (const std::string& link : FindLinks(Read("out/index.html"))) {
      const std::size_t hash = link.find('#');
      const std::string file = link.substr(0, hash);
      const std::string page = Read("out/" + file);
      EXPECT_FALSE(page.empty()) << link;
      if (hash == std::string::npos)
         continue;
      cells += link.find("-c") != std::string::npos;
      EXPECT_THAT(page, HasSubstr(" id=\"" + link.substr(hash + 1) + "\"")) << link;
   }
   EXPECT_GT(cells, 5u) << "findings lead to cells";
}

}  // namespace
