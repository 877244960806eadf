#include "subjects/Addresses.h"

#include <cstdint>
#include <string_view>
#include <vector>

#include "TCollected.h"
#include "machine/TMachine.h"
#include "text/Json.h"
#include "text/Text.h"

namespace NZANQSX20 {

namespace {

std::string FormatMask(std::uint64_t length)
{
   constexpr std::uint64_t kBits = 32;
   if (length > kBits)
      return {};
   const std::uint64_t mask = (std::uint64_t{0xFFFFFFFF} << (kBits - length)) & 0xFFFFFFFF;
   std::string text;
   for (int shift = 24; shift >= 0; shift -= 8)
      text += (text.empty() ? "" : ".") + std::to_string(mask >> shift & 0xFF);
   return text;
}

/// The server that gave the interface its address, from the files of the usual clients.
std::string ReadDHCPServer(const TMachine& machine, const std::string& name)
{
   constexpr std::string_view kServer = "SERVER_ADDRESS=";
   const std::string index = machine.ReadLine("/sys/class/net/" + name + "/ifindex");
   const TReading lease = machine.Read("/run/systemd/netif/leases/" + index);
   for (const std::string_view line : SplitLines(lease.fText))
      if (StartsWith(line, kServer))
         return std::string(line.substr(kServer.size()));
   std::string server;
   const TReading leases = machine.Read("/var/lib/dhcp/dhclient." + name + ".leases");
   for (const std::string_view line : SplitLines(leases.fText)) {
      // The last lease counts.
      const std::vector<std::string_view> words = SplitWords(line);
      if (words.size() == 3 && words[1] == "dhcp-server-identifier")
         server = words[2].substr(0, words[2].find(';'));
   }
   return server;
}

}  // namespace

void AddEndpoint(TCollected& collected, const TEntry& port, const std::string& name,
                 const rapidjson::Value& interface)
{
   std::vector<std::string> ipv4;
   std::vector<std::string> masks;
   std::vector<std::string> ipv6;
   for (const rapidjson::Value& address : GetElements(GetMember(interface, "addr_info"))) {
      const std::string text = GetText(address, "local");
      const auto length = GetNumber(address, "prefixlen");
      if (text.empty() || !length)
         continue;
      if (GetText(address, "family") == "inet") {
         ipv4.push_back(text);
         masks.push_back(FormatMask(*length));
      } else {
         ipv6.push_back(text + '/' + std::to_string(*length));
      }
   }
   if (ipv4.empty() && ipv6.empty())
      return;
   TEntry endpoint = collected.Add("ZANSG_IPProtocolEndpoint");
   endpoint.Set("Name", name)
      .Set("IPv4Address", ipv4)
      .Set("SubnetMask", masks)
      .Set("IPv6Address", ipv6);
   collected.Associate("ZANSG_PortImplementsEndpoint", port, endpoint);
}

void SetDHCP(const TMachine& machine, TEntry& port, const std::string& name,
             const rapidjson::Value& interface)
{
   bool hasAddress = false;
   bool isDynamic = false;
   for (const rapidjson::Value& address : GetElements(GetMember(interface, "addr_info")))
      if (GetText(address, "family") == "inet") {
         hasAddress = true;
         isDynamic = isDynamic || GetBoolean(address, "dynamic").value_or(false);
      }
   if (!hasAddress)
      return;
   const std::string server = ReadDHCPServer(machine, name);
   port.Set("DhcpEnabled", isDynamic || !server.empty()).Set("DhcpServer", server);
}

}  // namespace NZANQSX20
