#include "subjects/Teams.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "TCollected.h"
#include "machine/TMachine.h"
#include "subjects/DeviceStates.h"
#include "text/Text.h"

namespace NZANQSX20 {

namespace {

constexpr const char* kFolder = "/sys/class/net/";
constexpr std::uint64_t kBridge = 100;

constexpr std::uint64_t kPrimary = 1;
constexpr std::uint64_t kStandby = 2;

struct TMember
{
   std::string fName;
   bool fHasLink = true;
};

std::vector<TMember> ReadBondMembers(const TMachine& machine, const std::string& bond)
{
   std::vector<TMember> members;
   const std::string names = machine.ReadLine(bond + "/bonding/slaves");
   for (const std::string_view word : SplitWords(names)) {
      const std::string name(word);
      const std::string link = machine.ReadLine(kFolder + name + "/bonding_slave/mii_status");
      members.push_back({name, link.empty() || link == "up"});
   }
   return members;
}

std::vector<TMember> ReadBridgeMembers(const TMachine& machine, const std::string& bridge)
{
   std::vector<TMember> members;
   for (const std::string& name : machine.List(bridge + "/brif"))
      members.push_back({name, machine.ReadLine(kFolder + name + "/carrier") != "0"});
   return members;
}

/// "active-backup 1" gives 1. Missing: nothing when the file has no number.
std::optional<std::uint64_t> ReadBondMode(const TMachine& machine, const std::string& bond)
{
   const std::string mode = machine.ReadLine(bond + "/bonding/mode");
   return ToNumber(Cut(mode, ' ').second);
}

/// A bond that lost a member still works, without anything in reserve.
std::uint64_t JudgeBond(const std::vector<TMember>& members)
{
   std::size_t downCount = 0;
   for (const TMember& member : members)
      downCount += member.fHasLink ? 0 : 1;
   if (downCount == 0)
      return kStateOk;
   return downCount == members.size() ? kStateError : kStateDegraded;
}

std::vector<std::string> DescribeMembers(const std::vector<TMember>& members)
{
   std::vector<std::string> texts;
   for (const TMember& member : members)
      texts.push_back(member.fHasLink ? member.fName : member.fName + " (no link)");
   return texts;
}

}  // namespace

void AddTeam(const TMachine& machine, TCollected& collected, const TEntry& port,
             const std::string& name)
{
   const std::string folder = kFolder + name;
   const bool isBond = machine.Exists(folder + "/bonding");
   if (!isBond && !machine.Exists(folder + "/bridge"))
      return;
   const std::vector<TMember> members =
      isBond ? ReadBondMembers(machine, folder) : ReadBridgeMembers(machine, folder);
   const std::vector<std::string> texts = DescribeMembers(members);

   TEntry team = collected.Add("ZANSG_VirtualNetworkingGroup");
   team.Set("TeamName", name)
      .Set("TeamType", isBond ? ReadBondMode(machine, folder) : std::optional(kBridge));
   collected.Associate("ZANSG_VirtualNetworkingPortComponent", team, port);
   TEntry group = collected.Add("ZANSG_SpareGroup");
   group.Set("InstanceID", name).Set("Name", texts);
   collected.Associate("ZANSG_VirtualNetworkingRedundancyGroupComponent", team, group);
   if (!isBond || members.empty())
      return;
   std::string list;
   for (const std::string& text : texts)
      list += (list.empty() ? "Members: " : ", ") + text;
   collected.Add("ZANSG_LogicalDevice")
      .Set("DeviceID", "team " + name)
      .Set("DeviceClass", "Network team")
      .Set("ElementName", name)
      .Set("OtherIdentifyingInfo", list)
      .Set("OperationalStatus", std::vector<std::uint64_t>{JudgeBond(members)});
}

void SetTeam(const TMachine& machine, TEntry& port, const std::string& name)
{
   const std::string folder = kFolder + name;
   const std::string team = machine.ReadLinkName(folder + "/master");
   if (team.empty())
      return;
   port.Set("TeamName", team)
      .Set("TeamID", machine.ReadNumber(kFolder + team + "/ifindex"))
      .Set("MemberPriority", machine.ReadNumber(folder + "/brport/priority"));
   // Only a bond with one member at work names that member.
   const std::string active = machine.ReadLine(kFolder + team + "/bonding/active_slave");
   if (!active.empty())
      port.Set("MemberType", active == name ? kPrimary : kStandby);
}

}  // namespace NZANQSX20
