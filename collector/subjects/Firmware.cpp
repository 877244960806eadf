#include <array>

#include "TCollected.h"
#include "machine/TMachine.h"
#include "subjects/Subjects.h"
#include "text/DMIRecords.h"
#include "text/Text.h"

namespace NZANQSX20 {

namespace {

constexpr const char* kDescription = "/sys/class/dmi/id/";

/// Devices of a class of /sys, and the file of each that holds its level.
struct TFirmwareSource
{
   const char* fClass;
   const char* fFile;
   /// What the device is called before its own name.
   const char* fKind;
};

constexpr std::array kSources = {
   TFirmwareSource{"nvme", "firmware_rev", "NVMe drive"},
   TFirmwareSource{"infiniband", "fw_ver", "InfiniBand adapter"},
   TFirmwareSource{"scsi_host", "fw_version", "Storage adapter"},
   TFirmwareSource{"scsi_host", "fwrev", "Storage adapter"},
   TFirmwareSource{"scsi_host", "version_fw", "Storage adapter"},
   TFirmwareSource{"fc_host", "firmware_version", "Fibre Channel adapter"},
};

/// "MM/DD/YYYY"
std::optional<TCIMDateTime> ReadDate(std::string_view text)
{
   const auto parts = Split(text, '/');
   if (parts.size() != 3)
      return std::nullopt;
   const auto month = ToNumber(parts[0]);
   const auto day = ToNumber(parts[1]);
   const auto year = ToNumber(parts[2]);
   if (!month || !day || !year || *month < 1 || *month > 12 || *day < 1 || *day > 31 ||
       *year < 1980 || *year > 9999)
      return std::nullopt;
   return TCIMDateTime(static_cast<unsigned short>(*year), static_cast<unsigned short>(*month),
                       static_cast<unsigned>(*day), 0, 0, 0, 0, 0);
}

void AddBIOS(const TMachine& machine, TCollected& collected)
{
   const auto read = [&](const char* name) {
      const std::string text = machine.ReadLine(std::string(kDescription) + name);
      return IsFiller(text) ? std::string() : text;
   };
   const std::string version = read("bios_version");
   const std::string vendor = read("bios_vendor");
   if (version.empty() && vendor.empty())
      return;
   const bool isUEFI = machine.Exists("/sys/firmware/efi");
   collected.Add("CIM_BIOSElement")
      .Set("Name", (vendor.empty() ? "" : vendor + ' ') + (isUEFI ? "UEFI" : "BIOS"))
      .Set("Manufacturer", vendor)
      .Set("BuildNumber", read("bios_release"))
      .Set("Version", version)
      .Set("ReleaseDate", ReadDate(read("bios_date")));
   if (const std::string controller = read("ec_firmware_release"); !controller.empty())
      collected.Add("ZANSG_FirmwareElement")
         .Set("Name", "Embedded controller")
         .Set("Version", controller);
}

/// The same in all processors of a machine, as the kernel sees to it.
void AddMicrocode(const TMachine& machine, TCollected& collected)
{
   const std::string version = machine.ReadLine("/sys/devices/system/cpu/cpu0/microcode/version");
   if (!version.empty())
      collected.Add("ZANSG_FirmwareElement")
         .Set("Name", "Processor microcode")
         .Set("Version", version);
}

/// Service processors that the kernel talks to over IPMI.
void AddServiceProcessors(const TMachine& machine, TCollected& collected)
{
   constexpr const char* kDevices = "/sys/bus/platform/devices/";
   for (const std::string& name : machine.List(kDevices)) {
      if (!StartsWith(name, "ipmi_bmc"))
         continue;
      const std::string version = machine.ReadLine(kDevices + name + "/firmware_revision");
      if (!version.empty())
         collected.Add("ZANSG_FirmwareElement")
            .Set("Name", "Service processor " + name)
            .Set("Manufacturer", machine.ReadLine(kDevices + name + "/manufacturer_id"))
            .Set("Version", version);
   }
}

/// The device that a driver's own folder stands for: the one on the bus above it.
void AssociateDevice(const TMachine& machine, TCollected& collected, const TEntry& firmware,
                     const std::string& folder)
{
   std::string device = machine.Resolve(folder + "/device");
   for (; device.size() > 1; device.resize(device.rfind('/'))) {
      const std::string name = device.substr(device.rfind('/') + 1);
      if (const auto known = collected.Find("CIM_LogicalDevice.DeviceID=\"" + name + '"'))
         return collected.Associate("ZANSG_DeviceFirmware", firmware, *known);
   }
}

void AddDevices(const TMachine& machine, TCollected& collected)
{
   for (const TFirmwareSource& source : kSources) {
      const std::string folder = std::string("/sys/class/") + source.fClass + '/';
      for (const std::string& name : machine.List(folder)) {
         const std::string version = machine.ReadLine(folder + name + '/' + source.fFile);
         const std::string title = std::string(source.fKind) + ' ' + name;
         // Drivers of one class name the file in several ways.
         if (version.empty() || collected.Find("ZANSG_FirmwareElement.Name=\"" + title + '"'))
            continue;
         TEntry firmware = collected.Add("ZANSG_FirmwareElement");
         firmware.Set("Name", title).Set("Version", version);
         AssociateDevice(machine, collected, firmware, folder + name);
      }
   }
}

}  // namespace

void CollectFirmware(const TMachine& machine, TCollected& collected)
{
   AddBIOS(machine, collected);
   AddMicrocode(machine, collected);
   AddServiceProcessors(machine, collected);
   AddDevices(machine, collected);
}

}  // namespace NZANQSX20
