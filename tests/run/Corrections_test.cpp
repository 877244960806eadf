#include <gmock/gmock.h>

#include "run/TReport.h"
#include "support/MakeStore.h"
#include "writer/StoreWalk.h"

using testing::ElementsAre;

namespace {

/// A collection and what it reads after a correction.
class TCorrected
{
public:
   explicit TCorrected(const std::string& mof) : fNamespace(MakeNamespace(mof)) {}

   template <typename... Arguments>
   TCorrected& Apply(void (TReport::*correct)(Arguments...), Arguments... arguments)
   {
      TReport report(fNamespace, {}, "out");
      (report.*correct)(arguments...);
      return *this;
   }

   /// The values of a property of all instances, in the store's order.
   std::vector<std::string> Read(const std::string& className, const std::string& property) const
   {
      std::vector<std::string> values;
      for (const auto& instance : FindInstances(fNamespace, className))
         values.push_back(instance->GetProperty(property, {})->GetValue({}).ToString(10));
      return values;
   }

private:
   boost::shared_ptr<ICIMNamespace> fNamespace;
};

constexpr const char* kSlots = R"(
class ZANSG_SystemSlot { [Key] uint16 Number; uint16 CurrentUsage; };
class ZANSG_PCIDevice { [Key] string DeviceID; uint8 UINumber; };
instance of ZANSG_SystemSlot { Number = 1; CurrentUsage = 3; };
instance of ZANSG_SystemSlot { Number = 2; };
instance of ZANSG_SystemSlot { Number = 3; CurrentUsage = 3; };
instance of ZANSG_SystemSlot { Number = 258; CurrentUsage = 3; };
)";

constexpr const char* kEventClass =
   "class ZANSG_HeavyHittersLogRecord { [Key] string RecordID; string CreationClassName;"
   " string LogName; string LogCreationClassName; string Message; datetime MessageTimestamp; };";

std::string MakeRecord(const std::string& className, const std::string& message)
{
   static int number = 0;
   return "instance of " + className + " { RecordID = \"" + std::to_string(++number) +
          "\"; Message = \"" + message + "\"; };";
}

constexpr const char* kTLMClass = "class ZANSG_TLMlog { [Key] string RecordID; string Message; };";
constexpr const char* kIPMIClass =
   "class ZANSG_IPMILogRecord { [Key] string RecordID; string Message; };";
constexpr const char* kAddedMessage =
   "Hard drive (possibly RAID drive) removal detected. Check Corvane or TLM Event or IPMI Event  "
   "for more infomation.";

constexpr const char* kMemoryClasses = R"(
class ZANSG_SPDData { [Key] string Tag; string BankLabel; uint16 MemoryType; string Manufacturer;
   string PartNumber; string SerialNumber; };
class ZANSG_IPMIFRU { [Key] string Name; string Vendor; string PartNumber; string SerialNumber; };
)";

std::string MakeModule(const std::string& tag, const std::string& bank, const std::string& more)
{
   return "instance of ZANSG_SPDData { Tag = \"" + tag + "\"; BankLabel = \"" + bank + "\";" +
          more + " };";
}

}  // namespace

TEST(Corrections, ASlotIsInUseWhoseNumberADeviceTells)
{
   // Of the devices, one has no number; 258 doesn't fit the byte that is read of it.
   TCorrected corrected(std::string(kSlots) + R"(
instance of ZANSG_PCIDevice { DeviceID = "none"; };
instance of ZANSG_PCIDevice { DeviceID = "a"; UINumber = 1; };
instance of ZANSG_PCIDevice { DeviceID = "b"; UINumber = 2; };
instance of ZANSG_PCIDevice { DeviceID = "c"; UINumber = 1; };
)");
   corrected.Apply(&TReport::fixPCISlots2);
   // The second slot tells no usage and is left as it is.
   EXPECT_THAT(corrected.Read("ZANSG_SystemSlot", "CurrentUsage"), ElementsAre("4", "", "3", "3"));
}

TEST(Corrections, ASlotIsInUseThatTheStoreJoinsToADevice)
{
   // Only an association class that is a kind of slot matches.
   TCorrected corrected(std::string(kSlots) + R"(
class ZANSG_SlotOfDevice : ZANSG_SystemSlot { ZANSG_SystemSlot REF Slot; ZANSG_PCIDevice REF Device; };
class ZANSG_DeviceInSlot { [Key] ZANSG_SystemSlot REF Slot; [Key] ZANSG_PCIDevice REF Device; };
instance of ZANSG_PCIDevice { DeviceID = "a"; };
instance of ZANSG_SlotOfDevice { Number = 9; CurrentUsage = 1; Slot = "ZANSG_SystemSlot.Number=1"; Device = "ZANSG_PCIDevice.DeviceID=\"a\""; };
instance of ZANSG_DeviceInSlot { Slot = "ZANSG_SystemSlot.Number=3"; Device = "ZANSG_PCIDevice.DeviceID=\"a\""; };
)");
   corrected.Apply(&TReport::fixPCISlots);
   EXPECT_THAT(corrected.Read("ZANSG_SystemSlot", "CurrentUsage"),
               ElementsAre("4", "", "3", "3", "1"));
}

TEST(Corrections, AnEventOfARemovedDriveGetsTheHintOnce)
{
   TCorrected corrected(
      kEventClass +
      MakeRecord("ZANSG_HeavyHittersLogRecord", "GBX: Hard drive 3 removal detected now") +
      MakeRecord("ZANSG_HeavyHittersLogRecord", "Hard drive 4 removal detected"));
   for (int i = 0; i < 2; ++i)
      corrected.Apply(&TReport::fixCriticalDetailforRaidDiskRemoval);
   EXPECT_THAT(
      corrected.Read("ZANSG_HeavyHittersLogRecord", "Message"),
      ElementsAre("GBX: Hard drive 3 (possibly RAID drive) removal detected now Check Corvane or "
                  "TLM Event or IPMI Event  for more infomation.",
                  "Hard drive 4 removal detected"));
}

