#include "TCollected.h"
#include "machine/TMachine.h"
#include "subjects/Subjects.h"

namespace NZANQSX20 {

namespace {

const TNeed kSerialNumbers = {"Serial numbers of the machine",
                              {"ZANSG_ComputerSystem", "ZANSG_Card"}};

/// A file of the board's own description. Only root may read the serial numbers.
std::string ReadIdentity(const TMachine& machine, TCollected& collected, const std::string& name)
{
   const std::string path = "/sys/class/dmi/id/" + name;
   if (const TReading reading = machine.Read(path);
       !collected.HasIfPresent(reading, kSerialNumbers))
      return {};
   return machine.ReadLine(path);
}

}  // namespace

void CollectComputerSystem(const TMachine& machine, TCollected& collected)
{
   const auto identity = [&](const char* name) { return ReadIdentity(machine, collected, name); };
   const std::string host = machine.ReadLine("/proc/sys/kernel/hostname");
   collected.Add("ZANSG_ComputerSystem")
      .Set("Name", host.empty() ? machine.ReadLine("/etc/hostname") : host)
      .Set("Manufacturer", identity("sys_vendor"))
      .Set("ProductName", identity("product_name"))
      .Set("Version", identity("product_version"))
      .Set("SerialNumber", identity("product_serial"))
      .Set("UUID", identity("product_uuid"));
   if (!machine.Exists("/sys/class/dmi/id/board_name"))
      return;
   collected.Add("ZANSG_Card")
      .Set("Tag", "System board")
      .Set("CardType", "System board")
      .Set("Manufacturer", identity("board_vendor"))
      .Set("Model", identity("board_name"))
      .Set("Version", identity("board_version"))
      .Set("SerialNumber", identity("board_serial"));
}

}  // namespace NZANQSX20
