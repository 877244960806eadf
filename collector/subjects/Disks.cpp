#include <optional>
#include <set>
#include <string>
#include <vector>

#include "TCollected.h"
#include "subjects/Arrays.h"
#include "subjects/DeviceStates.h"
#include "subjects/Drives.h"
#include "subjects/KernelModules.h"
#include "subjects/Subjects.h"
#include "text/Text.h"

namespace NZANQSX20 {

namespace {

constexpr std::uint64_t kMegabyte = std::uint64_t{1} << 20;

enum EPartitionType : std::uint64_t
{
   kPrimary = 1,
   kExtended = 2,
   kLogical = 3
};

/// Missing: nothing when the scheme of the drive isn't known.
std::optional<std::uint64_t> GetPartitionType(const TDrive& drive, const TPartition& partition)
{
   constexpr std::uint64_t kFirstLogical = 5;
   if (drive.fScheme == "gpt")
      return kPrimary;
   if (drive.fScheme != "dos")
      return std::nullopt;
   const std::string& code = partition.fTypeCode;
   if (code == "0x5" || code == "0xf" || code == "0x85")
      return kExtended;
   return partition.fNumber >= kFirstLogical ? kLogical : kPrimary;
}

/// The devices that a redundant array is made of.
std::set<std::string> FindRedundant(const std::vector<TArray>& arrays)
{
   std::set<std::string> names;
   for (const TArray& array : arrays)
      if (array.IsRedundant())
         for (const TArrayMember& member : array.fMembers)
            names.insert(member.fName);
   return names;
}

void AddPartition(TCollected& collected, const TEntry& disk, const TDrive& drive,
                  const TPartition& partition, const std::set<std::string>& redundant)
{
   TEntry entry = collected.Add("ZANSG_DiskPartition");
   entry.Set("DeviceID", "/dev/" + partition.fName)
      .Set("PartitionType", GetPartitionType(drive, partition))
      .Set("PartitionSubType", partition.fKind)
      .Set("Size", partition.fSize / kMegabyte)
      .Set("StartingOffset", partition.fStart);
   // What a controller does below the drive isn't seen from here: no partition is told to have
   // no redundancy.
   if (redundant.count(partition.fName) != 0)
      entry.Set("FaultTolerant", true);
   collected.Associate("ZANSG_PartitionPresent", disk, entry);
}

/// Missing: a drive that tells its level elsewhere is left to the firmware subject.
void AddFirmware(TCollected& collected, const TDrive& drive, const TEntry& device)
{
   if (drive.fFirmware.empty() || StartsWith(drive.fName, "nvme"))
      return;
   TEntry firmware = collected.Add("ZANSG_FirmwareElement");
   firmware.Set("Name", drive.fKind + ' ' + drive.GetPath())
      .Set("Manufacturer", drive.fVendor)
      .Set("Version", drive.fFirmware);
   collected.Associate("ZANSG_DeviceFirmware", firmware, device);
}

/// Missing: empty when the system doesn't tell.
std::vector<std::uint64_t> GetStates(const TDrive& drive)
{
   if (drive.fState.empty())
      return {};
   const bool works = drive.fState == "running" || drive.fState == "live";
   const bool isBroken =
      drive.fState == "offline" || drive.fState == "dead" || drive.fState == "transport-offline";
   return {works ? kStateOk : isBroken ? kStateError : kStateUnknown};
}

/// Drives of one model differ by their path.
std::string NameDrive(const TDrive& drive)
{
   return drive.fModel.empty() ? drive.GetPath() : drive.GetPath() + ", " + drive.fModel;
}

void AddDevice(const TMachine& machine, TCollected& collected, const TDrive& drive)
{
   TEntry device = collected.Add("ZANSG_LogicalDevice");
   device.Set("DeviceID", drive.GetPath())
      .Set("DeviceClass", "Drive")
      .Set("ElementName", NameDrive(drive))
      .Set("Manufacturer", drive.fVendor)
      .Set("SerialNumber", drive.fSerialNumber)
      .Set("OtherIdentifyingInfo", drive.fKind)
      .Set("Location", drive.fLocation)
      .Set("OperationalStatus", GetStates(drive));
   AddFirmware(collected, drive, device);
   AssociateModule(machine, collected, device, "/sys/block/" + drive.fName + "/device");
}

void AddDrive(const TMachine& machine, TCollected& collected, const TDrive& drive,
              const std::set<std::string>& redundant)
{
   const std::string path = drive.GetPath();
   TEntry disk = collected.Add("ZANSG_MediaAccessDevice");
   disk.Set("DeviceID", path)
      .Set("Name", NameDrive(drive))
      .Set("DiskType", drive.fKind)
      .Set("Size", drive.fSize / kMegabyte)
      .Set("NoOfPartitions", drive.fPartitions.size());
   for (const TPartition& partition : drive.fPartitions)
      AddPartition(collected, disk, drive, partition, redundant);
   AddDevice(machine, collected, drive);
}

void AddArray(TCollected& collected, const TArray& array)
{
   const std::string path = "/dev/" + array.fName;
   collected.Add("ZANSG_MediaAccessDevice")
      .Set("DeviceID", path)
      .Set("Name", path + ", " + array.GetLevelName())
      .Set("DiskType", array.GetLevelName())
      .Set("Size", array.fSize / kMegabyte)
      .Set("NoOfPartitions", array.fPartitionCount);
   collected.Add("ZANSG_LogicalDevice")
      .Set("DeviceID", path)
      .Set("DeviceClass", "RAID array")
      .Set("ElementName", array.fName + " (" + array.GetLevelName() + ')')
      .Set("OtherIdentifyingInfo", array.Describe())
      .Set("OperationalStatus", array.GetStates());
}

}  // namespace

void CollectDisks(const TMachine& machine, TCollected& collected)
{
   const std::vector<TArray> arrays = ReadArrays(machine);
   const std::set<std::string> redundant = FindRedundant(arrays);
   for (const TDrive& drive : ReadDrives(machine, collected))
      AddDrive(machine, collected, drive, redundant);
   for (const TArray& array : arrays)
      AddArray(collected, array);
}

}  // namespace NZANQSX20
