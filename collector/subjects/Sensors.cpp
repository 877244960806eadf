#include <cmath>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "TCollected.h"
#include "machine/TMachine.h"
#include "subjects/DeviceStates.h"
#include "subjects/Subjects.h"
#include "subjects/TSensorGroup.h"
#include "text/Text.h"

namespace NZANQSX20 {

namespace {

const TNeed kSensors = {"Sensors of the board", {"CIM_NumericSensor"}};

constexpr const char* kFolder = "/sys/class/hwmon/";

/// A kind of reading: how the kernel names its files, and what the numbers in them are.
struct TKind
{
   std::string_view fPrefix;
   std::uint64_t fSensorType;
   std::uint64_t fBaseUnits;
   /// Power of ten that gives the base unit.
   int fModifier;
};

constexpr TKind kKinds[] = {{"temp", 2, 2, -3}, {"in", 3, 5, -3},     {"curr", 4, 6, -3},
                            {"fan", 5, 19, 0},  {"power", 12, 7, -6}, {"humidity", 13, 65, -3}};

constexpr std::string_view kInput = "_input";
constexpr std::string_view kAverage = "_average";

/// Beyond anything that is measured: millions of kilowatts in millionths of a watt.
constexpr std::int64_t kMostReading = 1'000'000'000'000'000;

/// "fan1_input" is a reading, as is the average of a meter that has no other.
const TKind* FindKind(std::string_view file)
{
   for (const std::string_view end : {kInput, kAverage}) {
      if (!EndsWith(file, end))
         continue;
      const std::string_view name = file.substr(0, file.size() - end.size());
      for (const TKind& kind : kKinds)
         if (StartsWith(name, kind.fPrefix) && ToNumber(name.substr(kind.fPrefix.size())))
            return &kind;
   }
   return nullptr;
}

/// The files of one sensor.
class TSensorFiles
{
public:
   TSensorFiles(const TMachine& machine, std::string folder, const std::string& input)
      : fMachine(machine), fBase(std::move(folder) + '/' + input.substr(0, input.rfind('_')))
   {}

   std::string GetText(const std::string& file) const { return fMachine.ReadLine(fBase + file); }

   std::optional<std::int64_t> GetNumber(const std::string& file) const
   {
      return ToSignedNumber(GetText(file));
   }

