#include <gtest/gtest.h>

#include "catalogue/TReportParametersBuilder.h"
#include "support/MakeStore.h"

namespace {

TReportParametersBuilder MakeBuilder(const std::string& mof)
{
   return {MakeNamespace(mof), "default", false};
}

constexpr const char* kSystemClass =
   "class ZANSG_OperatingSystem { [Key] string Name; string ProductVendor; uint16 OSType; };";

std::string MakeSystem(const std::string& name, const std::string& vendor, int osType)
{
   return "instance of ZANSG_OperatingSystem { Name = \"" + name + "\"; ProductVendor = \"" +
          vendor + "\"; OSType = " + std::to_string(osType) + "; };";
}

constexpr const char* kEventClass =
   "class ZANSG_WindowsSystemEventLogRecord { [Key] uint32 RecordID; };";

const std::string kTwoSystems =
   kSystemClass + MakeSystem("a", "Other", 36) + MakeSystem("b", "Other", 36);

struct TOSTypeCase
{
   const char* fReason;
   std::string fMOF;
   int fOSType;
};

const TOSTypeCase kOSTypeCases[] = {
   {"no class", "", 4},
   {"no instance and no event class", kSystemClass, 4},
   {"two instances, no event record", kTwoSystems + kEventClass, 4},
   {"two instances, an event record",
    kTwoSystems + kEventClass + "instance of ZANSG_WindowsSystemEventLogRecord { RecordID = 1; };",
    0},
   {"last of the older Windows", kSystemClass + MakeSystem("a", "Microsoft Corp.", 73), 0},
   {"first of the later Windows", kSystemClass + MakeSystem("a", "Microsoft Corp.", 74), 1},
   {"the vendor comes before the type", kSystemClass + MakeSystem("a", "Microsoft", 36), 0},
   {"Linux of any vendor", kSystemClass + MakeSystem("a", "Zander", 36), 2},
   {"ESX", kSystemClass + MakeSystem("a", "", 78), 3},
   {"a type that nobody knows", kSystemClass + MakeSystem("a", "Zander", 5), 4},
   {"no type", kSystemClass + std::string("instance of ZANSG_OperatingSystem { Name = \"a\"; };"),
    4},
   {"no such property",
    "class ZANSG_OperatingSystem { [Key] string Name; };"
    "instance of ZANSG_OperatingSystem { Name = \"a\"; };",
    4},
};

std::string MakePort(const std::string& name, const std::string& team)
{
   return "instance of ZANSG_PhysicalNetworkPort { DeviceID = \"" + name + "\";" + team + " };";
}

}  // namespace

TEST(Probes, TellTheOperatingSystem)
{
   for (const TOSTypeCase& osTypeCase : kOSTypeCases)
      EXPECT_EQ(osTypeCase.fOSType, MakeBuilder(osTypeCase.fMOF).GetOSType()) << osTypeCase.fReason;
}

TEST(Probes, RedHatIsToldByTheVendorOfTheOneSystem)
{
   EXPECT_TRUE(MakeBuilder(kSystemClass + MakeSystem("a", "Red Hat, Inc.", 36)).IsRedHat());
   EXPECT_FALSE(MakeBuilder(kSystemClass + MakeSystem("a", "Zander", 36)).IsRedHat());
   EXPECT_FALSE(MakeBuilder(kTwoSystems).IsRedHat());
   EXPECT_FALSE(MakeBuilder("").IsRedHat());
}

TEST(Probes, MultiNodeIsToldByTheMachineType)
{
   const std::string system =
      "class ZANSG_ComputerSystem { [Key] string MachineType; };"
      "instance of ZANSG_ComputerSystem { MachineType = ";
   EXPECT_TRUE(MakeBuilder(system + "\"5310\"; };").IsMultiNode());
   EXPECT_TRUE(MakeBuilder(system + "\"6426\"; };").IsMultiNodeforBeaconPanel());
   EXPECT_FALSE(MakeBuilder(system + "\"53100\"; };").IsMultiNode());
   // The lookup fails.
   EXPECT_FALSE(MakeBuilder("").IsMultiNode());
}

TEST(Probes, TheLastHarborSystemDecidesAndAFailureKeepsWhatWasRead)
{
   const std::string harbor =
      "class ZANSG_SP_HarborSystem { [Key] string Name; boolean HarborPresent; };"
      "instance of ZANSG_SP_HarborSystem { Name = \"a\"; HarborPresent = TRUE; };";
   EXPECT_FALSE(MakeBuilder("").IsHarbor());
   EXPECT_TRUE(MakeBuilder(harbor).IsHarbor());
   EXPECT_FALSE(
      MakeBuilder(harbor +
                  "instance of ZANSG_SP_HarborSystem { Name = \"b\"; HarborPresent = FALSE; };")
         .IsHarbor());
   // The second system has no value to read.
   EXPECT_TRUE(
      MakeBuilder(harbor + "instance of ZANSG_SP_HarborSystem { Name = \"b\"; };").IsHarbor());
}

TEST(Probes, ATeamNeedsItsNameAndItsNumberOnOnePort)
{
   const std::string port =
      "class ZANSG_PhysicalNetworkPort { [Key] string DeviceID; string TeamName; string TeamID; };";
   EXPECT_FALSE(
      MakeBuilder(port + MakePort("a", "TeamName = \"t\";") + MakePort("b", "TeamID = \"1\";"))
         .HasTeamInfo());
   EXPECT_TRUE(
      MakeBuilder(port + MakePort("a", "") + MakePort("b", "TeamName = \"t\"; TeamID = \"1\";"))
         .HasTeamInfo());
   EXPECT_FALSE(
      MakeBuilder("class ZANSG_PhysicalNetworkPort { [Key] string DeviceID; };" + MakePort("a", ""))
         .HasTeamInfo());
   EXPECT_FALSE(MakeBuilder("").HasTeamInfo());
}

TEST(Probes, TheVersionIsThreeAndOneCharacter)
{
   const std::string product =
      "class ZANSG_QSXProduct { [Key] string Version; };"
      "instance of ZANSG_QSXProduct { Version = ";
   EXPECT_EQ("3.2", MakeBuilder(product + "\"7.20.1\"; };").GetDataSourceVersion());
   EXPECT_EQ("3.", MakeBuilder("").GetDataSourceVersion());
}
