#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace NZANQSX20 {

class TMachine;

struct TArrayMember
{
   /// "sda1"
   std::string fName;
   /// As the kernel tells it: "in_sync", "faulty", "spare".
   std::string fState;
};

/// A software RAID array.
struct TArray
{
   /// "md0"
   std::string fName;
   /// "raid1"; empty for an array that isn't put together.
   std::string fLevel;
   /// "clean", "active", "inactive", "broken"
   std::string fState;
   /// What it is at: "recover", "check"; "idle" most of the time.
   std::string fAction;
   std::uint64_t fMemberCount = 0;
   /// How many of its members are missing or don't work.
   std::uint64_t fMissingCount = 0;
   /// Units: bytes.
   std::uint64_t fSize = 0;
   std::uint64_t fPartitionCount = 0;
   std::vector<TArrayMember> fMembers;

   /// "RAID 1"
   std::string GetLevelName() const;
   /// Whether it can lose a member and not its data.
   bool IsRedundant() const;
   /// EDeviceState; an array at work on itself has two states.
   std::vector<std::uint64_t> GetStates() const;
   /// "1 of 2 members missing; sda1: in_sync, sdb1: faulty"
   std::string Describe() const;
};

std::vector<TArray> ReadArrays(const TMachine& machine);

}  // namespace NZANQSX20
