#include <algorithm>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "collector/TCollectedTree.h"

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

namespace {

const TCollectedTree& Server()
{
   static const TCollectedTree tree(TFixtureRoot::ReadTree("server-devices"));
   return tree;
}

std::string Device(const std::string& id)
{
   return "ZANSG_LogicalDevice.DeviceID=\"" + id + '"';
}

TEST(CollectNetwork, TellsWhereAPortBelongsAndWhatItLost)
{
   const TCollectedTree& server = Server();
   const std::string eno2 = "ZANSG_PhysicalNetworkPort.DeviceID=\"eno2\"";
   EXPECT_EQ(server.Get(eno2, "TeamName"), "bond0");
   EXPECT_EQ(server.Get(eno2, "TeamID"), "4");
   EXPECT_EQ(server.Get(eno2, "MemberType"), "2");
   EXPECT_EQ(server.Get(eno2, "EnabledState"), "6");
   EXPECT_EQ(server.Get(eno2, "Speed"), "");
   EXPECT_EQ(server.Get(eno2, "Description"), "ZAN 10 Gb adapter");
   // The bond gives both of its members one address.
   EXPECT_EQ(server.Get(eno2, "PermanentAddress"), "02:00:5e:10:00:02");
   EXPECT_EQ(server.Get(Device("team bond0"), "OperationalStatus"), "3");
   EXPECT_EQ(server.Get("ZANSG_FirmwareElement.Name=\"Network adapter eno2\"", "Version"), "7.1");
   EXPECT_EQ(server.Get("ZANSG_SpareGroup.InstanceID=\"bond0\"", "Name"), "eno1,eno2 (no link)");
}

TEST(CollectNetwork, GivesEachPortItsAddressesAndWays)
{
   const TCollectedTree& server = Server();
   const std::string bridge = "ZANSG_VirtualNetworkPort.DeviceID=\"br0\"";
   EXPECT_EQ(server.Get(bridge, "GatewayList"), "192.0.2.1,fe80::1");
   EXPECT_EQ(server.Get(bridge, "DhcpEnabled"), "TRUE");
   EXPECT_EQ(server.Get(bridge, "DhcpServer"), "192.0.2.2");
   EXPECT_EQ(server.Get("ZANSG_VirtualNetworkPort.DeviceID=\"bond0.20\"", "VLANID"), "20");
   EXPECT_EQ(server.Get("ZANSG_IPProtocolEndpoint.Name=\"br0\"", "SubnetMask"),
             "255.255.255.0,255.255.255.128");
   // Neither the machine's own addresses nor multicast are ways to anywhere.
   EXPECT_THAT(server.GetAll("ZANSG_NextHopIPRoute", "DestinationAddress"),
               ElementsAre("0.0.0.0", "192.0.2.0", "2001:db8::", "::"));
}

TEST(CollectDisks, TellsAnArrayThatLostAMember)
{
   const TCollectedTree& server = Server();
   EXPECT_EQ(server.Get(Device("/dev/md0"), "OperationalStatus"), "3");
   EXPECT_EQ(server.Get(Device("/dev/md0"), "OtherIdentifyingInfo"),
             "1 of 2 members missing; sda2: in_sync, sdb2: faulty");
   EXPECT_EQ(server.Get(Device("/dev/sdb"), "OperationalStatus"), "6");
   EXPECT_EQ(server.Get("ZANSG_DiskPartition.DeviceID=\"/dev/sda2\"", "FaultTolerant"), "TRUE");
   EXPECT_EQ(server.Get("ZANSG_DiskPartition.DeviceID=\"/dev/sda1\"", "FaultTolerant"), "");
   EXPECT_EQ(server.Get("ZANSG_ATADevice.DeviceId=\"/dev/sda\"", "serialNum"), "SN-sda");
   EXPECT_THAT(server.GetAll("ZANSG_MediaAccessDevice", "Size"),
               ElementsAre("953292", "1953514", "953869", "953869"));
}

TEST(CollectVolumes, NamesARemoteFileSystemThatDoesNotAnswer)
{
   const TCollectedTree& server = Server();
   EXPECT_EQ(
      server.Get("ZANSG_LogicalDisk.DeviceID=\"/\",OtherIdentifyingInfo=\"/dev/md0\"", "FreeSpace"),
      "40000");
   EXPECT_THAT(server.GetAll("ZANSG_LogicalDisk", "TotalSpace"), ElementsAre("937794", "510", ""));
   EXPECT_THAT(server.GetAll("QSX_NotCollected", "Subject"),
               Contains("Sizes of file systems of other machines"));
}

TEST(CollectDriveHealth, KeepsWhatDrivesTell)
{
   const TCollectedTree& server = Server();
   const std::string attribute = "OMC_IDESMARTAttrib.InstanceID=\"/dev/sda 5\"";
   EXPECT_EQ(server.Get(attribute, "value"), "9");
   EXPECT_EQ(server.Get(attribute, "threshold"), "10");
   EXPECT_EQ(server.Get(attribute, "rawVal"), "1288");
   EXPECT_THAT(server.GetAll("OMC_IDESMARTErrorLog", "smartStatus"), ElementsAre("0", "1"));
   EXPECT_EQ(server.Get(Device("/dev/sda"), "OperationalStatus"), "5");
   const std::string error = "OMC_IDESMARTError.InstanceID=\"/dev/sda 1\"";
   EXPECT_EQ(server.Get(error, "LBAHigh"), "18");
   EXPECT_EQ(server.Get(error, "MessageTimestamp"), "00000846060000.000000:000");
   EXPECT_THAT(server.GetAll("OMC_IDESMARTErrorCmdData", "commandId"),
               ElementsAre("READ FPDMA QUEUED"));
   EXPECT_EQ(server.Get("OMC_IDESMARTAttrib.InstanceID=\"/dev/nvme0 media_errors\"", "rawVal"),
             "0");
   EXPECT_THAT(server.GetAll("QSX_NotCollected", "Detail"),
               Contains("Smartctl open device: /dev/sdb [SAT] failed: No such device"));
}

TEST(CollectSensors, JudgesReadingsByTheChipAndItsLimits)
{
   const TCollectedTree& server = Server();
   const auto sensor = [&](const char* id, const char* property) {
      return server.Get(std::string("CIM_NumericSensor.DeviceID=\"") + id + '"', property);
   };
   EXPECT_EQ(sensor("zboard/fan2", "OperationalStatus"), "3");
   EXPECT_EQ(server.Get(Device("fan zboard/fan2"), "ElementName"), "Rear fan (zboard)");
   EXPECT_EQ(sensor("coretemp coretemp.0/temp1", "UpperThresholdCritical"), "95000");
   EXPECT_EQ(sensor("zboard/curr1", "CurrentReading"), "no such instance");
   EXPECT_EQ(server.Get(Device("sensors zboard"), "ElementName"), "zboard, out of limits: in1");
   EXPECT_EQ(server.Get(Device("sensors zboard"), "OperationalStatus"), "6");
   EXPECT_EQ(sensor("ipmi/Fan 7", "OperationalStatus"), "6");
   EXPECT_EQ(server.Get(Device("ipmi PS2 Status"), "OperationalStatus"), "6");
   EXPECT_THAT(server.GetAll("ZANSG_IPMILogRecord", "MessageTimestamp"),
               ElementsAre("20260421101112.000000+000", ""));
}

TEST(CollectPCI, PutsDevicesIntoTheirPlaces)
{
   const TCollectedTree& server = Server();
   EXPECT_THAT(server.GetAll("ZANSG_DeviceInSlot", "Antecedent"),
               ElementsAre("ZANSG_SystemBoard.Tag=\"Board 0x0029\"",
                           "ZANSG_SystemSlot.Tag=\"Slot 0x0009\""));
   EXPECT_EQ(server.Get("ZANSG_PCIDevice.DeviceID=\"0000:03:00.0\"", "UINumber"), "1");
   const std::string adapter = "ZANSG_PCIDevice.DeviceID=\"0000:02:00.0\"";
   EXPECT_EQ(server.Get(adapter, "IOAddress"), "0x90000000,0x3000");
   EXPECT_EQ(server.Get(adapter, "IOLength"), "0x80000,0x20");
   // Nobody knows its device number, so its kind tells what it is.
   EXPECT_EQ(server.Get("ZANSG_PCIBridge.DeviceID=\"0000:00:1c.0\"", "Description"),
             "ZAN PCI bridge");
}

TEST(CollectLogs, KeepsJournalRecordsApartThatFallTogether)
{
   const TCollectedTree& server = Server();
   EXPECT_THAT(
      server.GetAll("ZANSG_LinuxEventLogRecord", "RecordID"),
      ElementsAre("1776766272000000", "1776766272000001", "1776766272000002", "1776766280000001"));
   EXPECT_THAT(server.GetAll("ZANSG_LinuxEventLogRecord", "Message"), Contains("Fail\\xFF"));
   EXPECT_THAT(server.GetAll("ZANSG_LinuxEventLogRecord", "PerceivedSeverity"),
               ElementsAre("6", "6", "5", "2"));
}

TEST(CollectLogs, ALineKeepsItsRecordWhenOlderOnesAreRotatedAway)
{
   const std::string older = "2026-04-21T10:11:11.000000+02:00 zan a[1]: first\n";
   const std::string newer =
      "2026-04-21T10:11:12.500000+02:00 zan b[2]: second\n"
      "  and its second line\n"
      "2026-04-21T10:11:12.500000+02:00 zan c: third\n"
      "Feb 30 10:11:12 zan d: no such day\n";
   const std::string heading = "== /var/log/syslog\n";
   const TCollectedTree before(heading + older + newer);
   const TCollectedTree after(heading + newer);
   auto ids = before.GetAll("ZANSG_LinuxEventLogRecord", "RecordID");
   ASSERT_EQ(ids.size(), 5u);
   ids.erase(ids.begin());
   EXPECT_EQ(after.GetAll("ZANSG_LinuxEventLogRecord", "RecordID"), ids);
   EXPECT_THAT(after.GetAll("ZANSG_LinuxEventLogRecord", "Message"),
               ElementsAre("second", "  and its second line", "third",
                           "Feb 30 10:11:12 zan d: no such day"));
   EXPECT_THAT(after.GetAll("ZANSG_LinuxEventLogRecord", "MessageTimestamp"),
               ElementsAre("20260421101112.500000+120", "", "20260421101112.500000+120", ""));
}

// A small virtual machine: no tool is installed but those of every system.
constexpr const char* kVirtualMachine = R"(== /sys/class/net/eth0/ifindex
2
== /sys/class/net/eth0/type
1
== /sys/class/net/eth0/flags
0x1003
== /sys/class/net/eth0/device -> ../../../devices/pci0000:00/0000:00:03.0
== /sys/bus/pci/devices/0000:00:03.0 -> ../../../devices/pci0000:00/0000:00:03.0
== /sys/devices/pci0000:00/0000:00:03.0/class
0x020000
== /sys/devices/pci0000:00/0000:00:03.0/vendor
0x5a41
== /sys/devices/pci0000:00/0000:00:03.0/device
0x1000
== /sys/bus/pci/slots/3/address
0000:00:03
== /run/udev/data/+pci:0000:00:03.0
E:ID_MODEL_FROM_DATABASE=Virtual network device
E:ID_VENDOR_FROM_DATABASE=ZAN
== /sys/block/vda/size
2048
== /sys/block/vda/serial
VD-01
\
)";

