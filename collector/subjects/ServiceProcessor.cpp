#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <fmt/format.h>

#include "TCollected.h"
#include "machine/TMachine.h"
#include "subjects/DeviceStates.h"
#include "subjects/Subjects.h"
#include "subjects/TSensorGroup.h"
#include "text/Text.h"

namespace NZANQSX20 {

namespace {

const TNeed kSensors = {"Sensors of the service processor",
                        {"CIM_NumericSensor", "ZANSG_LogicalDevice"}};
const TNeed kEvents = {"Event log of the service processor", {"ZANSG_IPMILogRecord"}};

constexpr const char* kLogName = "IPMI event log";

struct TUnit
{
   std::string_view fText;
   std::uint64_t fSensorType;
   std::uint64_t fBaseUnits;
};

constexpr TUnit kUnits[] = {{"degrees C", 2, 2}, {"Volts", 3, 5},  {"Amps", 4, 6},
                            {"RPM", 5, 19},      {"Watts", 12, 7}, {"percent", 1, 65}};

/// A line "Fan 1 | 30h | ok | 29.1 | 5400 RPM".
struct TSensorLine
{
   std::string_view fName;
   std::string_view fStatus;
   /// "29.1": what kind of part, and which.
   std::string_view fEntity;
   std::string_view fReading;
};

/// Missing: nothing for a line of another shape.
std::optional<TSensorLine> ReadSensorLine(std::string_view line)
{
   constexpr std::size_t kColumns = 5;
   const std::vector<std::string_view> parts = Split(line, '|');
   if (parts.size() < kColumns)
      return std::nullopt;
   return TSensorLine{Trim(parts[0]), Trim(parts[2]), Trim(parts[3]), Trim(parts[4])};
}

/// Missing: nothing for a sensor that doesn't measure, "ns".
std::optional<std::uint64_t> GetState(std::string_view status)
{
   if (status == "ok")
      return kStateOk;
   if (status == "nc" || status == "lnc" || status == "unc")
      return kStateDegraded;
   if (status == "ns" || status == "na")
      return std::nullopt;
   return kStateError;
}

void AddSensor(TCollected& collected, const TSensorLine& line, const TUnit& unit, double value,
               std::uint64_t state)
{
   constexpr int kModifier = -3;
   constexpr double kThousand = 1000;
   collected.Add("CIM_NumericSensor")
      .Set("DeviceID", "ipmi/" + std::string(line.fName))
      .Set("ElementName", line.fName)
      .Set("SensorType", unit.fSensorType)
      .Set("BaseUnits", unit.fBaseUnits)
      .Set("UnitModifier", kModifier)
      .Set("CurrentReading", static_cast<std::int64_t>(std::llround(value * kThousand)))
      .Set("OperationalStatus", std::vector<std::uint64_t>{state});
}

/// A supply tells its state in words: "Presence detected, Failure detected".
std::optional<std::uint64_t> JudgeSupply(std::string_view words)
{
   if (words.empty())
      return std::nullopt;
   for (const char* bad : {"Failure detected", "Power Supply AC lost", "AC lost", "Config Error",
                           "Input lost", "Inactive"})
      if (Contains(words, bad))
         return kStateError;
   if (Contains(words, "Predictive failure"))
      return kStatePredictiveFailure;
   return Contains(words, "Presence detected") ? std::optional<std::uint64_t>(kStateOk)
                                               : std::nullopt;
}

void AddSupply(TCollected& collected, const TSensorLine& line)
{
   const auto state = JudgeSupply(line.fReading);
   if (!state)
      return;
   collected.Add("ZANSG_LogicalDevice")
      .Set("DeviceID", "ipmi " + std::string(line.fName))
      .Set("DeviceClass", "Power supply")
      .Set("ElementName", line.fName)
      .Set("OtherIdentifyingInfo", line.fReading)
      .Set("Location", "IPMI entity " + std::string(line.fEntity))
      .Set("OperationalStatus", std::vector<std::uint64_t>{*state});
}

void AddFan(TCollected& collected, const TSensorLine& line, std::uint64_t state)
{
   collected.Add("ZANSG_LogicalDevice")
      .Set("DeviceID", "ipmi " + std::string(line.fName))
      .Set("DeviceClass", "Fan")
      .Set("ElementName", line.fName)
      .Set("Location", "IPMI entity " + std::string(line.fEntity))
      .Set("OperationalStatus", std::vector<std::uint64_t>{state});
}

void AddReading(TCollected& collected, const TSensorLine& line, TSensorGroup& group)
{
   // The number of the part that is a power supply.
   constexpr std::string_view kSupplyEntity = "10.";
   const std::string reading(line.fReading);
   char* end = nullptr;
   const double value = std::strtod(reading.c_str(), &end);
   const auto state = GetState(line.fStatus);
   for (const TUnit& unit : kUnits)
      if (state && end != reading.c_str() && Trim(end) == unit.fText) {
         AddSensor(collected, line, unit, value, *state);
         if (unit.fText == "RPM")
            AddFan(collected, line, *state);
         else
            group.Add(std::string(line.fName), *state);
         return;
      }
   if (StartsWith(line.fEntity, kSupplyEntity))
      AddSupply(collected, line);
}

/// "04/21/2026" and "10:11:12 UTC" as the time that the processor's clock told.
/// Missing: nothing for "Pre-Init" and the like.
std::optional<TCIMDateTime> ReadTime(std::string_view date, std::string_view time)
{
   constexpr int kCentury = 2000;
   int month = 0;
   int day = 0;
   int year = 0;
   int hour = 0;
   int minute = 0;
   int second = 0;
   if (std::sscanf(std::string(date).c_str(), "%2d/%2d/%4d", &month, &day, &year) != 3 ||
       std::sscanf(std::string(time).c_str(), "%2d:%2d:%2d", &hour, &minute, &second) != 3)
      return std::nullopt;
   TCIMDateTime result;
   const bool isTime = TCIMDateTime::Parse(
      fmt::format("{:04}{:02}{:02}{:02}{:02}{:02}.000000+000",
                  year < kCentury ? year + kCentury : year, month, day, hour, minute, second),
      result);
   return isTime ? std::optional<TCIMDateTime>(result) : std::nullopt;
}

/// "  1 | 04/21/2026 | 10:11:12 | Fan 1 | Lower Critical going low | Asserted".
void AddEvent(TCollected& collected, std::string_view line)
{
   constexpr std::size_t kLeading = 3;
   const std::vector<std::string_view> parts = Split(line, '|');
   const auto number = parts.size() <= kLeading ? std::nullopt : HexToNumber(Trim(parts[0]));
   if (!number)
      return;
   std::string message;
   for (std::size_t i = kLeading; i < parts.size(); ++i)
      message += (message.empty() ? "" : ", ") + std::string(Trim(parts[i]));
   const auto time = ReadTime(Trim(parts[1]), Trim(parts[2]));
   collected.Add("ZANSG_IPMILogRecord")
      .Set("LogName", kLogName)
      .Set("RecordID", *number)
      .Set("MessageTimestamp", time)
      .Set("CreationTimeStamp", time)
      .Set("Message", message);
}

/// Whether the kernel has a way to a service processor.
bool HasProcessor(const TMachine& machine)
{
   for (const char* path : {"/dev/ipmi0", "/dev/ipmi/0", "/dev/ipmidev/0"})
      if (machine.Exists(path))
         return true;
   return false;
}

}  // namespace

/// A machine without a service processor has nothing that could be missing.
void CollectServiceProcessor(const TMachine& machine, TCollected& collected)
{
   if (!HasProcessor(machine))
      return;
   const TReading sensors = machine.RunTool("ipmitool", {"sdr", "elist", "all"});
   TSensorGroup group;
   if (collected.Has(sensors, kSensors))
      for (const std::string_view line : SplitLines(sensors.fText))
         if (const auto sensor = ReadSensorLine(line))
            AddReading(collected, *sensor, group);
   group.AddDevice(collected, "Service processor", "Sensors of the service processor");
   const TReading events = machine.RunTool("ipmitool", {"-Z", "sel", "elist"});
   if (collected.Has(events, kEvents))
      for (const std::string_view line : SplitLines(events.fText))
         AddEvent(collected, line);
}

}  // namespace NZANQSX20
