#include <functional>

#include "TCollected.h"
#include "machine/TMachine.h"
#include "subjects/Subjects.h"
#include "text/DMIRecords.h"

namespace NZANQSX20 {

namespace {

const TNeed kSerialNumbers = {"Serial numbers of the machine",
                              {"ZANSG_ComputerSystem", "ZANSG_Card"}};

/// A text of the machine's own description. Only root may read the serial numbers.
std::string ReadIdentity(const TMachine& machine, TCollected& collected, const std::string& name)
{
   const std::string path = "/sys/class/dmi/id/" + name;
   collected.HasIfPresent(machine.Read(path), kSerialNumbers);
   const std::string text = machine.ReadLine(path);
   return IsFiller(text) ? std::string() : text;
}

/// Machines without such a description have a device tree, its texts end with a null byte.
std::string ReadTree(const TMachine& machine, const std::string& name)
{
   return machine.ReadLine("/proc/device-tree/" + name);
}

void AddBoard(TCollected& collected, const std::function<std::string(const char*)>& identity)
{
   collected.Add("ZANSG_Card")
      .Set("Tag", "System board")
      .Set("CardType", "System board")
      .Set("Manufacturer", identity("board_vendor"))
      .Set("Model", identity("board_name"))
      .Set("Version", identity("board_version"))
      .Set("SerialNumber", identity("board_serial"));
}

/// A virtual machine may have neither.
void NameMissingDescription(const TMachine& machine, TCollected& collected)
{
   constexpr const char* kFolder = "/sys/class/dmi/id";
   if (!machine.Exists(kFolder) && !machine.Exists("/proc/device-tree"))
      collected.AddGap({"Maker, model and serial number", {"ZANSG_ComputerSystem", "ZANSG_Card"}},
                       kFolder, EReason::kNotPresent, "the firmware describes no machine");
}

}  // namespace

void CollectComputerSystem(const TMachine& machine, TCollected& collected)
{
   const auto identity = [&](const char* name) { return ReadIdentity(machine, collected, name); };
   const auto either = [](const std::string& first, const std::string& second) {
      return first.empty() ? second : first;
   };
   collected.GetSingle("ZANSG_ComputerSystem")
      .Set("Name",
           either(machine.ReadLine("/proc/sys/kernel/hostname"), machine.ReadLine("/etc/hostname")))
      .Set("Manufacturer", identity("sys_vendor"))
      .Set("ProductName", either(identity("product_name"), ReadTree(machine, "model")))
      .Set("Version", identity("product_version"))
      .Set("SerialNumber", either(identity("product_serial"), ReadTree(machine, "serial-number")))
      .Set("UUID", identity("product_uuid"));
   NameMissingDescription(machine, collected);
   if (machine.Exists("/sys/class/dmi/id/board_name"))
      AddBoard(collected, identity);
}

}  // namespace NZANQSX20
