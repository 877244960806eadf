#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "TCollected.h"
#include "machine/TMachine.h"
#include "subjects/Subjects.h"
#include "text/KeyValues.h"
#include "text/Text.h"

namespace NZANQSX20 {

namespace {

constexpr const char* kFolder = "/sys/class/scsi_device/";
/// The serial number page of a unit: four bytes, then the text.
constexpr std::size_t kPageHeader = 4;

/// "/dev/sda". Missing: empty for a unit without a block device.
std::string ReadPath(const TMachine& machine, const std::string& device)
{
   const std::vector<std::string> names = machine.List(device + "/block");
   return names.empty() ? std::string() : "/dev/" + names.front();
}

std::string ReadSerialNumber(const TMachine& machine, const std::string& device)
{
   const TReading page = machine.Read(device + "/vpd_pg80");
   if (!page || page.fText.size() <= kPageHeader)
      return {};
   return std::string(Trim(std::string_view(page.fText).substr(kPageHeader)));
}

/// The kernel puts drives on ATA ports below folders "ata1".
bool IsOnATAPort(const TMachine& machine, const std::string& device)
{
   return machine.Resolve(device).find("/ata") != std::string::npos;
}

void AddATA(const TMachine& machine, TCollected& collected, const std::string& device,
            const std::string& name)
{
   const std::string path = ReadPath(machine, device);
   collected.Add("ZANSG_ATADevice")
      .Set("DeviceId", path.empty() ? name : path)
      .Set("VendorId", machine.ReadLine(device + "/vendor"))
      .Set("ProductId", machine.ReadLine(device + "/model"))
      .Set("serialNum", ReadSerialNumber(machine, device))
      .Set("Revision", machine.ReadLine(device + "/rev"));
}

/// name: host adapter, bus, target and unit, "0:0:1:0".
void AddSCSI(const TMachine& machine, TCollected& collected, const std::string& device,
             const std::string& name)
{
   const std::vector<std::string_view> numbers = Split(name, ':');
   if (numbers.size() != 4)
      return;
   collected.Add("ZANSG_SCSIDevice")
      .Set("DeviceID", name)
      .Set("VendorId", machine.ReadLine(device + "/vendor"))
      .Set("ProductId", machine.ReadLine(device + "/model"))
      .Set("DeviceType", machine.ReadNumber(device + "/type"))
      .Set("serialNum", ReadSerialNumber(machine, device))
      .Set("Revision", machine.ReadLine(device + "/rev"))
      .Set("HostAdapterId", ToNumber(numbers[0]))
      .Set("Bus", ToNumber(numbers[1]))
      .Set("TargetId", ToNumber(numbers[2]))
      .Set("Lun", ToNumber(numbers[3]));
}

}  // namespace

/// A machine without such a bus has nothing that could be missing.
void CollectBusDevices(const TMachine& machine, TCollected& collected)
{
   for (const std::string& name : machine.List(kFolder)) {
      const std::string device = kFolder + name + "/device";
      if (IsOnATAPort(machine, device))
         AddATA(machine, collected, device, name);
      else
         AddSCSI(machine, collected, device, name);
   }
}

/// The kernel's table has a column for each drive:
///
///    drive name:             sr1     sr0
///    Can write CD-R:         0       1
void CollectOpticalDrives(const TMachine& machine, TCollected& collected)
{
   struct TAbility
   {
      const char* fProperty;
      const char* fLine;
   };

   constexpr TAbility kAbilities[] = {{"DvdRomRead", "Can read DVD"},
                                      {"DvdRamWrite", "Can write DVD-RAM"},
                                      {"DvdRWrite", "Can write DVD-R"},
                                      {"CdRwWrite", "Can write CD-RW"},
                                      {"CdRWrite", "Can write CD-R"}};
   const TReading reading = machine.Read("/proc/sys/dev/cdrom/info");
   if (!collected.HasIfPresent(reading, {"Optical drives", {"ZANSG_CDVDDevice"}}))
      return;
   const TKeyValues table(reading.fText);
   const std::vector<std::string_view> names = SplitWords(table.Get("drive name"));
   for (std::size_t i = 0; i < names.size(); ++i) {
      TEntry drive = collected.Add("ZANSG_CDVDDevice");
      drive.Set("DeviceId", "/dev/" + std::string(names[i]));
      for (const TAbility& ability : kAbilities) {
         const std::vector<std::string_view> values = SplitWords(table.Get(ability.fLine));
         if (i < values.size())
            drive.Set(ability.fProperty, values[i] == "1");
      }
   }
}

}  // namespace NZANQSX20
