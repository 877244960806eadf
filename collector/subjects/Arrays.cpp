#include "subjects/Arrays.h"

#include "machine/TMachine.h"
#include "subjects/DeviceStates.h"
#include "text/Text.h"

namespace NZANQSX20 {

namespace {

constexpr const char* kFolder = "/sys/block/";
constexpr std::string_view kRaid = "raid";

std::vector<TArrayMember> ReadMembers(const TMachine& machine, const std::string& folder)
{
   constexpr std::string_view kMember = "dev-";
   std::vector<TArrayMember> members;
   for (const std::string& name : machine.List(folder))
      if (StartsWith(name, kMember))
         members.push_back(
            {name.substr(kMember.size()), machine.ReadLine(folder + '/' + name + "/state")});
   return members;
}

TArray ReadArray(const TMachine& machine, const std::string& name)
{
   constexpr std::uint64_t kSector = 512;
   const std::string folder = kFolder + name + "/md";
   TArray array;
   array.fName = name;
   array.fLevel = machine.ReadLine(folder + "/level");
   array.fState = machine.ReadLine(folder + "/array_state");
   array.fAction = machine.ReadLine(folder + "/sync_action");
   array.fMemberCount = machine.ReadNumber(folder + "/raid_disks").value_or(0);
   array.fMissingCount = machine.ReadNumber(folder + "/degraded").value_or(0);
   array.fSize = machine.ReadNumber(kFolder + name + "/size").value_or(0) * kSector;
   array.fMembers = ReadMembers(machine, folder);
   for (const std::string& part : machine.List(kFolder + name))
      array.fPartitionCount += machine.Exists(kFolder + name + '/' + part + "/partition") ? 1 : 0;
   return array;
}

}  // namespace

std::string TArray::GetLevelName() const
{
   if (fLevel.empty())
      return "RAID array";
   return StartsWith(fLevel, kRaid) ? "RAID " + fLevel.substr(kRaid.size()) : fLevel;
}

bool TArray::IsRedundant() const
{
   return StartsWith(fLevel, kRaid) && fLevel != "raid0";
}

std::vector<std::uint64_t> TArray::GetStates() const
{
   std::vector<std::uint64_t> states;
   if (fState == "broken" || (fMissingCount > 0 && !IsRedundant()))
      states.push_back(kStateError);
   else if (fState == "inactive" || fState == "clear" || fState.empty())
      states.push_back(kStateStopped);
   else
      states.push_back(fMissingCount > 0 ? kStateDegraded : kStateOk);
   // A check that the system does every month is no repair.
   if (fAction == "recover" || fAction == "resync" || fAction == "repair")
      states.push_back(kStateInService);
   return states;
}

std::string TArray::Describe() const
{
   std::string text = fMissingCount == 0 ? std::to_string(fMemberCount) + " members"
                                         : std::to_string(fMissingCount) + " of " +
                                              std::to_string(fMemberCount) + " members missing";
   for (std::size_t i = 0; i < fMembers.size(); ++i)
      text += (i == 0 ? "; " : ", ") + fMembers[i].fName + ": " + fMembers[i].fState;
   return text;
}

std::vector<TArray> ReadArrays(const TMachine& machine)
{
   std::vector<TArray> arrays;
   for (const std::string& name : machine.List(kFolder))
      if (machine.Exists(kFolder + name + "/md"))
         arrays.push_back(ReadArray(machine, name));
   return arrays;
}

}  // namespace NZANQSX20
