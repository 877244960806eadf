#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "catalogue/TReportParametersBuilder.h"
#include "comparison/TDeltaRepository.h"
#include "html/THtmlWriter.h"
#include "support/MakeStore.h"
#include "support/TTemporaryFolder.h"

namespace {

using testing::HasSubstr;
using testing::Not;

std::string MakeSystem(const std::string& serial, const std::string& processes)
{
   return R"(
      class ZANSG_ComputerSystem { [Key] string Name; string SerialNumber; };
      class ZANSG_Process { [Key] string Handle; string Name; string User; uint32 Priority; };
      class ZANSG_InstalledRPM { [Key] string ProductName; string ProductVersion; };
      instance of ZANSG_InstalledRPM { ProductName = "bash"; ProductVersion = "5.2"; };
      instance of ZANSG_ComputerSystem { Name = "srv"; SerialNumber = ")" +
          serial + "\"; };" + processes;
}

}  // namespace

TEST(SameItems, TheWholeOfAReportStandsBehindASwitch)
{
   const std::string same = R"(
      instance of ZANSG_Process { Handle = "1"; Name = "init"; Priority = 1; };
      instance of ZANSG_Process { Handle = "2"; Name = "kthreadd"; Priority = 2; };)";
   NZANQSX20::TDeltaRepository repository({MakeStore(MakeSystem("S1", same + R"(
          instance of ZANSG_Process { Handle = "3"; Name = "cron"; Priority = 3; };)")),
                                           MakeStore(MakeSystem("S2", same + R"(
          instance of ZANSG_Process { Handle = "3"; Name = "cron"; Priority = 4; };)"))});
   repository.FindDifferences({});
   const auto cimNamespace = repository.Open();
   TReportParametersBuilder builder(cimNamespace, "default", false);

   TTemporaryFolder folder;
   THtmlWriter writer{THtmlOptions()};
   writer.BaseInitialize(cimNamespace, {{"nNamespaces", static_cast<unsigned short>(2)}});
   writer.Initialize(cimNamespace, {}, folder.GetPath());
   writer.BeginIndexGroup("Software");
   writer.WriteGenericDeltaReport(builder.BuildProcessesParams());
   writer.WriteGenericDeltaReport(builder.BuildInstalledRPMParams());
   writer.EndIndex();

   const std::string page = folder.Read("processes.html");
   const std::size_t whole = page.find("<div class=\"everywhere\">");
   ASSERT_NE(std::string::npos, whole);
   EXPECT_THAT(page, HasSubstr("<p class=\"page-meta\">1 differs, 2 the same.</p>"));
   EXPECT_THAT(page, HasSubstr("class=\"only-differs\" checked> Only what differs</label>"));
   EXPECT_THAT(page.substr(0, whole), Not(HasSubstr("kthreadd")));
   EXPECT_THAT(page.substr(whole), HasSubstr("kthreadd"));
   EXPECT_THAT(page.substr(whole), Not(HasSubstr("cron")));

   EXPECT_THAT(folder.Read("index.html"),
               HasSubstr("Identical on all systems: <a href=\"installed_packages.html\">"));
   EXPECT_THAT(folder.Read("installed_packages.html"),
               HasSubstr("class=\"only-differs\"> Only what differs</label>"))
      << "where nothing differs, the whole is shown from the start";
}
