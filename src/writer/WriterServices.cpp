#include <algorithm>
#include <cmath>

#include <boost/lexical_cast.hpp>

#include "writer/MemoryModuleTables.h"
#include "writer/StoreWalk.h"
#include "writer/TWriter.h"
#include "writer/WriterLog.h"

namespace {

using TReportClass = TWriter::TReportClass;

/// The CIM number of Linux as the type of an operating system.
constexpr unsigned short kLinux = 36;

bool Contains(const std::string& text, const char* part)
{
   return text.find(part) != std::string::npos;
}

int ReadInt(ICIMInstance& instance, const std::string& propertyName)
{
   return static_cast<int>(instance.GetProperty(propertyName, {})->GetValue(TContext()));
}

/// Whether the table of logical devices leaves the instance to other tables.
bool IsListedElsewhere(TWriter& writer, const boost::shared_ptr<ICIMInstance>& device)
{
   const std::string deviceClass = writer.GetPropertyValue(device, "DeviceClass", "");
   for (const char* part : {"cpu", "memory", "unknown", "network interface"})
      if (Contains(deviceClass, part))
         return true;
   return Contains(deviceClass, "system") &&
          Contains(writer.GetPropertyValue(device, "ElementName", ""), "System");
}

bool WriteMemoryModules(TWriter& writer, const TReportClass& reportClass, TInstances& instances)
{
   WriteMemoryModuleTables(writer, reportClass, instances);
   return !instances.empty();
}

/// Writes what is left of the devices, even when that is nothing.
bool WriteLogicalDevices(TWriter& writer, const TReportClass& reportClass, TInstances& instances)
{
   const auto isListedElsewhere = [&writer](const boost::shared_ptr<ICIMInstance>& device) {
      return IsListedElsewhere(writer, device);
   };
   instances.erase(std::remove_if(instances.begin(), instances.end(), isListedElsewhere),
                   instances.end());
   writer.WriteTable(reportClass, std::move(instances), true, false, {});
   return true;
}

/// Writes all instances or, when none has a build number, nothing.
bool WriteDiagnosticVPD(TWriter& writer, const TReportClass& reportClass, TInstances& instances)
{
   const bool hasBuild = std::any_of(instances.begin(), instances.end(), [&](const auto& vpd) {
      return !writer.GetPropertyValue(vpd, "BuildNumber", "").empty();
   });
   if (hasBuild)
      writer.WriteTable(reportClass, std::move(instances), true, false, {});
   return hasBuild;
}

bool WriteSorted(TWriter& writer, const TReportClass& reportClass, TInstances& instances,
                 const std::string& timeProperty)
{
   if (instances.empty())
      return false;
   TReportParameters::TInstanceSorter sorter;
   sorter.AddProperty(timeProperty, true, false);
   sorter.SortInstances(instances);
   writer.WriteTable(reportClass, std::move(instances), true, false, {});
   return true;
}

bool WriteFiltered(TWriter& writer, const TReportClass& reportClass, TInstances& instances)
{
   const std::string name = reportClass.GetClass();
   if (name == "ZANSG_SPDData")
      return WriteMemoryModules(writer, reportClass, instances);
   if (name == "ZANSG_LogicalDevice")
      return WriteLogicalDevices(writer, reportClass, instances);
   if (name == "ZANSG_DiagnosticVPD")
      return WriteDiagnosticVPD(writer, reportClass, instances);
   if (name == "CIM_DiagnosticCompletionRecord")
      return WriteSorted(writer, reportClass, instances, "CreationTimeStamp");
   if (name == "ZANSG_MemoryDiagLogRecord")
      return WriteSorted(writer, reportClass, instances, "MessageTimestamp");
   return false;
}

}  // namespace

std::string TWriter::GetNumericSensorValue(boost::shared_ptr<ICIMInstance> instance, bool)
{
   LogTrace("Entering TWriter::GetNumericSensorValue");
   std::string value;
   try {
      const double reading = ReadInt(*instance, "CurrentReading");
      const double modifier = ReadInt(*instance, "UnitModifier");
      const double factor = modifier < 0 ? 1 / std::pow(10, -modifier) : std::pow(10, modifier);
      value = boost::lexical_cast<std::string>(reading * factor);
   } catch (const std::exception&) {
      value = "N/A";
      LogError("Report: Error calculating numeric sensor value.");
   }
   LogTrace("Exiting TWriter::GetNumericSensorValue, value=", value);
   return value;
}

bool TWriter::IsLinux()
{
   const boost::shared_ptr<ICIMClass> cimClass = FindClass(fNamespace, "ZANSG_OperatingSystem");
   if (!cimClass) {
      LogTrace("Report - IsLinux: no ZANSG_OperatingSystem class");
      return false;
   }
   const TInstances systems = EnumerateInstances(cimClass);
   if (systems.size() != 1) {
      LogTrace("Report - IsLinux: no ZANSG_OperatingSystem instance");
      return false;
   }
   try {
      const auto type = systems.front()->GetProperty("OSType", {});
      return static_cast<unsigned short>(type->GetValue(TContext())) == kLinux;
   } catch (const TQSXException& failure) {
      RethrowUnlessNotFound(failure);
      return false;
   }
}

bool TWriter::ClassFilter(std::vector<TReportClass>::iterator reportClass, TInstances instances,
                          bool& wroteTable)
{
   const bool wrote = WriteFiltered(*this, *reportClass, instances);
   if (wrote)
      wroteTable = true;
   return wrote;
}
