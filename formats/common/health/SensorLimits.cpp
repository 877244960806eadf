#include "common/health/SensorLimits.h"

#include <cmath>
#include <initializer_list>

namespace {

struct TSensorClass
{
   const char* fClass;
   const char* fName;
};

constexpr TSensorClass kSensorClasses[] = {
   {"CIM_NumericSensor", "ElementName"},
   {"ZANSG_SP_NumericSensor", "SensorDescription"},
};

/// Missing: nothing where the instance has no such number.
std::optional<double> ReadNumber(const boost::shared_ptr<ICIMInstance>& sensor, const char* name)
{
   try {
      const TCIMValue value = sensor->GetProperty(name, {})->GetValue({});
      return value.IsNull() ? std::nullopt : std::make_optional(static_cast<double>(value));
   } catch (const TQSXException&) {
      return std::nullopt;
   }
}

std::optional<double> ReadFirst(const boost::shared_ptr<ICIMInstance>& sensor,
                                std::initializer_list<const char*> names, double factor)
{
   for (const char* const name : names)
      if (const std::optional<double> number = ReadNumber(sensor, name))
         return *number * factor;
   return std::nullopt;
}

void DropUnlikely(std::optional<double>& lower, std::optional<double>& upper)
{
   if (upper && *upper == 0)
      upper.reset();
   if (lower && upper && *lower >= *upper) {
      lower.reset();
      upper.reset();
   }
}

TSensorLimits ReadLimits(const boost::shared_ptr<ICIMInstance>& sensor)
{
   const double factor = std::pow(10.0, ReadNumber(sensor, "UnitModifier").value_or(0));
   TSensorLimits limits;
   limits.fLowerCritical =
      ReadFirst(sensor, {"LowerThresholdCritical", "LowerThresholdFatal"}, factor);
   limits.fLowerWarning = ReadFirst(sensor, {"LowerThresholdNonCritical"}, factor);
   limits.fUpperWarning = ReadFirst(sensor, {"UpperThresholdNonCritical"}, factor);
   limits.fUpperCritical =
      ReadFirst(sensor, {"UpperThresholdCritical", "UpperThresholdFatal"}, factor);
   DropUnlikely(limits.fLowerCritical, limits.fUpperCritical);
   DropUnlikely(limits.fLowerWarning, limits.fUpperWarning);
   return limits;
}

void AddLimits(TSensorLimitsByName& all, const std::string& name, const TSensorLimits& limits)
{
   const auto [known, isNew] = all.emplace(name, limits);
   if (!isNew && known->second != limits)
      known->second = TSensorLimits();
}

}  // namespace

TSensorLimitsByName ReadSensorLimits(const boost::shared_ptr<ICIMNamespace>& cimNamespace)
{
   TSensorLimitsByName limits;
   for (const TSensorClass& known : kSensorClasses) {
      try {
         const boost::shared_ptr<ICIMClass> sensorClass = cimNamespace->GetClass(known.fClass, {});
         std::vector<boost::shared_ptr<ICIMInstance>> sensors;
         if (sensorClass)
            sensorClass->EnumerateInstances(TAddToVectorCallback<ICIMInstance>(sensors), true, {});
         for (const boost::shared_ptr<ICIMInstance>& sensor : sensors)
            AddLimits(limits, sensor->GetProperty(known.fName, {})->GetValueString(),
                      ReadLimits(sensor));
      } catch (const TQSXException&) {
         // Readings without limits are not judged.
      }
   }
   return limits;
}