   bool IsSet(const std::string& file) const { return GetNumber(file).value_or(0) != 0; }

private:
   const TMachine& fMachine;
   std::string fBase;
};

/// The limits as the property names them. A chip that has none leaves its files away, one that
/// knows none fills in nonsense: a limit of 0 stands for none.
struct TLimits
{
   std::optional<std::int64_t> fLowCritical;
   std::optional<std::int64_t> fLow;
   std::optional<std::int64_t> fHigh;
   std::optional<std::int64_t> fCritical;
   std::optional<std::int64_t> fFatal;
};

TLimits ReadLimits(const TSensorFiles& files)
{
   const auto read = [&](const char* file) {
      const auto limit = files.GetNumber(file);
      return limit == std::int64_t{0} ? std::nullopt : limit;
   };
   TLimits limits = {read("_lcrit"), read("_min"), read("_max"), read("_crit"), read("_emergency")};
   if (limits.fLow && limits.fHigh && *limits.fLow >= *limits.fHigh)
      limits.fLow = limits.fHigh = std::nullopt;
   return limits;
}

/// The chip's own word comes first; it knows how long a reading has been out of its limits.
std::uint64_t Judge(const TSensorFiles& files, const TLimits& limits, std::int64_t reading)
{
   if (files.IsSet("_fault"))
      return kStateError;
   const auto isAbove = [&](const auto& limit) { return limit && reading > *limit; };
   const auto isBelow = [&](const auto& limit) { return limit && reading < *limit; };
   if (files.IsSet("_crit_alarm") || files.IsSet("_lcrit_alarm") ||
       files.IsSet("_emergency_alarm") || isAbove(limits.fCritical) || isAbove(limits.fFatal) ||
       isBelow(limits.fLowCritical))
      return kStateError;
   if (files.IsSet("_alarm") || files.IsSet("_max_alarm") || files.IsSet("_min_alarm") ||
       isAbove(limits.fHigh) || isBelow(limits.fLow))
      return kStateDegraded;
   return kStateOk;
}

/// Takes trailing zeros of the number into the power of ten until it fits 32 bits: the power
/// readings are in millionths.
void SetNumbers(TEntry& sensor, int modifier, std::int64_t reading, const TLimits& limits)
{
   constexpr std::int64_t kMost = 2'000'000'000;
   std::int64_t divisor = 1;
   while (std::abs(reading / divisor) > kMost) {
      divisor *= 10;
      ++modifier;
   }
   const auto scale = [&](const std::optional<std::int64_t>& number) {
      return number ? std::optional<std::int64_t>(*number / divisor) : std::nullopt;
   };
   sensor.Set("UnitModifier", modifier)
      .Set("CurrentReading", reading / divisor)
      .Set("LowerThresholdCritical", scale(limits.fLowCritical))
      .Set("LowerThresholdNonCritical", scale(limits.fLow))
      .Set("UpperThresholdNonCritical", scale(limits.fHigh))
      .Set("UpperThresholdCritical", scale(limits.fCritical))
      .Set("UpperThresholdFatal", scale(limits.fFatal));
}

void AddFan(TCollected& collected, const std::string& id, const std::string& name,
            const std::string& chip, std::uint64_t state)
{
   collected.Add("ZANSG_LogicalDevice")
      .Set("DeviceID", "fan " + id)
      .Set("DeviceClass", "Fan")
      .Set("ElementName", name)
      .Set("Location", chip)
      .Set("OperationalStatus", std::vector<std::uint64_t>{state});
}

/// chip: a name that is the same after the next start, unlike the folder's.
void AddSensor(const TMachine& machine, TCollected& collected, const std::string& folder,
               const std::string& chip, const std::string& input, const TKind& kind,
               TSensorGroup& group)
{
   const TSensorFiles files(machine, folder, input);
   const auto reading = files.GetNumber(input.substr(input.rfind('_')));
   // The file is there and can't be read where nothing is connected.
   if (!reading || *reading > kMostReading || *reading < -kMostReading)
      return;
   const std::string shortName = input.substr(0, input.rfind('_'));
   const std::string label = files.GetText("_label");
   const std::string name = (label.empty() ? shortName : label) + " (" + chip + ')';
   const std::string id = chip + '/' + shortName;
   const TLimits limits = ReadLimits(files);
   const std::uint64_t state = Judge(files, limits, *reading);
   TEntry sensor = collected.Add("CIM_NumericSensor");
   sensor.Set("DeviceID", id)
      .Set("ElementName", name)
      .Set("SensorType", kind.fSensorType)
      .Set("BaseUnits", kind.fBaseUnits)
      .Set("OperationalStatus", std::vector<std::uint64_t>{state});
   SetNumbers(sensor, kind.fModifier, *reading, limits);
   if (kind.fPrefix == "fan")
      AddFan(collected, id, name, chip, state);
   else
      group.Add(label.empty() ? shortName : label, state);
}

/// "coretemp coretemp.0": the driver, and the device that makes two of a kind differ.
std::string NameChip(const TMachine& machine, const std::string& folder, const std::string& entry)
{
   const std::string name = machine.ReadLine(folder + "/name");
   const std::string device = machine.ReadLinkName(folder + "/device");
   if (name.empty())
      return device.empty() ? entry : device;
   return device.empty() || device == name ? name : name + ' ' + device;
}

}  // namespace

void CollectSensors(const TMachine& machine, TCollected& collected)
{
   bool hasSensor = false;
   for (const std::string& entry : machine.List(kFolder)) {
      const std::string folder = kFolder + entry;
      const std::string chip = NameChip(machine, folder, entry);
      TSensorGroup group;
      for (const std::string& file : machine.List(folder))
         if (const TKind* kind = FindKind(file)) {
            AddSensor(machine, collected, folder, chip, file, *kind, group);
            hasSensor = true;
         }
      group.AddDevice(collected, "Sensors", chip);
   }
   if (!hasSensor)
      collected.AddGap(kSensors, kFolder, EReason::kNotPresent, "the kernel knows no sensor");
}

}  // namespace NZANQSX20
