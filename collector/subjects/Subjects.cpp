#include "subjects/Subjects.h"

namespace NZANQSX20 {

const std::vector<TSubject>& GetSubjects()
{
   static const std::vector<TSubject> subjects = {
      // System
      {"Computer system", CollectComputerSystem},
      {"Operating system", CollectOperatingSystem},
      {"Users", CollectAccounts},
      {"Configuration", CollectConfiguration},
      {"Kernel modules", CollectKernelModules},
      {"Packages", CollectPackages},
      {"Services", CollectServices},
      {"Processes", CollectProcesses},
      {"Performance", CollectPerformance},
      // Hardware
      {"Processors", CollectProcessors},
      {"Memory", CollectMemory},
      {"Video", CollectVideo},
      // Devices
      {"PCI bus", CollectPCI},
      {"Network", CollectNetwork},
      {"USB bus", CollectUSB},
      {"Disks", CollectDisks},
      {"SCSI and ATA devices", CollectBusDevices},
      {"Optical drives", CollectOpticalDrives},
      {"File systems", CollectVolumes},
      {"Drive health", CollectDriveHealth},
      {"Sensors", CollectSensors},
      {"Power supplies", CollectPowerSupplies},
      {"Service processor", CollectServiceProcessor},
      {"Logs", CollectLogs},
      // Firmware refers to devices.
      {"Firmware", CollectFirmware},
   };
   return subjects;
}

}  // namespace NZANQSX20
