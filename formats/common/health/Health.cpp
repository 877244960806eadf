#include "common/health/Health.h"

#include <algorithm>

const char* GetSubsystemName(ESubsystem subsystem)
{
   switch (subsystem) {
      case ESubsystem::kProcessors:
         return "Processors";
      case ESubsystem::kMemory:
         return "Memory";
      case ESubsystem::kDisks:
         return "Disks and arrays";
      case ESubsystem::kDriveHealth:
         return "Drive health";
      case ESubsystem::kSensors:
         return "Sensors";
      case ESubsystem::kServiceProcessor:
         return "Power and service processor";
      case ESubsystem::kNetwork:
         return "Network";
      case ESubsystem::kLogs:
         return "Logs";
      case ESubsystem::kFirmware:
         return "Firmware";
      case ESubsystem::kCorrections:
         return "Corrections made";
      case ESubsystem::kNotCollected:
         return "Things not collected";
      case ESubsystem::kNone:
         break;
   }
   return "";
}

std::size_t THealth::CountSubsystems(EState state) const
{
   return static_cast<std::size_t>(
      std::count_if(fSubsystems.begin(), fSubsystems.end(),
                    [state](const TSubsystemHealth& at) { return at.fState == state; }));
}

EState THealth::GetVerdict() const
{
   for (const EState state : {EState::kFailed, EState::kAttention, EState::kOk})
      if (CountSubsystems(state) > 0)
         return state;
   return EState::kUnknown;
}

std::vector<ESubsystem> THealth::GetOrder() const
{
   std::vector<ESubsystem> order;
   for (std::size_t i = 0; i < kSubsystems; ++i)
      order.push_back(static_cast<ESubsystem>(i));
   std::stable_sort(order.begin(), order.end(),
                    [this](ESubsystem a, ESubsystem b) { return Get(a).fState > Get(b).fState; });
   return order;
}
