#include "subjects/Drives.h"

#include <algorithm>
#include <map>
#include <string_view>

#include "TCollected.h"
#include "machine/TMachine.h"
#include "text/Json.h"
#include "text/Text.h"

namespace NZANQSX20 {

namespace {

const TNeed kDrives = {"Types of partitions and serial numbers of drives",
                       {"ZANSG_DiskPartition", "ZANSG_LogicalDevice"}};

constexpr const char* kFolder = "/sys/block/";
/// The kernel counts in these, whatever the drive does. Units: bytes.
constexpr std::uint64_t kSector = 512;

/// What the tool tells of a block device, by name.
using TBlockDevices = std::map<std::string, const rapidjson::Value*>;

const rapidjson::Value& FindDevice(const TBlockDevices& devices, const std::string& name)
{
   static const rapidjson::Value none;
   const auto at = devices.find(name);
   return at == devices.end() ? none : *at->second;
}

/// Devices of memory, of files and of others; arrays and optical drives have their own subjects.
bool IsDrive(const std::string& name)
{
   constexpr const char* kOthers[] = {"loop", "ram", "zram", "dm-", "md", "sr", "fd", "nbd"};
   return std::none_of(std::begin(kOthers), std::end(kOthers),
                       [&](const char* other) { return StartsWith(name, other); });
}

std::uint64_t ReadBytes(const TMachine& machine, const std::string& path)
{
   return machine.ReadNumber(path).value_or(0) * kSector;
}

std::vector<TPartition> ReadPartitions(const TMachine& machine, const std::string& drive,
                                       const TBlockDevices& devices)
{
   std::vector<TPartition> partitions;
   for (const std::string& name : machine.List(kFolder + drive)) {
      const std::string folder = kFolder + drive + '/' + name;
      const auto number = machine.ReadNumber(folder + "/partition");
      if (!number)
         continue;
      const rapidjson::Value& device = FindDevice(devices, name);
      TPartition partition;
      partition.fName = name;
      partition.fNumber = *number;
      partition.fStart = ReadBytes(machine, folder + "/start");
      partition.fSize = ReadBytes(machine, folder + "/size");
      partition.fKind = GetText(device, "parttypename");
      partition.fTypeCode = GetText(device, "parttype");
      partitions.push_back(std::move(partition));
   }
   return partitions;
}

/// "0:0:1:0" for ".../target0:0:1/0:0:1:0". Missing: empty for a drive that is on no such bus.
std::string ReadSCSIAddress(const TMachine& machine, const std::string& device)
{
   const std::string name = machine.ReadLinkName(device);
   return std::count(name.begin(), name.end(), ':') == 3 ? name : std::string();
}

void SetNVMe(const TMachine& machine, const std::string& device, TDrive& drive)
{
   drive.fKind = "NVMe drive";
   drive.fSerialNumber = machine.ReadLine(device + "/serial");
   drive.fFirmware = machine.ReadLine(device + "/firmware_rev");
   if (const std::string address = machine.ReadLine(device + "/address"); !address.empty())
      drive.fLocation = "PCI " + address;
}

void SetSCSI(const TMachine& machine, const std::string& device, TDrive& drive)
{
   const std::string address = ReadSCSIAddress(machine, device);
   drive.fVendor = machine.ReadLine(device + "/vendor");
   drive.fFirmware = machine.ReadLine(device + "/rev");
   drive.fKind = "Disk";
   if (!address.empty()) {
      drive.fLocation = "SCSI " + address;
      drive.fKind = "SCSI disk";
   }
   // The name that every drive behind the adapter carries, and nobody's.
   if (drive.fVendor == "ATA") {
      drive.fVendor.clear();
      drive.fKind = "SATA disk";
   }
}

TDrive ReadDrive(const TMachine& machine, const std::string& name, const TBlockDevices& devices)
{
   const std::string device = kFolder + name + "/device";
   const rapidjson::Value& told = FindDevice(devices, name);
   TDrive drive;
   drive.fName = name;
   drive.fModel = machine.ReadLine(device + "/model");
   drive.fState = machine.ReadLine(device + "/state");
   drive.fSize = ReadBytes(machine, kFolder + name + "/size");
   drive.fScheme = GetText(told, "pttype");
   if (StartsWith(name, "nvme"))
      SetNVMe(machine, device, drive);
   else if (StartsWith(name, "vd"))
      drive.fKind = "Virtual disk";
   else
      SetSCSI(machine, device, drive);
   if (drive.fSerialNumber.empty())
      drive.fSerialNumber = GetText(told, "serial");
   if (drive.fSerialNumber.empty())
      drive.fSerialNumber = machine.ReadLine(kFolder + name + "/serial");
   drive.fPartitions = ReadPartitions(machine, name, devices);
   return drive;
}

/// The tool nests what lies on a device below it.
void AddDevices(const rapidjson::Value& list, TBlockDevices& devices, int depth = 0)
{
   constexpr int kDeepest = 16;
   for (const rapidjson::Value& device : GetElements(list)) {
      devices.emplace(GetText(device, "name"), &device);
      if (depth < kDeepest)
         AddDevices(GetMember(device, "children"), devices, depth + 1);
   }
}

}  // namespace

std::vector<TDrive> ReadDrives(const TMachine& machine, TCollected& collected)
{
   const TReading reading =
      machine.RunTool("lsblk", {"-J", "-b", "-o", "NAME,PTTYPE,PARTTYPE,PARTTYPENAME,SERIAL"});
   const rapidjson::Document told = ParseJson(reading.fText);
   TBlockDevices devices;
   if (collected.Has(reading, kDrives))
      AddDevices(GetMember(told, "blockdevices"), devices);

   std::vector<TDrive> drives;
   for (const std::string& name : machine.List(kFolder))
      // A drive of no size is an empty slot of a reader.
      if (IsDrive(name) && machine.ReadNumber(kFolder + name + "/size").value_or(0) > 0)
         drives.push_back(ReadDrive(machine, name, devices));
   return drives;
}

}  // namespace NZANQSX20