TEST(CollectMachine, FindsWhatAMachineWithoutToolsTells)
{
   const TCollectedTree machine(kVirtualMachine);
   EXPECT_EQ(machine.Get("ZANSG_PCIDevice.DeviceID=\"0000:00:03.0\"", "Description"),
             "ZAN Virtual network device");
   EXPECT_EQ(machine.Get("ZANSG_SystemSlot.Tag=\"Slot 3\"", "CurrentUsage"), "4");
   EXPECT_EQ(machine.Get(Device("/dev/vda"), "SerialNumber"), "VD-01");
   EXPECT_THAT(machine.GetAll("ZANSG_PhysicalNetworkPort", "EnabledState"), ElementsAre("2"));
   const auto gaps = machine.GetAll("QSX_NotCollected", "Subject");
   for (const char* gap : {"Network addresses", "Drive health", "Sensors of the board",
                           "System logs", "File systems in use", "Slots of the board"})
      EXPECT_THAT(gaps, Contains(gap));
   // The device manager knows them all, and nothing is there to be missed.
   EXPECT_THAT(gaps, Not(Contains("Names of PCI devices")));
   EXPECT_THAT(gaps, Not(Contains("Sensors of the service processor")));
}

TEST(CollectMachine, PassesOverBrokenDeviceFiles)
{
   const TCollectedTree machine(R"(== /sys/class/net/eth0/ifindex
2
== /sys/class/net/eth0/address fifo
== /sys/class/net/eth0/ifalias
Caf\xE9
\
== /proc/net/route sparse
== /sys/class/hwmon/hwmon0/temp1_input sparse
== /sys/class/hwmon/hwmon0/temp2_input
99999999999999999999
== /sys/class/hwmon/hwmon0/temp3_input
-9223372036854775808
== /sys/class/hwmon/hwmon0/power1_input
2147483648000
== /sys/block/sda/size
99999999999999999999
== /sys/block/md0/md/level fifo
== /var/log/syslog fifo
== /var/log/kern.log
Nov 21
)");
   const std::string port = "ZANSG_VirtualNetworkPort.DeviceID=\"eth0\"";
   EXPECT_EQ(machine.Get(port, "Description"), "Caf\\xE9");
   EXPECT_EQ(machine.Get(port, "PermanentAddress"), "");
   // One digit more than the property can hold goes into the power of ten.
   EXPECT_THAT(machine.GetAll("CIM_NumericSensor", "CurrentReading"), ElementsAre("214748364"));
   EXPECT_THAT(machine.GetAll("CIM_NumericSensor", "UnitModifier"), ElementsAre("-2"));
   EXPECT_EQ(machine.Get(Device("/dev/md0"), "OperationalStatus"), "10");
   EXPECT_THAT(machine.GetAll("ZANSG_LinuxEventLogRecord", "Message"), ElementsAre("Nov 21"));
   const auto sources = machine.GetAll("QSX_NotCollected", "Source");
   EXPECT_THAT(sources, Contains("/proc/net/route"));
   EXPECT_THAT(sources, Contains("/var/log/syslog"));
   EXPECT_THAT(sources, Not(Contains("qsxreport")));
}

