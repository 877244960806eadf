#include <array>
#include <map>

#include "TCollected.h"
#include "machine/TMachine.h"
#include "subjects/RelevantRecords.h"
#include "subjects/Subjects.h"
#include "text/DMIRecords.h"
#include "text/Text.h"

namespace NZANQSX20 {

namespace {

const TNeed kModules = {"Memory modules", {"ZANSG_SPDData"}};

constexpr int kArrayRecord = 16;
constexpr int kModuleRecord = 17;
constexpr const char* kControllers = "/sys/devices/system/edac/mc/";

struct TMemoryType
{
   std::string_view fName;
   unsigned fType;
};

constexpr std::array kMemoryTypes = {
   TMemoryType{"Other", 1},   TMemoryType{"DRAM", 2},
   TMemoryType{"SDRAM", 17},  TMemoryType{"SGRAM", 18},
   TMemoryType{"RDRAM", 19},  TMemoryType{"DDR", 20},
   TMemoryType{"DDR2", 21},   TMemoryType{"DDR2 FB-DIMM", 23},
   TMemoryType{"DDR3", 24},   TMemoryType{"FBD2", 25},
   TMemoryType{"DDR4", 26},   TMemoryType{"LPDDR", 27},
   TMemoryType{"LPDDR2", 28}, TMemoryType{"LPDDR3", 29},
   TMemoryType{"LPDDR4", 30}, TMemoryType{"Logical non-volatile device", 31},
   TMemoryType{"HBM", 32},    TMemoryType{"HBM2", 33},
   TMemoryType{"DDR5", 34},   TMemoryType{"LPDDR5", 35}};

std::optional<unsigned> ToMemoryType(std::string_view name)
{
   for (const TMemoryType& type : kMemoryTypes)
      if (type.fName == name)
         return type.fType;
   return std::nullopt;
}

/// "16 GB", "16384 MB" in MB. Missing: nothing for an empty slot.
std::optional<std::uint64_t> ToMegaBytes(std::string_view size)
{
   const auto words = SplitWords(size);
   const auto number = words.size() == 2 ? ToNumber(words[0]) : std::nullopt;
   if (!number)
      return std::nullopt;
   if (words[1] == "TB")
      return *number * 1024 * 1024;
   if (words[1] == "GB")
      return *number * 1024;
   if (words[1] == "MB")
      return *number;
   return std::nullopt;
}

/// "2933 MT/s"
std::optional<std::uint64_t> ToSpeed(std::string_view speed)
{
   return ToNumber(speed.substr(0, speed.find(' ')));
}

/// What the memory controller counts of one module.
struct TErrorCounts
{
   std::string fLabel;
   std::uint64_t fCorrected = 0;
   std::uint64_t fUncorrected = 0;
   /// The controller's folder of the module.
   std::string fFolder;
};

std::vector<TErrorCounts> ReadErrorCounts(const TMachine& machine)
{
   std::vector<TErrorCounts> modules;
   for (const std::string& controller : machine.List(kControllers))
      for (const std::string& name : machine.List(kControllers + controller)) {
         const bool isModule = StartsWith(name, "dimm") || StartsWith(name, "rank");
         const std::string folder = kControllers + controller + '/' + name + '/';
         const auto corrected = machine.ReadNumber(folder + "dimm_ce_count");
         const auto uncorrected = machine.ReadNumber(folder + "dimm_ue_count");
         if (!isModule || !corrected || !uncorrected)
            continue;
         const std::string label = machine.ReadLine(folder + "dimm_label");
         modules.push_back(
            {label.empty() ? controller + '/' + name : label, *corrected, *uncorrected, folder});
      }
   return modules;
}

void ReportErrors(TCollected& collected, const TErrorCounts& module)
{
   if (module.fCorrected == 0 && module.fUncorrected == 0)
      return;
   AddRelevantRecord(collected, "Memory errors", module.fLabel,
                     "Memory module " + module.fLabel + ": " + std::to_string(module.fUncorrected) +
                        " uncorrected and " + std::to_string(module.fCorrected) +
                        " corrected errors since the start");
}

class TModules
{
public:
   TModules(const TMachine& machine, TCollected& collected)
      : fMachine(machine), fCollected(collected), fTable(machine, collected, kModules)
   {
      for (const TDMIRecord* module : fTable.GetRecords(kModuleRecord))
         ++fLocators[std::string(module->Get("Locator"))];
   }

