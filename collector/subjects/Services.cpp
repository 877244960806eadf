#include "TCollected.h"
#include "machine/TMachine.h"
#include "subjects/RelevantRecords.h"
#include "subjects/Subjects.h"
#include "text/KeyValues.h"
#include "text/Text.h"

namespace NZANQSX20 {

namespace {

const TNeed kServices = {"Services", {"ZANSG_SystemServiceInfo"}};

/// "active (running)"
std::string GetState(const TKeyValues& unit)
{
   std::string state(unit.Get("ActiveState"));
   if (const std::string_view detail = unit.Get("SubState"); !detail.empty())
      state += " (" + std::string(detail) + ')';
   return state;
}

}  // namespace

void CollectServices(const TMachine& machine, TCollected& collected)
{
   const TReading reading = machine.RunTool(
      "systemctl",
      {"show", "--no-pager", "--all",
       "--property=Id,Description,LoadState,ActiveState,SubState,UnitFileState,FragmentPath,Result",
       "*.service"});
   if (!collected.Has(reading, kServices))
      return;
   for (const std::string_view block : SplitBlocks(reading.fText)) {
      const TKeyValues unit(block, '=');
      // Others name services that are not installed.
      if (unit.Get("LoadState") == "not-found" || unit.Get("Id").empty())
         continue;
      if (unit.Get("ActiveState") == "failed")
         AddRelevantRecord(collected, "Services", std::string(unit.Get("Id")),
                           "Service " + std::string(unit.Get("Id")) + " has failed (" +
                              std::string(unit.Get("Result")) + ')');
      collected.Add("ZANSG_SystemServiceInfo")
         .Set("Name", unit.Get("Id"))
         .Set("Description", unit.Get("Description"))
         .Set("CurrentState", GetState(unit))
         .Set("StartupState", unit.Get("UnitFileState"))
         .Set("LastResult", unit.Get("Result"))
         .Set("Path", unit.Get("FragmentPath"));
   }
}

}  // namespace NZANQSX20
