#include "subjects/PCINames.h"

#include <string_view>

#include "TCollected.h"
#include "machine/TMachine.h"
#include "text/KeyValues.h"
#include "text/Text.h"

namespace NZANQSX20 {

namespace {

const TNeed kNames = {
   "Names of PCI devices",
   {"ZANSG_PCIDevice", "ZANSG_PCIBridge", "ZANSG_LogicalDevice", "ZANSG_VideoController"}};

/// What the tool prints for a number that it has no name for says nothing. "Device 0d57"
std::string TakeName(std::string_view text, std::string_view placeholder)
{
   return StartsWith(text, placeholder) ? std::string() : std::string(text);
}

TPCINames ReadPrintedNames(const std::string& text)
{
   TPCINames names;
   for (const std::string_view block : SplitBlocks(text)) {
      const TKeyValues values(block);
      TPCIName& name = names[std::string(values.Get("Slot"))];
      name.fVendor = TakeName(values.Get("Vendor"), "Vendor ");
      name.fDevice = TakeName(values.Get("Device"), "Device ");
      name.fClass = TakeName(values.Get("Class"), "Class ");
   }
   return names;
}

/// The notes are lines "E:NAME=value".
TPCIName ReadNotedName(const TMachine& machine, const std::string& address)
{
   const std::string text = machine.Read("/run/udev/data/+pci:" + address).fText;
   const TKeyValues values(text, '=');
   return {std::string(values.Get("E:ID_VENDOR_FROM_DATABASE")),
           std::string(values.Get("E:ID_MODEL_FROM_DATABASE")),
           std::string(values.Get("E:ID_PCI_SUBCLASS_FROM_DATABASE"))};
}

}  // namespace

std::string TPCIName::Describe() const
{
   if (fDevice.empty())
      return fVendor.empty() || fClass.empty() ? fClass : fVendor + ' ' + fClass;
   return fVendor.empty() ? fDevice : fVendor + ' ' + fDevice;
}

TPCINames ReadPCINames(const TMachine& machine, TCollected& collected)
{
   const TReading reading = machine.RunTool("lspci", {"-D", "-vmm"});
   if (reading)
      return ReadPrintedNames(reading.fText);
   TPCINames names;
   bool isWhole = true;
   for (const std::string& address : machine.List("/sys/bus/pci/devices")) {
      TPCIName name = ReadNotedName(machine, address);
      if (name.Describe().empty())
         isWhole = false;
      else
         names.emplace(address, std::move(name));
   }
   if (!isWhole)
      collected.Has(reading, kNames);
   return names;
}

}  // namespace NZANQSX20
