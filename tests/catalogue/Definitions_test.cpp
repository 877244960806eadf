#include <gmock/gmock.h>

#include <functional>
#include <set>

#include "catalogue/TReportParametersBuilder.h"
#include "services/IPMILan.h"
#include "support/MakeStore.h"

using testing::ElementsAre;
using TBuilder = TReportParametersBuilder;
using TReportClass = TReportParameters::TReportClass;
using TReportProperty = TReportParameters::TReportProperty;

namespace {

using TDefinition = TReportParameters (TBuilder::*)();

constexpr TDefinition kDefinitions[] = {
   &TBuilder::BuildSystemConfigParams,
   &TBuilder::BuildInstalledAppsParams,
   &TBuilder::BuildVmware3iParams,
   &TBuilder::BuildWindowsComponentsParams,
   &TBuilder::BuildSysConfigParams,
   &TBuilder::BuildInstalledRPMParams,
   &TBuilder::BuildInstalledFixesParams,
   &TBuilder::BuildKernelModuleParams,
   &TBuilder::BuildDeviceDriverParams,
   &TBuilder::BuildSystemServiceParams,
   &TBuilder::BuildProcessesParams,
   &TBuilder::BuildResourceUtilizationParams,
   &TBuilder::BuildOSConfigParams,
   &TBuilder::BuildNetworkWithTeamingParams,
   &TBuilder::BuildHardwareInfoParams,
   &TBuilder::BuildPCIInfoParams,
   &TBuilder::BuildFirmwareParams,
   &TBuilder::BuildEmulexParams,
   &TBuilder::BuildQlogicParams,
   &TBuilder::BuildServProcConfigParams,
   &TBuilder::BuildBeaconPanelParams,
   &TBuilder::BuildBISTParams,
   &TBuilder::BuildCELLogParams,
   &TBuilder::BuildTLMLogParams,
   &TBuilder::BuildWRDPLogParams,
   &TBuilder::BuildIPMILogParams,
   &TBuilder::BuildWinAppEventParams,
   &TBuilder::BuildWinSysEventParams,
   &TBuilder::BuildWinSecEventParams,
   &TBuilder::BuildMergeLogParams,
   &TBuilder::BuildFileLoaderParams,
   &TBuilder::BuildPSParams,
   &TBuilder::BuildQSXLogParams,
   &TBuilder::BuildDiagsParams,
   // The other form of the same page.
   &TBuilder::BuildNetworkWithoutTeamingParams,
};

struct TMachine
{
   std::string fVendor = "Other";
   int fOSType = 36;
   std::string fOSVersion = "6.1";
   std::string fMachineType = "1000";
   bool fHarbor = false;
};

constexpr const char* kMultiNodeType = "6423";

boost::shared_ptr<ICIMNamespace> MakeMachine(const TMachine& machine)
{
   return MakeNamespace(R"(
class ZANSG_OperatingSystem { [Key] string Name; string ProductVendor; uint16 OSType; string Version; };
class ZANSG_ComputerSystem { [Key] string Name; string MachineType; };
class ZANSG_SP_HarborSystem { [Key] string Name; boolean HarborPresent; };
instance of ZANSG_OperatingSystem { Name = "os"; ProductVendor = ")" +
                        machine.fVendor + "\"; OSType = " + std::to_string(machine.fOSType) +
                        "; Version = \"" + machine.fOSVersion + R"("; };
instance of ZANSG_ComputerSystem { Name = "server"; MachineType = ")" +
                        machine.fMachineType + R"("; };
instance of ZANSG_SP_HarborSystem { Name = "sp"; HarborPresent = )" +
                        (machine.fHarbor ? "TRUE" : "FALSE") + "; };");
}

/// Gives every definition that a collection can get: all types of systems, in service mode.
void ForEachReport(const std::function<void(const TReportParameters&)>& visit)
{
   for (const TMachine& machine :
        {TMachine{"Microsoft", 73}, TMachine{"Microsoft", 74}, TMachine{"Other", 36},
         TMachine{"Other", 78}, TMachine{"Other", 5}})
      for (const char* machineType : {"1000", kMultiNodeType})
         for (const bool harbor : {false, true}) {
            TMachine variant = machine;
            variant.fMachineType = machineType;
            variant.fHarbor = harbor;
            TBuilder builder(MakeMachine(variant), "mek", harbor);
            for (const TDefinition definition : kDefinitions)
               visit((builder.*definition)());
         }
}

void VisitTables(const std::vector<TReportClass>& tables,
                 const std::function<void(const TReportClass&)>& visit)
{
   for (const TReportClass& table : tables) {
      visit(table);
      VisitTables(table.GetAssociatedClasses(), visit);
   }
}

void ForEachTable(const std::function<void(const TReportClass&)>& visit)
{
   ForEachReport([&](const TReportParameters& report) { VisitTables(report.GetClasses(), visit); });
}

/// "Name 15%" of each column.
std::vector<std::string> ListColumns(const TReportClass& table)
{
   std::vector<std::string> columns;
   for (const TReportProperty& property : table.GetProperties())
      columns.push_back(property.GetProperty() + " " + property.GetColumnWidth());
   return columns;
}

std::vector<std::string> ListLEDColumns(bool harbor, bool multiNode)
{
   TMachine machine;
   machine.fHarbor = harbor;
   machine.fMachineType = multiNode ? kMultiNodeType : "1000";
   return ListColumns(
      TBuilder(MakeMachine(machine), "default", false).BuildBeaconPanelParams().GetClasses()[0]);
}

std::size_t CountMemoryRows(const std::string& osVersion)
{
   TMachine machine;
   machine.fOSVersion = osVersion;
   TBuilder builder(MakeMachine(machine), "default", false);
   return builder.BuildResourceUtilizationParams().GetClasses()[0].GetProperties().size();
}

}  // namespace

