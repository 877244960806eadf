#include <array>

#include <fmt/format.h>

#include "TCollected.h"
#include "machine/TMachine.h"
#include "subjects/Subjects.h"
#include "text/KeyValues.h"
#include "text/Text.h"

namespace NZANQSX20 {

namespace {

const TNeed kMemory = {"Memory in use", {"ZANSG_OperatingSystem"}};
const TNeed kCounters = {"Performance counters", {"ZANSG_SystemPerformanceData"}};

std::uint64_t Subtract(std::uint64_t whole, std::uint64_t part)
{
   return whole > part ? whole - part : 0;
}

/// Missing: nothing of nothing.
std::optional<std::uint64_t> GetPercent(std::uint64_t part, std::uint64_t whole)
{
   if (whole == 0)
      return std::nullopt;
   return (part * 100 + whole / 2) / whole;
}

void SetSwap(TEntry& system, const TKeyValues& memory)
{
   const auto total = memory.GetNumber("SwapTotal");
   const auto free = memory.GetNumber("SwapFree");
   system.Set("TotalSwapSpaceSize", total)
      .Set("FreeSwapSpaceSize", free)
      .Set("SizeStoredInPagingFiles", total)
      .Set("FreeSpaceInPagingFiles", free);
   if (total && free)
      system.Set("SwapUtilization", GetPercent(Subtract(*total, *free), *total));
}

/// Units of the file: KB.
void SetMemory(TEntry& system, const TKeyValues& memory)
{
   const auto total = memory.GetNumber("MemTotal");
   // What programs can still get, the cache they would push out included.
   const auto available = memory.GetNumber("MemAvailable");
   system.Set("TotalVisibleMemorySize", total)
      .Set("FreePhysicalMemory", memory.GetNumber("MemFree"))
      .Set("SystemCache", memory.GetNumber("Cached"))
      .Set("CommitTotal", memory.GetNumber("Committed_AS"))
      .Set("CommitLimit", memory.GetNumber("CommitLimit"))
      .Set("KernelTotal", memory.GetNumber("Slab"))
      .Set("KernelPaged", memory.GetNumber("SReclaimable"))
      .Set("KernelNonpaged", memory.GetNumber("SUnreclaim"));
   if (!total || !available)
      return;
   system.Set("MemoryLoad", GetPercent(Subtract(*total, *available), *total));
   const auto swap = memory.GetNumber("SwapTotal").value_or(0);
   const auto freeSwap = memory.GetNumber("SwapFree").value_or(0);
   system.Set("TotalVirtualMemorySize", *total + swap)
      .Set("FreeVirtualMemory", *available + freeSwap);
}

class TCounters
{
public:
   explicit TCounters(TCollected& collected) : fCollected(collected) {}