TEST(Corrections, ALogOfARemovedDriveAddsOneEvent)
{
   for (const std::string& log :
        {kTLMClass + MakeRecord("ZANSG_TLMlog", "Hard drive 1 removal detected") +
            MakeRecord("ZANSG_TLMlog", "Hard drive 2 removal detected"),
         kIPMIClass + MakeRecord("ZANSG_IPMILogRecord",
                                 "Disk or disk bay 4, Assertion: Drive Slot Present")}) {
      TCorrected corrected(kEventClass + log);
      for (int i = 0; i < 2; ++i)
         corrected.Apply(&TReport::fixCriticalDetailforRaidDiskRemoval);
      EXPECT_THAT(corrected.Read("ZANSG_HeavyHittersLogRecord", "Message"),
                  ElementsAre(kAddedMessage));
      EXPECT_THAT(corrected.Read("ZANSG_HeavyHittersLogRecord", "MessageTimestamp"),
                  ElementsAre("20000101010101.000001+001"));
      EXPECT_THAT(corrected.Read("ZANSG_HeavyHittersLogRecord", "RecordID"), ElementsAre("0"));
   }
}

TEST(Corrections, LogsThatTellNoRemovalAddNoEvent)
{
   // The class of the log report is spelled otherwise; a removal without a drive is none.
   TCorrected corrected(
      kEventClass + std::string(kTLMClass) + kIPMIClass +
      "class ZANSG_TLMLog { [Key] string RecordID; string Message; };" +
      MakeRecord("ZANSG_TLMLog", "Hard drive 1 removal detected") +
      MakeRecord("ZANSG_TLMlog", "Fan removal detected") +
      MakeRecord("ZANSG_IPMILogRecord", "Disk or disk bay 4, Drive Slot Present"));
   corrected.Apply(&TReport::fixCriticalDetailforRaidDiskRemoval);
   EXPECT_THAT(corrected.Read("ZANSG_HeavyHittersLogRecord", "Message"), ElementsAre());
}

TEST(Corrections, WithoutTheClassOfEventsTheAssertionIsHeldBack)
{
   TCorrected corrected(kTLMClass + MakeRecord("ZANSG_TLMlog", "Hard drive 1 removal detected"));
   EXPECT_NO_THROW(corrected.Apply(&TReport::fixCriticalDetailforRaidDiskRemoval));
}

TEST(Corrections, AProductNameLosesOneDash)
{
   TCorrected corrected(R"(
class ZANSG_ComputerSystem { [Key] string Name; string ProductName; };
instance of ZANSG_ComputerSystem { Name = "a"; ProductName = "Rack R36 --"; };
instance of ZANSG_ComputerSystem { Name = "b"; ProductName = "Rack-R36"; };
instance of ZANSG_ComputerSystem { Name = "c"; ProductName = ""; };
)");
   corrected.Apply(&TReport::fixProductNameofComputerSystem);
   EXPECT_THAT(corrected.Read("ZANSG_ComputerSystem", "ProductName"),
               ElementsAre("Rack R36 -", "Rack-R36", ""));
}

TEST(Corrections, TheMonitorsOfTheSupervisorAdapterGo)
{
   TCorrected corrected(R"(
class ZANSG_DesktopMonitor { [Key] string Name; };
instance of ZANSG_DesktopMonitor { Name = "ZAN GBX2 video"; };
instance of ZANSG_DesktopMonitor { Name = "GBX2 video"; };
)");
   corrected.Apply(&TReport::fixRedundantMonitorInfo, TContext());
   EXPECT_THAT(corrected.Read("ZANSG_DesktopMonitor", "Name"), ElementsAre("GBX2 video"));
}

TEST(Corrections, MemoryModulesAreFilledFromTheControllersRecords)
{
   TCorrected corrected(std::string(kMemoryClasses) +
                        MakeModule("Node1/a", "Bank3", "MemoryType = 24; PartNumber = \"own\";") +
                        MakeModule("Node2/b", "Bank3", "MemoryType = 24;") +
                        MakeModule("Node1/c", "Bank4", "MemoryType = 22;") + R"(
instance of ZANSG_IPMIFRU { Name = "Power Supply"; Vendor = "none"; };
instance of ZANSG_IPMIFRU { Name = "DIMM 3"; Vendor = "Zander"; PartNumber = "p1"; SerialNumber = "s1"; };
instance of ZANSG_IPMIFRU { Name = "Node 27 DIMM 3"; Vendor = "first"; };
instance of ZANSG_IPMIFRU { Name = "Node 2 DIMM 3"; Vendor = "last"; };
instance of ZANSG_IPMIFRU { Name = "DIMM 4"; Vendor = "Zander"; };
)");
   corrected.Apply(&TReport::fixMemInfo);
   EXPECT_THAT(corrected.Read("ZANSG_SPDData", "Manufacturer"), ElementsAre("Zander", "last", ""));
   EXPECT_THAT(corrected.Read("ZANSG_SPDData", "PartNumber"), ElementsAre("own", "", ""));
   EXPECT_THAT(corrected.Read("ZANSG_SPDData", "SerialNumber"), ElementsAre("s1", "", ""));
}

TEST(Corrections, AMemoryModuleWithAShortBankLabelEndsTheCorrection)
{
   const std::string module = MakeModule("Node1/a", "B3", "MemoryType = 24;");
   EXPECT_THROW(TCorrected(kMemoryClasses + module).Apply(&TReport::fixMemInfo), std::out_of_range);
}