TEST(Catalogue, WidthsOfEveryTableAddUpButForOne)
{
   testing::internal::CaptureStdout();
   ForEachTable([](const TReportClass& table) { table.Validate(); });
   std::istringstream lines(testing::internal::GetCapturedStdout());
   std::set<std::string> messages;
   for (std::string line; std::getline(lines, line);)
      messages.insert(line);
   EXPECT_THAT(messages, ElementsAre("Report: columns add to 200% for the Post BIOS VPD report "
                                     "definition (CIM class ZANSG_PostBIOSVPD)"));
}

TEST(Catalogue, EveryAssociationHasItsClassAndItsTarget)
{
   ForEachTable([](const TReportClass& table) {
      EXPECT_EQ(table.HasAssociatedClass(), !table.GetAssociatedClasses().empty());
      for (const TReportClass& subTable : table.GetAssociatedClasses()) {
         EXPECT_NE("", subTable.GetAssocClass()) << subTable.GetClass();
         EXPECT_EQ(subTable.GetClass(), subTable.GetResultClass());
      }
      for (const TReportProperty& property : table.GetProperties()) {
         EXPECT_EQ(property.HasAssociationClass(), property.HasAssociationTarget())
            << property.GetProperty();
         EXPECT_TRUE(property.HasAssociationClass() || !property.HasSecondaryAssociationTarget());
      }
   });
}

TEST(Catalogue, RowsHaveNoWidthOfTheirOwn)
{
   ForEachTable([](const TReportClass& table) {
      // The one row table with a width.
      if (table.GetReportStyle() != TReportClass::kRowStyle || table.GetTitle() == "Current User")
         return;
      for (const TReportProperty& property : table.GetProperties())
         EXPECT_EQ(property.HasAssociationClass() ? "" : "0%", property.GetColumnWidth())
            << property.GetProperty() << " of " << table.GetClass();
   });
}

TEST(Catalogue, LinkNamesDiffer)
{
   std::multiset<std::string> linkNames;
   TBuilder builder(MakeMachine({}), "default", false);
   for (const TDefinition definition : kDefinitions)
      linkNames.insert((builder.*definition)().GetLinkName());
   EXPECT_EQ(2u, linkNames.count("net"));
   linkNames.erase(linkNames.find("net"));
   EXPECT_EQ(linkNames.size(), std::set<std::string>(linkNames.begin(), linkNames.end()).size());
}

TEST(Catalogue, LEDColumnsShareTheWidthByNodesAndUnits)
{
   EXPECT_THAT(ListLEDColumns(true, true),
               ElementsAre("SourceNode 10%", "HarborUnit 10%", "SensorType 30%", "SensorIndex 25%",
                           "CurrentState 25%"));
   EXPECT_THAT(ListLEDColumns(false, true), ElementsAre("SourceNode 20%", "SensorType 30%",
                                                        "SensorIndex 25%", "CurrentState 25%"));
   EXPECT_THAT(ListLEDColumns(true, false), ElementsAre("HarborUnit 20%", "SensorType 30%",
                                                        "SensorIndex 25%", "CurrentState 25%"));
   EXPECT_THAT(ListLEDColumns(false, false),
               ElementsAre("SensorType 34%", "SensorIndex 33%", "CurrentState 33%"));
}

TEST(Catalogue, CountersNeedAnOSVersionThatSortsBehindFive)
{
   EXPECT_EQ(10u, CountMemoryRows("5.0"));
   EXPECT_EQ(20u, CountMemoryRows("5.0.1"));
   // A text, not a number.
   EXPECT_EQ(10u, CountMemoryRows("10.0"));
}

TEST(Catalogue, RawTablesStandInServiceModeAlone)
{
   EXPECT_EQ(1u, TBuilder(MakeMachine({}), "MEK", false).BuildIPMILogParams().GetClasses().size());
   EXPECT_EQ(3u, TBuilder(MakeMachine({}), "mek", false).BuildIPMILogParams().GetClasses().size());
}

TEST(Catalogue, TheIPMILogNamesTheRemoteController)
{
   TBuilder builder(MakeMachine({}), "default", false);
   NZANQSX20::SetIPMILanAddress("10.1.2.3");
   const std::string remote = builder.BuildIPMILogParams().GetReportName();
   NZANQSX20::SetIPMILanAddress("");
   EXPECT_EQ("IPMI Event - Remote BMC 10.1.2.3", remote);
   EXPECT_EQ("IPMI Event", builder.BuildIPMILogParams().GetReportName());
}
