#include <map>
#include <set>
#include <tuple>

#include "TCollected.h"
#include "machine/TMachine.h"
#include "subjects/Subjects.h"
#include "text/DMIRecords.h"
#include "text/KeyValues.h"
#include "text/Text.h"

namespace NZANQSX20 {

namespace {

const TNeed kProcessors = {"Processors", {"ZANSG_Processor"}};
const TNeed kCaches = {"Modes of processor caches", {"ZANSG_Processor"}};

constexpr const char* kFolder = "/sys/devices/system/cpu/";
constexpr int kCacheRecord = 7;
constexpr unsigned kEnabled = 1;
constexpr unsigned kLevels = 3;

/// One hardware thread that the system uses.
struct TThread
{
   std::uint64_t fPackage = 0;
   /// Within the package.
   std::uint64_t fDie = 0;
   std::uint64_t fCore = 0;
   /// "cpu12"
   std::string fName;
   /// What /proc/cpuinfo tells of it.
   TKeyValues fInfo;
};

/// In the order of packages and cores. A thread whose place isn't told is a core of its own.
std::vector<TThread> ReadThreads(const TMachine& machine, std::string_view cpuInfo)
{
   std::vector<TThread> threads;
   for (const std::string_view block : SplitBlocks(cpuInfo)) {
      const TKeyValues info(block);
      const auto number = info.GetNumber("processor");
      if (!number)
         continue;
      TThread thread = {0, 0, 0, "cpu" + std::to_string(*number), info};
      const std::string topology = kFolder + thread.fName + "/topology/";
      const auto read = [&](const char* file, const char* key) {
         const auto told = machine.ReadNumber(topology + file);
         return told ? told : info.GetNumber(key);
      };
      thread.fPackage = read("physical_package_id", "physical id").value_or(0);
      thread.fDie = machine.ReadNumber(topology + "die_id").value_or(0);
      thread.fCore = read("core_id", "core id").value_or(*number);
      threads.push_back(thread);
   }
   return threads;
}

/// The words of a level's caches that all agree on. Missing: empty when they don't.
std::string FindAgreed(const TDMITable& table, unsigned level, const char* field)
{
   const std::string word = "Level " + std::to_string(level);
   std::set<std::string> values;
   for (const TDMIRecord* cache : table.GetRecords(kCacheRecord)) {
      const std::string_view configuration = cache->Get("Configuration");
      if (EndsWith(configuration, word) && cache->Get("Installed Size") != "0 kB")
         values.emplace(cache->Get(field));
   }
   return values.size() == 1 ? *values.begin() : std::string();
}

std::optional<unsigned> ToMode(std::string_view words)
{
   if (words == "Write Through")
      return 0;
   if (words == "Write Back")
      return 1;
   if (words == "Varies With Memory Address")
      return 2;
   return std::nullopt;
}

void SetCaches(const TMachine& machine, const TDMITable& table, const TThread& thread,
               TEntry& processor)
{
   std::set<std::uint64_t> active;
   const std::string folder = kFolder + thread.fName + "/cache/";
   for (const std::string& index : machine.List(folder))
      if (const auto level = machine.ReadNumber(folder + index + "/level"))
         active.insert(*level);
   for (unsigned level = 1; level <= kLevels; ++level) {
      const std::string name = "L" + std::to_string(level);
      const std::string configuration = FindAgreed(table, level, "Configuration");
      if (active.count(level) > 0)
         processor.Set((name + "Enabled").c_str(), true);
      else if (StartsWith(configuration, "Disabled"))
         processor.Set((name + "Enabled").c_str(), false);
      processor.Set((name + "OperationalMode").c_str(),
                    ToMode(FindAgreed(table, level, "Operational Mode")));
   }
}

void SetThreading(const TMachine& machine, const TThread& thread, TEntry& processor)
{
   const std::string control = machine.ReadLine(std::string(kFolder) + "smt/control");
   const auto siblings = thread.fInfo.GetNumber("siblings");
   const auto cores = thread.fInfo.GetNumber("cpu cores");
   if (control == "notsupported" || control == "notimplemented")
      processor.Set("HTSupported", false).Set("HTEnabled", false);
   else if (!control.empty())
      processor.Set("HTSupported", true)
         .Set("HTEnabled", machine.ReadLine(std::string(kFolder) + "smt/active") == "1");
   else if (siblings && cores)
      processor.Set("HTEnabled", *siblings > *cores);
}

void AddCore(const TMachine& machine, TCollected& collected, const TDMITable& table,
             const TThread& thread, std::uint64_t core)
{
   const TKeyValues& info = thread.fInfo;
   TEntry processor = collected.Add("ZANSG_Processor");
   const std::string_view clock = info.Get("cpu MHz");
   processor.Set("DeviceID", "CPU " + std::to_string(thread.fPackage))
      .Set("Core", core)
      .Set("Manufacturer", info.Get("vendor_id"))
      .Set("Name", info.Get("model name"))
      .Set("Stepping", info.Get("stepping"))
      .Set("CurrentClockSpeed", ToNumber(clock.substr(0, clock.find('.'))))
      .Set("CPUStatus", kEnabled);
   SetThreading(machine, thread, processor);
   SetCaches(machine, table, thread, processor);
}

}  // namespace

void CollectProcessors(const TMachine& machine, TCollected& collected)
{
   const TReading reading = machine.Read("/proc/cpuinfo");
   if (!collected.Has(reading, kProcessors))
      return;
   const TDMITable table(machine, collected, kCaches);
   std::map<std::tuple<std::uint64_t, std::uint64_t, std::uint64_t>, TThread> cores;
   for (const TThread& thread : ReadThreads(machine, reading.fText))
      cores.emplace(std::make_tuple(thread.fPackage, thread.fDie, thread.fCore), thread);
   // The kernel's own numbers of cores have gaps.
   std::map<std::uint64_t, std::uint64_t> counts;
   for (const auto& [place, thread] : cores)
      AddCore(machine, collected, table, thread, counts[thread.fPackage]++);
}

}  // namespace NZANQSX20
