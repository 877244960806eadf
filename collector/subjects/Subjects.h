#pragma once

#include <vector>

namespace NZANQSX20 {

class TCollected;
class TMachine;

/// One part of a machine: what the user reads while it is collected, and the function, each in the
/// file of its name.
struct TSubject
{
   const char* fName;
   void (*fCollect)(const TMachine& machine, TCollected& collected);
};

/// In the order of collecting: what others refer to comes first.
const std::vector<TSubject>& GetSubjects();

// System
void CollectComputerSystem(const TMachine& machine, TCollected& collected);
void CollectOperatingSystem(const TMachine& machine, TCollected& collected);
void CollectAccounts(const TMachine& machine, TCollected& collected);
void CollectConfiguration(const TMachine& machine, TCollected& collected);
void CollectKernelModules(const TMachine& machine, TCollected& collected);
void CollectPackages(const TMachine& machine, TCollected& collected);
void CollectServices(const TMachine& machine, TCollected& collected);
void CollectProcesses(const TMachine& machine, TCollected& collected);
void CollectPerformance(const TMachine& machine, TCollected& collected);

// Hardware
void CollectProcessors(const TMachine& machine, TCollected& collected);
void CollectMemory(const TMachine& machine, TCollected& collected);
void CollectVideo(const TMachine& machine, TCollected& collected);

// Devices
void CollectNetwork(const TMachine& machine, TCollected& collected);
void CollectPCI(const TMachine& machine, TCollected& collected);
void CollectUSB(const TMachine& machine, TCollected& collected);
void CollectDisks(const TMachine& machine, TCollected& collected);
void CollectBusDevices(const TMachine& machine, TCollected& collected);
void CollectOpticalDrives(const TMachine& machine, TCollected& collected);
void CollectVolumes(const TMachine& machine, TCollected& collected);
void CollectDriveHealth(const TMachine& machine, TCollected& collected);
void CollectSensors(const TMachine& machine, TCollected& collected);
void CollectPowerSupplies(const TMachine& machine, TCollected& collected);
void CollectServiceProcessor(const TMachine& machine, TCollected& collected);
void CollectLogs(const TMachine& machine, TCollected& collected);

// Firmware comes last: it refers to devices.
void CollectFirmware(const TMachine& machine, TCollected& collected);

}  // namespace NZANQSX20
