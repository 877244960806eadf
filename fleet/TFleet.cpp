#include "TFleet.h"

#include <algorithm>
#include <functional>
#include <tuple>

void TFleet::Judge()
{
   const auto getOrder = [](const TFleetMachine& machine) {
      return std::make_tuple(-static_cast<int>(machine.fVerdict), ~machine.fFailed,
                             ~machine.fAttention, std::cref(machine.fName),
                             std::cref(machine.fPlace));
   };
   std::sort(
      fMachines.begin(), fMachines.end(),
      [&](const TFleetMachine& a, const TFleetMachine& b) { return getOrder(a) < getOrder(b); });
   std::sort(fGaps.begin(), fGaps.end(),
             [](const TFleetGap& a, const TFleetGap& b) { return a.fPlace < b.fPlace; });
   for (std::size_t i = 0; i < fMachines.size(); ++i)
      fFirmware.Count(i, fMachines[i].fLevels);
   fFirmware.Judge();
}

std::uint64_t TFleet::Count(EState verdict) const
{
   return static_cast<std::uint64_t>(
      std::count_if(fMachines.begin(), fMachines.end(),
                    [&](const TFleetMachine& machine) { return machine.fVerdict == verdict; }));
}

std::uint64_t TFleet::Count(ESubsystem subsystem, EState state) const
{
   return static_cast<std::uint64_t>(
      std::count_if(fMachines.begin(), fMachines.end(), [&](const TFleetMachine& machine) {
         return machine.fSubsystems[static_cast<std::size_t>(subsystem)] == state;
      }));
}
