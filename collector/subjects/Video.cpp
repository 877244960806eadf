#include "TCollected.h"
#include "machine/TMachine.h"
#include "subjects/PCINames.h"
#include "subjects/Subjects.h"
#include "text/EDID.h"
#include "text/Text.h"

namespace NZANQSX20 {

namespace {

constexpr const char* kPCIDevices = "/sys/bus/pci/devices/";
constexpr const char* kConnectors = "/sys/class/drm/";
constexpr std::string_view kDisplayClass = "0x03";

/// ScanMode of a resolution.
constexpr unsigned kInterlaced = 4;
constexpr unsigned kNonInterlaced = 5;

std::string DescribeDate(const TEDID& monitor)
{
   const std::string year = std::to_string(monitor.fYear);
   return monitor.fWeek == 0 ? year : "Week " + std::to_string(monitor.fWeek) + " of " + year;
}

void AddResolutions(TCollected& collected, const TEntry& entry, const std::string& connector,
                    const TEDID& monitor)
{
   for (const TVideoTiming& timing : monitor.fTimings) {
      const std::string size = std::to_string(timing.fWidth) + 'x' +
                               std::to_string(timing.fHeight) + (timing.fIsInterlaced ? "i" : "") +
                               '@' + std::to_string(timing.fRate);
      const TEntry resolution =
         collected.Add("ZANSG_MonitorResolution")
            .Set("SettingID", connector + ' ' + size)
            .Set("HorizontalResolution", timing.fWidth)
            .Set("VerticalResolution", timing.fHeight)
            .Set("RefreshRate", timing.fRate)
            .Set("ScanMode", timing.fIsInterlaced ? kInterlaced : kNonInterlaced);
      collected.Associate("ZANSG_MonitorSetting", entry, resolution);
   }
}

void AddMonitor(const TMachine& machine, TCollected& collected, const std::string& connector,
                const TEDID& monitor)
{
   const std::string folder = kConnectors + connector + '/';
   TEntry entry = collected.Add("ZANSG_DesktopMonitor");
   entry.Set("DeviceID", connector)
      .Set("Name", monitor.fName)
      .Set("MonitorManufacturer", monitor.fManufacturer)
      .Set("ManufacturingDate", DescribeDate(monitor))
      .Set("StatusDescriptions", std::vector<std::string>{machine.ReadLine(folder + "enabled")})
      .Set("DPMSActiveOff", monitor.fActiveOff)
      .Set("DPMSStandby", monitor.fStandby)
      .Set("DPMSSuspend", monitor.fSuspend)
      .Set("EDIDVersion", monitor.fVersion);
   AddResolutions(collected, entry, connector, monitor);
}

/// "card0-HDMI-A-1", where something is plugged in.
void AddHead(const TMachine& machine, TCollected& collected, const TEntry& controller,
             const std::string& connector, std::uint32_t number)
{
   const auto monitor = ReadEDID(machine.Read(kConnectors + connector + "/edid").fText);
   TEntry head = collected.Add("ZANSG_VideoHead");
   head.Set("DeviceID", connector).Set("HeadNumber", number);
   collected.Associate("ZANSG_HeadOfVideoController", controller, head);
   if (!monitor)
      return;
   head.Set("MonitorString", monitor->fName)
      .Set("MinRefreshRate", monitor->fMinRate)
      .Set("MaxRefreshRate", monitor->fMaxRate);
   AddMonitor(machine, collected, connector, *monitor);
}

void AddController(const TMachine& machine, TCollected& collected, const std::string& address,
                   const std::string& name)
{
   const std::string folder = kPCIDevices + address + '/';
   TEntry controller = collected.Add("ZANSG_VideoController");
   controller.Set("DeviceID", address)
      .Set("Name", name)
      .Set("BiosString", machine.ReadLine(folder + "vbios_version"));
   if (const auto memory = machine.ReadNumber(folder + "mem_info_vram_total"))
      controller.Set("VideoRamSize", *memory >> 20);
   std::uint32_t number = 0;
   for (const std::string& card : machine.List(folder + "drm"))
      for (const std::string& connector : machine.List(folder + "drm/" + card))
         if (StartsWith(connector, card + '-')) {
            if (machine.ReadLine(kConnectors + connector + "/status") == "connected")
               AddHead(machine, collected, controller, connector, number);
            ++number;
         }
}

}  // namespace

void CollectVideo(const TMachine& machine, TCollected& collected)
{
   std::vector<std::string> addresses;
   for (const std::string& address : machine.List(kPCIDevices))
      if (StartsWith(machine.ReadLine(kPCIDevices + address + "/class"), kDisplayClass))
         addresses.push_back(address);
   if (addresses.empty())
      return;
   TPCINames names = ReadPCINames(machine, collected);
   for (const std::string& address : addresses)
      AddController(machine, collected, address, names[address].Describe());
}

}  // namespace NZANQSX20
