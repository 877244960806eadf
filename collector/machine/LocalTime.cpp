#include "machine/LocalTime.h"

#include <cstdlib>
#include <ctime>

#include "text/Text.h"

namespace NZANQSX20 {

namespace {

constexpr const char* kUTC = "UTC0";

/// Makes the rule that of the process; the C library has no other way.
void UseRule(const std::string& rule)
{
   const char* current = std::getenv("TZ");
   if (current != nullptr && rule == current)
      return;
   setenv("TZ", rule.c_str(), 1);
   tzset();
}

}  // namespace

std::string FindTimeRule(const std::string& zoneFile)
{
   if (!StartsWith(zoneFile, "TZif") || zoneFile.size() < 2 || zoneFile.back() != '\n')
      return kUTC;
   const std::size_t start = zoneFile.rfind('\n', zoneFile.size() - 2);
   if (start == std::string::npos)
      return kUTC;
   const std::string rule = zoneFile.substr(start + 1, zoneFile.size() - start - 2);
   return rule.empty() ? kUTC : rule;
}

TCIMDateTime MakeLocalTime(const std::string& rule, std::int64_t seconds, unsigned microseconds)
{
   UseRule(rule);
   const auto time = static_cast<std::time_t>(seconds);
   std::tm local = {};
   if (localtime_r(&time, &local) == nullptr)
      return {};
   const auto field = [](int value) { return static_cast<unsigned short>(value); };
   return {field(local.tm_year + 1900),
           field(local.tm_mon + 1),
           static_cast<unsigned>(local.tm_mday),
           field(local.tm_hour),
           field(local.tm_min),
           field(local.tm_sec),
           microseconds,
           static_cast<short>(local.tm_gmtoff / 60)};
}

}  // namespace NZANQSX20
