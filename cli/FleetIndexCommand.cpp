#include "FleetIndexCommand.h"

#include <fmt/format.h>

#include "Console.h"
#include "FleetIndex.h"
#include "Options.h"

namespace {

void TellGaps(const TFleet& fleet, TConsole& console)
{
   for (const TFleetGap& gap : fleet.fGaps)
      console.Error(fmt::format("{}: {}", gap.fPlace, gap.fReason));
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