   void Add(std::string_view object, std::string_view counter, std::string_view instance,
            std::string_view value)
   {
      fCollected.Add("ZANSG_SystemPerformanceData")
         .Set("ObjectName", object)
         .Set("CounterName", counter)
         .Set("InstanceName", instance)
         .Set("CounterValue", value);
   }

private:
   TCollected& fCollected;
};

/// "cpu0 user nice system idle iowait irq softirq steal ...", in ticks since the system started.
void AddProcessorTimes(TCounters& counters, std::string_view line)
{
   constexpr std::array kNames = {"% User",      "% Nice",       "% System",          "% Idle",
                                  "% Disk wait", "% Interrupts", "% Soft interrupts", "% Stolen"};
   const auto words = SplitWords(line);
   std::vector<std::uint64_t> ticks;
   std::uint64_t total = 0;
   for (std::size_t i = 1; i < words.size() && ticks.size() < kNames.size(); ++i) {
      ticks.push_back(ToNumber(words[i]).value_or(0));
      total += ticks.back();
   }
   ticks.resize(kNames.size());
   const bool isAll = words[0] == "cpu";
   const std::string instance = isAll ? "All" : "CPU " + std::string(words[0].substr(3));
   // Of a single one, whether it idles: machines have hundreds of them.
   constexpr std::size_t kIdle = 3;
   for (std::size_t i = isAll ? 0 : kIdle; i < (isAll ? ticks.size() : kIdle + 1) && total > 0; ++i)
      counters.Add(
         "Processor", kNames[i], instance,
         fmt::format("{:.1f}", 100.0 * static_cast<double>(ticks[i]) / static_cast<double>(total)));
}

void AddSystemCounters(TCounters& counters, const std::string& stat)
{
   for (const std::string_view line : SplitLines(stat)) {
      const auto words = SplitWords(line);
      if (words.size() < 2)
         continue;
      if (StartsWith(words[0], "cpu"))
         AddProcessorTimes(counters, line);
      else if (words[0] == "ctxt")
         counters.Add("System", "Context switches", "All", words[1]);
      else if (words[0] == "intr")
         counters.Add("System", "Interrupts", "All", words[1]);
      else if (words[0] == "processes")
         counters.Add("System", "Processes started", "All", words[1]);
      else if (words[0] == "procs_blocked")
         counters.Add("System", "Blocked processes", "All", words[1]);
   }
}

void AddLoad(const TMachine& machine, TCounters& counters)
{
   constexpr std::array kNames = {"Load, 1 minute", "Load, 5 minutes", "Load, 15 minutes"};
   const std::string load = machine.ReadLine("/proc/loadavg");
   const auto words = SplitWords(load);
   for (std::size_t i = 0; i < kNames.size() && i < words.size(); ++i)
      counters.Add("System", kNames[i], "All", words[i]);
}

/// "some avg10=0.00 avg60=0.12 avg300=0.05 total=1234"
void AddPressure(const TMachine& machine, TCounters& counters)
{
   for (const char* resource : {"cpu", "io", "memory"}) {
      const TReading reading = machine.Read(std::string("/proc/pressure/") + resource);
      for (const std::string_view line : SplitLines(reading.fText))
         for (const std::string_view word : SplitWords(line))
            if (StartsWith(word, "avg60=") && StartsWith(line, "some"))
               counters.Add("Pressure", "% waiting, 1 minute", resource, word.substr(6));
   }
}

void AddPaging(const TMachine& machine, TCounters& counters)
{
   struct TNamed
   {
      const char* fKey;
      const char* fName;
   };

   constexpr std::array kNames = {
      TNamed{"pgfault", "Page faults"}, TNamed{"pgmajfault", "Page faults from disk"},
      TNamed{"pswpin", "Pages swapped in"}, TNamed{"pswpout", "Pages swapped out"},
      TNamed{"oom_kill", "Out-of-memory kills"}};
   const TReading reading = machine.Read("/proc/vmstat");
   const TKeyValues values(reading.fText, ' ');
   for (const TNamed& named : kNames)
      if (const auto number = values.GetNumber(named.fKey))
         counters.Add("Memory", named.fName, "All", std::to_string(*number));
}

/// "8 0 sda reads merged sectors ms writes merged sectors ms ...", whole disks alone.
void AddDisks(const TMachine& machine, TCounters& counters)
{
   struct TField
   {
      std::size_t fPlace;
      const char* fName;
   };

   constexpr std::array kFields = {
      TField{3, "Reads"},  TField{5, "Sectors read"},    TField{6, "Milliseconds reading"},
      TField{7, "Writes"}, TField{9, "Sectors written"}, TField{10, "Milliseconds writing"}};
   const TReading reading = machine.Read("/proc/diskstats");
   for (const std::string_view line : SplitLines(reading.fText)) {
      const auto words = SplitWords(line);
      if (words.size() < 11 || StartsWith(words[2], "loop") || StartsWith(words[2], "ram") ||
          StartsWith(words[2], "zram") || !machine.Exists("/sys/block/" + std::string(words[2])))
         continue;
      for (const TField& field : kFields)
         counters.Add("Disk", field.fName, words[2], words[field.fPlace]);
   }
}

/// "used unused most"; "running/all last"
void SetCounts(const TMachine& machine, TEntry& system)
{
   const std::string files = machine.ReadLine("/proc/sys/fs/file-nr");
   system.Set("HandleCount", ToNumber(files.substr(0, files.find('\t'))));
   const std::string load = machine.ReadLine("/proc/loadavg");
   const auto words = SplitWords(load);
   if (words.size() > 3)
      system.Set("ThreadCount", ToNumber(Cut(words[3], '/').second));
}

}  // namespace

void CollectPerformance(const TMachine& machine, TCollected& collected)
{
   TEntry system = collected.GetSingle("ZANSG_OperatingSystem");
   if (const TReading reading = machine.Read("/proc/meminfo"); collected.Has(reading, kMemory)) {
      const TKeyValues memory(reading.fText);
      SetMemory(system, memory);
      SetSwap(system, memory);
   }
   SetCounts(machine, system);
   TCounters counters(collected);
   if (const TReading reading = machine.Read("/proc/stat"); collected.Has(reading, kCounters))
      AddSystemCounters(counters, reading.fText);
   AddLoad(machine, counters);
   AddPaging(machine, counters);
   AddPressure(machine, counters);
   AddDisks(machine, counters);
}

}  // namespace NZANQSX20