// A tool of another version, or one that breaks off, costs its own part and nothing else.
TEST(CollectMachine, SurvivesAnyOutputOfTools)
{
   const std::string server = TFixtureRoot::ReadTree("server-devices");
   for (const std::string& garbage :
        {std::string("{\"blockdevices\":[{\"name\":"), std::string(100'000, '['),
         std::string("[{}, null, 7, [{\"addr_info\":{}}]]"), std::string("|||||\n\t\t: = \n"),
         std::string("\\xff\\x00Handle\n\nHandle 0x0, DMI type 9\n")}) {
      std::string tree;
      for (std::size_t at = 0; at < server.size();) {
         const std::size_t next = std::min(server.find("\n== ", at), server.size() - 1) + 1;
         const std::string entry = server.substr(at, next - at);
         const bool isTool = entry.rfind("== /qsxreport-tools/", 0) == 0;
         tree += isTool ? entry.substr(0, entry.find('\n') + 1) + garbage + '\n' : entry;
         at = next;
      }
      const TCollectedTree collected(tree);
      EXPECT_THAT(collected.GetAll("QSX_NotCollected", "Source"), Not(Contains("qsxreport")));
      EXPECT_EQ(collected.Get(Device("/dev/md0"), "OperationalStatus"), "3");
   }
}

}  // namespace
