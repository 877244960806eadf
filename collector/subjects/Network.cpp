#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "TCollected.h"
#include "machine/TMachine.h"
#include "subjects/Addresses.h"
#include "subjects/PCINames.h"
#include "subjects/Routes.h"
#include "subjects/Subjects.h"
#include "subjects/Teams.h"
#include "text/Json.h"
#include "text/KeyValues.h"
#include "text/Text.h"

namespace NZANQSX20 {

namespace {

const TNeed kInterfaces = {"Network interfaces",
                           {"ZANSG_PhysicalNetworkPort", "ZANSG_VirtualNetworkPort"}};
const TNeed kFirmware = {"Firmware of network adapters", {"ZANSG_FirmwareElement"}};
const TNeed kAddresses = {"Network addresses", {"ZANSG_IPProtocolEndpoint"}};

constexpr const char* kFolder = "/sys/class/net/";
constexpr const char* kNoAddress = "00:00:00:00:00:00";

// ARPHRD_ of the kernel, and the link technology that it is.
constexpr std::uint64_t kEthernet = 1;
constexpr std::uint64_t kInfiniband = 32;
constexpr std::uint64_t kTechnologyEthernet = 2;
constexpr std::uint64_t kTechnologyInfiniband = 6;
constexpr std::uint64_t kTechnologyWireless = 11;

enum EPortState : std::uint64_t
{
   kEnabled = 2,
   kDisabled = 3,
   kOffline = 6
};

/// What holds for all interfaces.
struct TNetwork
{
   /// What the tool tells of each interface, by name.
   std::map<std::string, const rapidjson::Value*> fInterfaces;
   TGateways fGateways;
   std::vector<std::string> fNameServers;
   TPCINames fPCINames;
};

const rapidjson::Value& FindInterface(const TNetwork& network, const std::string& name)
{
   static const rapidjson::Value none;
   const auto at = network.fInterfaces.find(name);
   return at == network.fInterfaces.end() ? none : *at->second;
}

/// The values of the lines "keyword value...".
std::vector<std::string> ReadValues(const std::string& text, std::string_view keyword)
{
   std::vector<std::string> values;
   for (const std::string_view line : SplitLines(text)) {
      const std::vector<std::string_view> words = SplitWords(line);
      if (words.size() > 1 && words[0] == keyword)
         values.emplace_back(words[1]);
   }
   return values;
}

/// The servers behind the local resolver, where there is one.
std::vector<std::string> ReadNameServers(const TMachine& machine)
{
   for (const char* path : {"/run/systemd/resolve/resolv.conf", "/etc/resolv.conf"})
      if (const TReading reading = machine.Read(path))
         if (std::vector<std::string> servers = ReadValues(reading.fText, "nameserver");
             !servers.empty())
            return servers;
   return {};
}

std::string ReadDomain(const TMachine& machine)
{
   const std::string text = machine.Read("/etc/resolv.conf").fText;
   for (const char* keyword : {"domain", "search"})
      if (const std::vector<std::string> values = ReadValues(text, keyword);
          !values.empty() && values[0] != ".")
         return values[0];
   return {};
}

std::optional<bool> ReadSwitch(const TMachine& machine, const std::string& path)
{
   const auto number = machine.ReadNumber(path);
   return number ? std::optional<bool>(*number != 0) : std::nullopt;
}

void CollectSettings(const TMachine& machine, TCollected& collected)
{
   collected.Add("ZANSG_IPService")
      .Set("Name", "ip")
      .Set("HostName", machine.ReadLine("/proc/sys/kernel/hostname"))
      .Set("DomainName", ReadDomain(machine))
      .Set("ProxyEnabled", ReadSwitch(machine, "/proc/sys/net/ipv4/conf/all/proxy_arp"))
      .Set("RoutingEnabled", ReadSwitch(machine, "/proc/sys/net/ipv4/ip_forward"));
}

void AddStatistics(const TMachine& machine, TCollected& collected, const TEntry& port,
                   const std::string& name)
{
   struct TCounter
   {
      const char* fProperty;
      const char* fFile;
   };

   constexpr TCounter kCounters[] = {{"RXPackets", "rx_packets"},
                                     {"RXErrors", "rx_errors"},
                                     {"RXDropErrors", "rx_dropped"},
                                     {"RXOverrunErrors", "rx_over_errors"},
                                     {"RXFrameErrors", "rx_frame_errors"},
                                     {"TXPackets", "tx_packets"},
                                     {"TXErrors", "tx_errors"},
                                     {"TXDropErrors", "tx_dropped"},
                                     {"TXOverrunErrors", "tx_fifo_errors"},
                                     {"TXCarrierErrors", "tx_carrier_errors"},
                                     {"Collisions", "collisions"},
                                     {"RXBytes", "rx_bytes"},
                                     {"TXBytes", "tx_bytes"}};
   const std::string folder = kFolder + name + "/statistics/";
   TEntry statistics = collected.Add("ZANSG_NetworkStatisticalData");
   statistics.Set("InstanceID", name);
   for (const TCounter& counter : kCounters)
      statistics.Set(counter.fProperty, machine.ReadNumber(folder + counter.fFile));
   collected.Associate("ZANSG_NetworkPortStatistics", port, statistics);
}

bool IsLoopback(const TMachine& machine, const std::string& folder)
{
   constexpr std::uint64_t kLoopback = 772;
   return machine.ReadNumber(folder + "/type") == kLoopback;
}

std::optional<std::uint64_t> ReadTechnology(const TMachine& machine, const std::string& folder)
{
   const auto type = machine.ReadNumber(folder + "/type");
   if (type == kInfiniband)
      return kTechnologyInfiniband;
   if (type != kEthernet)
      return std::nullopt;
   return machine.Exists(folder + "/wireless") ? kTechnologyWireless : kTechnologyEthernet;
}

std::optional<std::uint64_t> ReadState(const TMachine& machine, const std::string& folder)
{
   constexpr std::uint64_t kUp = 0x1;
   const auto flags = machine.ReadNumber(folder + "/flags");
   if (!flags)
      return std::nullopt;
   if ((*flags & kUp) == 0)
      return kDisabled;
   // An interface that is down has no carrier to be read.
   return machine.ReadLine(folder + "/carrier") == "0" ? kOffline : kEnabled;
}

/// "1 Gb Full". Units: the speed in megabits a second.
std::string FormatSpeed(std::optional<std::uint64_t> speed, std::string duplex)
{
   constexpr std::uint64_t kThousand = 1000;
   if (!speed)
      return {};
   const bool isWhole = *speed >= kThousand && *speed % kThousand == 0;
   std::string text =
      isWhole ? std::to_string(*speed / kThousand) + " Gb" : std::to_string(*speed) + " Mb";
   if (duplex == "full")
      text += " Full";
   else if (duplex == "half")
      text += " Half";
   return text;
}

std::string ReadDriver(const TMachine& machine, const std::string& folder)
{
   const std::string driver = machine.ReadLinkName(folder + "/device/driver");
   if (driver.empty())
      return {};
   const std::string module = machine.ReadLinkName(folder + "/device/driver/module");
   const std::string version = machine.ReadLine("/sys/module/" + module + "/version");
   return version.empty() ? driver : driver + ' ' + version;
}

/// The address of the PCI device that the interface belongs to, "0000:02:00.0"; a virtual adapter
/// has a bus of its own in between. Missing: empty for one on another bus.
std::string FindPCIAddress(const TMachine& machine, const TNetwork& network,
                           const std::string& folder)
{
   std::string device = machine.Resolve(folder + "/device");
   for (; device.size() > 1; device.resize(device.rfind('/')))
      if (const std::string name = device.substr(device.rfind('/') + 1);
          network.fPCINames.count(name) != 0)
         return name;
   return {};
}

/// What the interface is: the name that its user gave it, or else its device's, or plain words.
std::string Describe(const TMachine& machine, const TNetwork& network, const std::string& folder,
                     const rapidjson::Value& interface)
{
   if (std::string alias = machine.ReadLine(folder + "/ifalias"); !alias.empty())
      return alias;
   if (const auto name = network.fPCINames.find(FindPCIAddress(machine, network, folder));
       name != network.fPCINames.end())
      return name->second.Describe();
   if (IsLoopback(machine, folder))
      return "Loopback";
   if (machine.Exists(folder + "/bonding"))
      return "Bond";
   if (machine.Exists(folder + "/bridge"))
      return "Bridge";
   const std::string kind = GetText(GetMember(interface, "linkinfo"), "info_kind");
   return kind == "vlan" ? "VLAN" : kind;
}

void SetAddress(const TMachine& machine, TEntry& port, const std::string& folder,
                const rapidjson::Value& interface)
{
   const std::string address = machine.ReadLine(folder + "/address");
   if (address.empty() || address == kNoAddress)
      return;
   // Told only where it differs: a bond gives its members the address of one of them.
   const std::string permanent = GetText(interface, "permaddr");
   port.Set("PermanentAddress", permanent.empty() ? address : permanent)
      .Set("NetworkAddresses", std::vector<std::string>{address});
}

TEntry AddPort(const TMachine& machine, TCollected& collected, const TNetwork& network,
               const std::string& name, bool isPhysical)
{
   const std::string folder = kFolder + name;
   const rapidjson::Value& interface = FindInterface(network, name);
   const auto speed = machine.ReadNumber(folder + "/speed");
   TEntry port =
      collected.Add(isPhysical ? "ZANSG_PhysicalNetworkPort" : "ZANSG_VirtualNetworkPort");
   port.Set("DeviceID", name)
      .Set("Name", name)
      .Set("Description", Describe(machine, network, folder, interface))
      .Set("LinkTechnology", ReadTechnology(machine, folder))
      .Set("Speed", speed)
      .Set("speedDuplex", FormatSpeed(speed, machine.ReadLine(folder + "/duplex")))
      .Set("ActiveMaximumTransmissionUnit", machine.ReadNumber(folder + "/mtu"))
      .Set("EnabledState", ReadState(machine, folder))
      .Set("DriverLoaded", ReadDriver(machine, folder));
   SetAddress(machine, port, folder, interface);
   if (!IsLoopback(machine, folder))
      SetDHCP(machine, port, name, interface);
   if (const auto gateways = network.fGateways.find(name); gateways != network.fGateways.end())
      // The servers are the machine's; they stand with the ways that lead to them.
      port.Set("GatewayList", gateways->second).Set("DnsServers", network.fNameServers);
   AddEndpoint(collected, port, name, interface);
   return port;
}

/// The level of an adapter's own firmware, tied to the adapter.
void AddFirmware(const TMachine& machine, TCollected& collected, const std::string& name)
{
   const std::string address = machine.ReadLinkName(kFolder + name + "/device");
   const auto device = collected.Find("ZANSG_LogicalDevice.DeviceID=\"" + address + '"');
   // A virtual adapter has none, and a name like an option is not for a tool.
   if (!device || StartsWith(name, "-"))
      return;
   const TReading reading = machine.RunTool("ethtool", {"-i", name});
   if (!collected.Has(reading, kFirmware))
      return;
   const std::string_view version = TKeyValues(reading.fText).Get("firmware-version");
   if (version.empty() || version == "N/A")
      return;
   TEntry firmware = collected.Add("ZANSG_FirmwareElement");
   firmware.Set("Name", "Network adapter " + name).Set("Version", version);
   collected.Associate("ZANSG_DeviceFirmware", firmware, *device);
}

void AddInterface(const TMachine& machine, TCollected& collected, const TNetwork& network,
                  const std::string& name)
{
   const bool isPhysical = machine.Exists(kFolder + name + "/device");
   TEntry port = AddPort(machine, collected, network, name, isPhysical);
   if (isPhysical) {
      AddStatistics(machine, collected, port, name);
      SetTeam(machine, port, name);
      AddFirmware(machine, collected, name);
      return;
   }
   const rapidjson::Value& link = GetMember(FindInterface(network, name), "linkinfo");
   if (GetText(link, "info_kind") == "vlan")
      port.Set("VLANID", GetNumber(GetMember(link, "info_data"), "id"));
   AddTeam(machine, collected, port, name);
}

}  // namespace

void CollectNetwork(const TMachine& machine, TCollected& collected)
{
   CollectSettings(machine, collected);
   TNetwork network;
   network.fGateways = CollectRoutes(machine, collected);
   network.fNameServers = ReadNameServers(machine);
   network.fPCINames = ReadPCINames(machine, collected);

   const TReading reading = machine.RunTool("ip", {"-j", "-d", "addr", "show"});
   const rapidjson::Document addresses = ParseJson(reading.fText);
   if (collected.Has(reading, kAddresses))
      for (const rapidjson::Value& interface : GetElements(addresses))
         network.fInterfaces.emplace(GetText(interface, "ifname"), &interface);

   const std::vector<std::string> names = machine.List(kFolder);
   if (names.empty())
      collected.AddGap(kInterfaces, kFolder, EReason::kNotPresent);
   for (const std::string& name : names)
      // Other names in the folder belong to the bonding driver.
      if (machine.Exists(kFolder + name + "/ifindex"))
         AddInterface(machine, collected, network, name);
}

}  // namespace NZANQSX20
