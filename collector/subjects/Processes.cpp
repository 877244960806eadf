#include <unistd.h>

#include <unordered_map>

#include "TCollected.h"
#include "machine/TMachine.h"
#include "subjects/MachineClock.h"
#include "subjects/Subjects.h"
#include "text/KeyValues.h"
#include "text/Text.h"

namespace NZANQSX20 {

namespace {

const TNeed kProcesses = {"Processes", {"ZANSG_Process"}};

/// The ticks of /proc are hundredths of a second on every platform.
constexpr std::uint64_t kTicksPerSecond = 100;

/// Fields of /proc/PID/stat behind the name, counted from the state.
enum EStatField : std::size_t
{
   kState = 0,
   kParent = 1,
   kUserTicks = 11,
   kKernelTicks = 12,
   kPriority = 15,
   kStartTicks = 19,
   kPages = 21
};

using TUserNames = std::unordered_map<std::string, std::string>;

/// By number.
TUserNames ReadUserNames(const TMachine& machine)
{
   TUserNames names;
   const TReading reading = machine.Read("/etc/passwd");
   for (const std::string_view line : SplitLines(reading.fText))
      if (const auto fields = Split(line, ':'); fields.size() > 2)
         names.emplace(fields[2], fields[0]);
   return names;
}

unsigned ToExecutionState(char letter)
{
   switch (letter) {
      case 'R':
         return 3;
      case 'D':
         return 4;
      case 'S':
      case 'I':
         return 6;
      case 'Z':
      case 'X':
         return 7;
      case 'T':
      case 't':
         return 9;
      default:
         return 0;
   }
}

std::optional<std::uint64_t> ToMilliSeconds(std::string_view ticks)
{
   const auto number = ToNumber(ticks);
   return number ? std::optional(*number * (1000 / kTicksPerSecond)) : std::nullopt;
}

/// The user's name, or the number of one that has none.
std::string GetUser(const TMachine& machine, const std::string& folder, const TUserNames& names)
{
   const TReading status = machine.Read(folder + "/status");
   const std::string_view ids = TKeyValues(status.fText).Get("Uid");
   const std::string id(ids.substr(0, ids.find('\t')));
   const auto name = names.find(id);
   return name == names.end() ? id : name->second;
}

/// A worker of the kernel without what it happens to work on: "kworker/1:2" for
/// "kworker/1:2-events". Those named "kworker/R-..." serve one thing alone.
std::string_view GetName(std::string_view name)
{
   const bool changes = StartsWith(name, "kworker/") && !StartsWith(name, "kworker/R-");
   return changes ? name.substr(0, name.find('-')) : name;
}

class TProcessList
{
public:
   TProcessList(const TMachine& machine, TCollected& collected)
      : fMachine(machine),
        fCollected(collected),
        fUsers(ReadUserNames(machine)),
        fBoot(ReadClock(machine).fBoot)
   {}

   /// Missing: false for one that ends meanwhile, and for this program's own.
   bool Add(const std::string& id)
   {
      const std::string folder = "/proc/" + id;
      const TReading reading = fMachine.Read(folder + "/stat");
      const std::string_view stat = reading.fText;
      // "42 (name) S 1 ...": a name may hold blanks and parentheses.
      const std::size_t nameStart = stat.find('(');
      const std::size_t nameEnd = stat.rfind(')');
      if (!reading || nameStart == std::string_view::npos || nameEnd == std::string_view::npos ||
          nameEnd < nameStart)
         return false;
      const auto fields = SplitWords(stat.substr(nameEnd + 1));
      if (fields.size() <= kPages || IsOwn(id, fields[kParent]))
         return false;
      TEntry process = fCollected.Add("ZANSG_Process");
      process.Set("Handle", id)
         .Set("Name", GetName(stat.substr(nameStart + 1, nameEnd - nameStart - 1)))
         .Set("User", GetUser(fMachine, folder, fUsers))
         .Set("ExecutionState", ToExecutionState(fields[kState].front()))
         .Set("Priority", ToSignedNumber(fields[kPriority]))
         .Set("KernelModeTime", ToMilliSeconds(fields[kKernelTicks]))
         .Set("UserModeTime", ToMilliSeconds(fields[kUserTicks]));
      if (const auto pages = ToNumber(fields[kPages]))
         process.Set("WorkingSetSize", *pages * fPageSize / 1024);
      if (const auto start = ToNumber(fields[kStartTicks]); start && fBoot)
         process.Set(
            "CreationDate",
            fMachine.MakeTime(*fBoot + static_cast<std::int64_t>(*start / kTicksPerSecond)));
      return true;
   }

private:
   /// This program and what it started: they are gone when somebody reads of them.
   bool IsOwn(const std::string& id, std::string_view parent) const
   {
      return fMachine.IsThisMachine() && (id == fOwn || parent == fOwn);
   }

   const TMachine& fMachine;
   TCollected& fCollected;
   const TUserNames fUsers;
   const std::optional<std::int64_t> fBoot;
   const std::string fOwn = std::to_string(getpid());
   const std::uint64_t fPageSize = static_cast<std::uint64_t>(sysconf(_SC_PAGESIZE));
};

}  // namespace

void CollectProcesses(const TMachine& machine, TCollected& collected)
{
   TProcessList processes(machine, collected);
   std::uint32_t count = 0;
   for (const std::string& name : machine.List("/proc"))
      if (ToNumber(name) && processes.Add(name))
         ++count;
   if (count > 0)
      collected.GetSingle("ZANSG_OperatingSystem").Set("ProcessCount", count);
   else
      collected.AddGap(kProcesses, "/proc", EReason::kNotPresent);
}

}  // namespace NZANQSX20
