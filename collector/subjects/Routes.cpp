#include "subjects/Routes.h"

#include <arpa/inet.h>
#include <netinet/in.h>

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

#include "TCollected.h"
#include "machine/TMachine.h"
#include "text/Text.h"

namespace NZANQSX20 {

namespace {

const TNeed kRoutes = {"Network routes", {"ZANSG_NextHopIPRoute"}};

struct TFlag
{
   std::uint64_t fBit;
   char fLetter;
};

// The letters that tools print.
constexpr TFlag kFlags[] = {{0x1, 'U'},  {0x2, 'G'},  {0x4, 'H'},     {0x8, 'R'},
                            {0x10, 'D'}, {0x20, 'M'}, {0x40000, 'A'}, {0x200, '!'}};

constexpr std::uint64_t kReject = 0x200;
constexpr std::uint64_t kAnycast = 0x100000;
constexpr std::uint64_t kLocal = 0x80000000;

std::string FormatFlags(std::uint64_t flags)
{
   std::string text;
   for (const TFlag& flag : kFlags)
      if ((flags & flag.fBit) != 0)
         text += flag.fLetter;
   return text;
}

/// The kernel prints the address as one number of this machine's byte order.
std::string FormatIPv4(std::string_view hex)
{
   const auto number = HexToNumber(hex);
   if (!number)
      return {};
   in_addr address = {};
   address.s_addr = static_cast<in_addr_t>(*number);
   std::array<char, INET_ADDRSTRLEN> text = {};
   return inet_ntop(AF_INET, &address, text.data(), text.size()) == nullptr ? "" : text.data();
}

/// Missing: empty when it is no address of 32 digits.
std::string FormatIPv6(std::string_view hex)
{
   in6_addr address = {};
   if (hex.size() != 2 * sizeof address.s6_addr)
      return {};
   for (std::size_t i = 0; i < sizeof address.s6_addr; ++i) {
      const auto byte = HexToNumber(hex.substr(2 * i, 2));
      if (!byte)
         return {};
      address.s6_addr[i] = static_cast<std::uint8_t>(*byte);
   }
   std::array<char, INET6_ADDRSTRLEN> text = {};
   return inet_ntop(AF_INET6, &address, text.data(), text.size()) == nullptr ? "" : text.data();
}

struct TRoute
{
   std::string fDestination;
   std::string fGateway;
   std::string fMask;
   std::uint64_t fFlags = 0;
   std::optional<std::uint64_t> fMetric;
   std::optional<std::uint64_t> fReferences;
   std::string fInterface;
};

void AddRoute(TCollected& collected, const TRoute& route)
{
   collected.Add("ZANSG_NextHopIPRoute")
      .Set("DestinationAddress", route.fDestination)
      .Set("Gateway", route.fGateway)
      .Set("DestinationMask", route.fMask)
      .Set("Flags", FormatFlags(route.fFlags))
      .Set("RouteMetric", route.fMetric)
      .Set("Ref", route.fReferences)
      .Set("Iface", route.fInterface);
}

void CollectIPv4Routes(const TMachine& machine, TCollected& collected, TGateways& gateways)
{
   constexpr std::size_t kFields = 8;
   const TReading reading = machine.Read("/proc/net/route");
   if (!collected.Has(reading, kRoutes))
      return;
   for (const std::string_view line : SplitLines(reading.fText)) {
      const std::vector<std::string_view> words = SplitWords(line);
      if (words.size() < kFields || words[0] == "Iface")
         continue;
      TRoute route;
      route.fInterface = words[0];
      route.fDestination = FormatIPv4(words[1]);
      route.fGateway = FormatIPv4(words[2]);
      route.fFlags = HexToNumber(words[3]).value_or(0);
      route.fReferences = ToNumber(words[4]);
      route.fMetric = ToNumber(words[6]);
      route.fMask = FormatIPv4(words[7]);
      AddRoute(collected, route);
      if (route.fMask == "0.0.0.0" && route.fGateway != "0.0.0.0")
         gateways[route.fInterface].push_back(route.fGateway);
   }
}

/// Local addresses, multicast and what is refused are no way to anywhere.
bool IsShownIPv6(const TRoute& route)
{
   return (route.fFlags & (kLocal | kAnycast | kReject)) == 0 && !route.fDestination.empty() &&
          !StartsWith(route.fDestination, "ff00:");
}

void CollectIPv6Routes(const TMachine& machine, TCollected& collected, TGateways& gateways)
{
   constexpr std::size_t kFields = 10;
   const TReading reading = machine.Read("/proc/net/ipv6_route");
   if (!collected.HasIfPresent(reading, kRoutes))
      return;
   for (const std::string_view line : SplitLines(reading.fText)) {
      const std::vector<std::string_view> words = SplitWords(line);
      const auto length = words.size() < kFields ? std::nullopt : HexToNumber(words[1]);
      if (!length)
         continue;
      TRoute route;
      route.fDestination = FormatIPv6(words[0]);
      route.fMask = '/' + std::to_string(*length);
      route.fGateway = FormatIPv6(words[4]);
      route.fMetric = HexToNumber(words[5]);
      route.fReferences = HexToNumber(words[6]);
      route.fFlags = HexToNumber(words[8]).value_or(0);
      route.fInterface = words[9];
      if (!IsShownIPv6(route))
         continue;
      AddRoute(collected, route);
      if (*length == 0 && route.fGateway != "::")
         gateways[route.fInterface].push_back(route.fGateway);
   }
}

}  // namespace

TGateways CollectRoutes(const TMachine& machine, TCollected& collected)
{
   TGateways gateways;
   CollectIPv4Routes(machine, collected, gateways);
   CollectIPv6Routes(machine, collected, gateways);
   return gateways;
}

}  // namespace NZANQSX20
