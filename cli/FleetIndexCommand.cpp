#include "FleetIndexCommand.h"

#include <fmt/format.h>

#include "Console.h"
#include "FleetIndex.h"
#include "Options.h"

namespace {

/// Further ones stand on the page.
constexpr std::size_t kToldGaps = 20;

void TellGaps(const TFleet& fleet, TConsole& console)
{
   for (std::size_t i = 0; i < fleet.fGaps.size() && i < kToldGaps; ++i)
      console.Error(fmt::format("{}: {}", fleet.fGaps[i].fPlace, fleet.fGaps[i].fReason));
   if (fleet.fGaps.size() > kToldGaps)
      console.Error(fmt::format("{} more are listed on the page", fleet.fGaps.size() - kToldGaps));
}

}  // namespace

EExitCode RunFleetIndexCommand(const TOptions& options, TConsole& console)
{
   const std::string& folder = options.fCollections.front();
   TFleet fleet = ReadFleetBelow(folder, console);
   if (fleet.fMachines.empty() && fleet.fGaps.empty())
      throw TCommandFailure(
         kExitInput,
         fmt::format("{}: no folder in it holds a report with its manifest.json", folder));
   WriteFleetIndex(folder, fleet, options.fForce);
   console.ClearProgress();
   TellGaps(fleet, console);
   console.Note(fmt::format("wrote {}/{}/index.html: {} machines", folder, kFleetIndexFolder,
                            fleet.fMachines.size()));
   return fleet.fGaps.empty() ? kExitDone : kExitSomeFailed;
}
