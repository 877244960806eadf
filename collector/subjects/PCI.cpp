#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <fmt/format.h>

#include "TCollected.h"
#include "machine/TMachine.h"
#include "subjects/KernelModules.h"
#include "subjects/PCINames.h"
#include "subjects/PCISlots.h"
#include "subjects/Subjects.h"
#include "text/Text.h"

namespace NZANQSX20 {

namespace {

const TNeed kDevices = {"PCI devices",
                        {"ZANSG_PCIDevice", "ZANSG_PCIBridge", "ZANSG_LogicalDevice"}};

constexpr const char* kFolder = "/sys/bus/pci/devices";

constexpr std::uint64_t kClassBridge = 6;

/// The words of the class codes that say what a device is for, as groups of the device list.
const char* GetDeviceClass(std::uint64_t classCode)
{
   switch (classCode) {
      case 1:
         return "Storage controller";
      case 2:
      case 13:
         return "Network";
      case 3:
         return "Video";
      case 4:
         return "Multimedia";
      case kClassBridge:
         return "Bridge";
      case 12:
         return "Bus controller";
      default:
         return "Other";
   }
}

/// "0x8086" as "8086".
std::string ReadID(const TMachine& machine, const std::string& path)
{
   const std::string text = machine.ReadLine(path);
   return StartsWith(text, "0x") ? text.substr(2) : text;
}

/// The base address ranges of a device, as addresses and lengths.
void SetRanges(const TMachine& machine, const std::string& folder, TEntry& device)
{
   // What follows are the windows of bridges and virtual functions.
   constexpr std::size_t kRangeCount = 6;
   std::vector<std::string> addresses;
   std::vector<std::string> lengths;
   const std::string text = machine.Read(folder + "/resource").fText;
   std::vector<std::string_view> lines = SplitLines(text);
   if (lines.size() > kRangeCount)
      lines.resize(kRangeCount);
   for (const std::string_view line : lines) {
      const std::vector<std::string_view> words = SplitWords(line);
      const auto begin = words.size() < 2 ? std::nullopt : ToNumber(words[0]);
      const auto end = words.size() < 2 ? std::nullopt : ToNumber(words[1]);
      if (!begin || !end || *end <= *begin)
         continue;
      addresses.push_back(fmt::format("{:#x}", *begin));
      lengths.push_back(fmt::format("{:#x}", *end - *begin + 1));
   }
   device.Set("IOAddress", addresses).Set("IOLength", lengths);
}

/// Missing: nothing for interrupt 0, which stands for none.
std::optional<std::uint64_t> ReadIRQ(const TMachine& machine, const std::string& folder)
{
   const auto irq = machine.ReadNumber(folder + "/irq");
   return irq == std::uint64_t{0} ? std::nullopt : irq;
}

struct TPCIDevice
{
   std::string fAddress;
   std::string fDescription;
   std::string fManufacturer;
   std::uint64_t fClassCode = 0;

   std::string GetFolder() const { return kFolder + ('/' + fAddress); }
};

/// The same device among all devices of the machine.
void AddLogicalDevice(const TMachine& machine, TCollected& collected, const TPCIDevice& told,
                      const TEntry& element)
{
   const std::string folder = told.GetFolder();
   const std::string driver = machine.ReadLinkName(folder + "/driver");
   TEntry device = collected.Add("ZANSG_LogicalDevice");
   device.Set("DeviceID", told.fAddress)
      .Set("DeviceClass", GetDeviceClass(told.fClassCode))
      .Set("ElementName", told.fDescription)
      .Set("Manufacturer", told.fManufacturer)
      .Set("OtherIdentifyingInfo", driver.empty() ? driver : "Driver " + driver)
      .Set("Location", "PCI " + told.fAddress);
   collected.Associate("ZANSG_DeviceIdentity", element, device);
   AssociateModule(machine, collected, device, folder);
}

void AddDevice(const TMachine& machine, TCollected& collected, const std::string& address,
               const TPCIName& name, TPCISlots& slots)
{
   TPCIDevice told = {address, name.Describe(), name.fVendor};
   const std::string folder = told.GetFolder();
   const std::string vendor = ReadID(machine, folder + "/vendor");
   const std::string product = ReadID(machine, folder + "/device");
   if (told.fDescription.empty())
      told.fDescription = "Device " + vendor + ':' + product;
   told.fClassCode = machine.ReadNumber(folder + "/class").value_or(0) >> 16;

   const bool isBridge = told.fClassCode == kClassBridge;
   TEntry element = collected.Add(isBridge ? "ZANSG_PCIBridge" : "ZANSG_PCIDevice");
   element.Set("DeviceID", address)
      .Set("ClassCode", told.fClassCode)
      .Set("Description", told.fDescription);
   if (isBridge) {
      element.Set("Location", "PCI " + address);
   } else {
      element.Set("PciDeviceID", product)
         .Set("VendorID", vendor)
         .Set("IRQ", ReadIRQ(machine, folder));
      SetRanges(machine, folder, element);
   }
   slots.Place(collected, address, element, isBridge);
   AddLogicalDevice(machine, collected, told, element);
}

}  // namespace

void CollectPCI(const TMachine& machine, TCollected& collected)
{
   TPCISlots slots(machine, collected);
   const std::vector<std::string> addresses = machine.List(kFolder);
   if (addresses.empty()) {
      collected.AddGap(kDevices, kFolder, EReason::kNotPresent, "the machine has no PCI bus");
      return;
   }
   TPCINames names = ReadPCINames(machine, collected);
   for (const std::string& address : addresses)
      AddDevice(machine, collected, address, names[address], slots);
}

}  // namespace NZANQSX20