   /// Whether the machine's description tells of modules.
   bool Add(const std::vector<TErrorCounts>& counts)
   {
      bool found = false;
      for (const TDMIRecord* module : fTable.GetRecords(kModuleRecord))
         if (const auto size = ToMegaBytes(module->Get("Size"))) {
            AddModule(*module, *size, counts);
            found = true;
         }
      return found;
   }

   void AddFromController(const TErrorCounts& module)
   {
      const auto size = fMachine.ReadNumber(module.fFolder + "size");
      if (!size || *size == 0)
         return;
      fCollected.Add("ZANSG_SPDData")
         .Set("Tag", module.fLabel)
         .Set("BankLabel", fMachine.ReadLine(module.fFolder + "dimm_location"))
         .Set("Capacity", *size)
         .Set("ErrorMethodology", fMachine.ReadLine(module.fFolder + "dimm_edac_mode"))
         .Set("CorrectedErrors", module.fCorrected)
         .Set("UncorrectedErrors", module.fUncorrected);
   }

private:
   /// The locator tells the place; boards that number each processor's places anew need the bank.
   std::string MakeTag(const TDMIRecord& module)
   {
      const std::string locator(module.Get("Locator"));
      const std::string bank(module.Get("Bank Locator"));
      if (!locator.empty() && fLocators[locator] == 1)
         return locator;
      const std::string both = bank + '/' + locator;
      return fTags[both]++ == 0 && both.size() > 1 ? both
                                                   : both + ' ' + std::string(module.fHandle);
   }

   void AddModule(const TDMIRecord& module, std::uint64_t size,
                  const std::vector<TErrorCounts>& counts)
   {
      const std::string_view configured = module.Get("Configured Memory Speed");
      const std::string_view older = module.Get("Configured Clock Speed");
      const TDMIRecord* const array = fTable.Find(module.Get("Array Handle"));
      TEntry entry = fCollected.Add("ZANSG_SPDData");
      entry.Set("Tag", MakeTag(module))
         .Set("BankLabel", module.Get("Bank Locator"))
         .Set("Capacity", size)
         .Set("MemoryType", ToMemoryType(module.Get("Type")))
         .Set("DimmSpeed", ToSpeed(!configured.empty() ? configured
                                   : !older.empty()    ? older
                                                       : module.Get("Speed")))
         .Set("Manufacturer", module.Get("Manufacturer"))
         .Set("PartNumber", module.Get("Part Number"))
         .Set("SerialNumber", module.Get("Serial Number"));
      if (array != nullptr && array->fType == kArrayRecord)
         entry.Set("ErrorMethodology", array->fFields.Get("Error Correction Type"));
      for (const TErrorCounts& count : counts)
         if (count.fLabel == module.Get("Locator"))
            entry.Set("CorrectedErrors", count.fCorrected)
               .Set("UncorrectedErrors", count.fUncorrected);
   }

   const TMachine& fMachine;
   TCollected& fCollected;
   const TDMITable fTable;
   std::map<std::string, int> fLocators;
   std::map<std::string, int> fTags;
};

}  // namespace

void CollectMemory(const TMachine& machine, TCollected& collected)
{
   const std::vector<TErrorCounts> counts = ReadErrorCounts(machine);
   TModules modules(machine, collected);
   if (!modules.Add(counts))
      for (const TErrorCounts& module : counts)
         modules.AddFromController(module);
   for (const TErrorCounts& module : counts)
      ReportErrors(collected, module);
}

}  // namespace NZANQSX20
