#include "subjects/MachineClock.h"

#include <string>

#include <fmt/format.h>

#include "machine/TMachine.h"
#include "text/Text.h"

namespace NZANQSX20 {

namespace {

std::optional<std::int64_t> ToSeconds(std::string_view text)
{
   return ToSignedNumber(text.substr(0, text.find('.')));
}

}  // namespace

TMachineClock ReadClock(const TMachine& machine)
{
   TMachineClock clock;
   const std::string upTime = machine.ReadLine("/proc/uptime");
   clock.fUpTime = ToSeconds(std::string_view(upTime).substr(0, upTime.find(' ')));
   const TReading counters = machine.Read("/proc/stat");
   for (const std::string_view line : SplitLines(counters.fText))
      if (StartsWith(line, "btime "))
         clock.fBoot = ToSignedNumber(Trim(line.substr(6)));
   if (clock.fBoot && clock.fUpTime)
      clock.fNow = *clock.fBoot + *clock.fUpTime;
   return clock;
}

TCIMDateTime MakeInterval(std::int64_t seconds)
{
   constexpr std::int64_t kDay = 24 * 60 * 60;
   const std::int64_t rest = seconds % kDay;
   const std::string text =
      fmt::format("{:08}{:02}{:02}{:02}.000000:000", seconds / kDay % 100'000'000, rest / 3600,
                  rest / 60 % 60, rest % 60);
   TCIMDateTime interval;
   TCIMDateTime::Parse(text, interval);
   return interval;
}

}  // namespace NZANQSX20
