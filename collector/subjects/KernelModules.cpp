#include "subjects/KernelModules.h"

#include <map>

#include "TCollected.h"
#include "machine/TMachine.h"
#include "subjects/Subjects.h"
#include "text/KeyValues.h"
#include "text/Text.h"

namespace NZANQSX20 {

namespace {

const TNeed kModules = {"Kernel modules", {"ZANSG_LinuxKernelModule", "ZANSG_DeviceSoftware"}};
const TNeed kDescriptions = {"Descriptions of kernel modules", {"ZANSG_LinuxKernelModule"}};

/// SoftwareElementState
constexpr unsigned kExecutable = 2;
constexpr unsigned kRunning = 3;

/// By name, what modinfo tells of all modules in one call: each begins with its file.
std::map<std::string_view, TKeyValues> ReadDescriptions(std::string_view text)
{
   std::map<std::string_view, TKeyValues> descriptions;
   for (std::size_t at = text.find("filename:"); at != std::string_view::npos;) {
      const std::size_t next = text.find("\nfilename:", at);
      const TKeyValues description(text.substr(at, next - at));
      descriptions.emplace(description.Get("name"), description);
      at = next == std::string_view::npos ? next : next + 1;
   }
   return descriptions;
}

void Describe(TEntry& module, const TKeyValues& description)
{
   module.Set("Description", description.Get("description"))
      .Set("Manufacturer", description.Get("author"))
      .Set("Path", description.Get("filename"));
}

}  // namespace

void CollectKernelModules(const TMachine& machine, TCollected& collected)
{
   // "e1000e 315392 0 - Live 0x0000000000000000"
   const TReading modules = machine.Read("/proc/modules");
   // A kernel that loads no modules has no such file.
   if (!collected.HasIfPresent(modules, kModules))
      return;
   std::vector<std::string> names;
   for (const std::string_view line : SplitLines(modules.fText))
      if (const auto words = SplitWords(line); words.size() > 4)
         names.emplace_back(words[0]);
   if (names.empty())
      return;
   // A module whose file has gone makes the exit code, the others are told all the same.
   const TReading reading = machine.RunTool("modinfo", names, EExit::kAny);
   collected.Has(reading, kDescriptions);
   const auto descriptions = ReadDescriptions(reading.fText);

   for (const std::string_view line : SplitLines(modules.fText)) {
      const auto words = SplitWords(line);
      if (words.size() <= 4)
         continue;
      const std::string name(words[0]);
      TEntry module = collected.Add("ZANSG_LinuxKernelModule");
      module.Set("Name", name)
         .Set("SoftwareElementState", words[4] == "Live" ? kRunning : kExecutable)
         .Set("Version", machine.ReadLine("/sys/module/" + name + "/version"));
      if (const auto found = descriptions.find(name); found != descriptions.end())
         Describe(module, found->second);
   }
}

void AssociateModule(const TMachine& machine, TCollected& collected, const TEntry& device,
                     const std::string& folder)
{
   const std::string name = machine.ReadLinkName(folder + "/driver/module");
   if (name.empty())
      return;
   if (const auto module = collected.Find("ZANSG_LinuxKernelModule.Name=\"" + name + '"'))
      collected.Associate("ZANSG_DeviceSoftware", *module, device);
}

}  // namespace NZANQSX20
