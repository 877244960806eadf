#include "comparison/TIgnoredProperties.h"

#include <algorithm>

namespace NZANQSX20 {

const std::vector<std::string>& GetUsuallyDifferentProperties()
{
   static const std::vector<std::string> kNames = {
      // the clock and the collection itself
      "DateTimeOfCollection",
      "ZANSG_TimeZone.LocalDateTime",
      "ZANSG_TimeZone.GMTDateTime",
      // up time and load
      "ZANSG_OperatingSystem.UpTime",
      "ZANSG_OperatingSystem.MemoryLoad",
      "ZANSG_OperatingSystem.SwapUtilization",
      "ZANSG_OperatingSystem.FreeVirtualMemory",
      "ZANSG_OperatingSystem.FreeSpaceInPagingFiles",
      "ZANSG_OperatingSystem.FreeSwapSpaceSize",
      "ZANSG_OperatingSystem.FreePhysicalMemory",
      "ZANSG_OperatingSystem.HandleCount",
      "ZANSG_OperatingSystem.ThreadCount",
      "ZANSG_OperatingSystem.ProcessCount",
      "ZANSG_OperatingSystem.SystemCache",
      "ZANSG_OperatingSystem.CommitTotal",
      "ZANSG_OperatingSystem.CommitPeak",
      "ZANSG_OperatingSystem.KernelTotal",
      "ZANSG_OperatingSystem.KernelPaged",
      "ZANSG_OperatingSystem.KernelNonpaged",
      // processes
      "ZANSG_Process.ExecutionState",
      "ZANSG_Process.KernelModeTime",
      "ZANSG_Process.UserModeTime",
      "ZANSG_Process.WorkingSetSize",
      // counters
      "ZANSG_SystemPerformanceData.CounterValue",
      "ZANSG_NetworkStatisticalData.RXPackets",
      "ZANSG_NetworkStatisticalData.RXErrors",
      "ZANSG_NetworkStatisticalData.RXDropErrors",
      "ZANSG_NetworkStatisticalData.RXOverrunErrors",
      "ZANSG_NetworkStatisticalData.RXFrameErrors",
      "ZANSG_NetworkStatisticalData.TXPackets",
      "ZANSG_NetworkStatisticalData.TXErrors",
      "ZANSG_NetworkStatisticalData.TXDropErrors",
      "ZANSG_NetworkStatisticalData.TXOverrunErrors",
      "ZANSG_NetworkStatisticalData.TXCarrierErrors",
      "ZANSG_NetworkStatisticalData.Collisions",
      "ZANSG_NetworkStatisticalData.RXBytes",
      "ZANSG_NetworkStatisticalData.TXBytes",
      // free space
      "ZANSG_LogicalDisk.FreeSpace",
      "ZANSG_LogicalDisk.UserDiskFreeSpace",
      // readings
      "CIM_NumericSensor.CurrentReading",
      "ZANSG_SP_NumericSensor.CurrentReading",
   };
   return kNames;
}

void TIgnoredProperties::Add(std::string_view name)
{
   const std::size_t dot = name.find('.');
   if (dot == std::string_view::npos)
      fNames.push_back({"", std::string(name)});
   else
      fNames.push_back({std::string(name.substr(0, dot)), std::string(name.substr(dot + 1))});
}

bool TIgnoredProperties::Names(const TName& name, const TStoredClass& storedClass,
                               const std::string& propertyName) const
{
   if (name.fProperty != propertyName)
      return false;
   if (name.fClass.empty())
      return true;
   const TStoredClass* ancestor = &storedClass;
   while (ancestor != nullptr && ancestor->GetName() != name.fClass)
      ancestor = ancestor->GetSuperclass();
   return ancestor != nullptr;
}

bool TIgnoredProperties::Contains(const TStoredClass& storedClass,
                                  const TStoredProperty& property) const
{
   if (property.HasTrueQualifier("Volatile"))
      return true;
   const std::string& propertyName = property.GetDeclaration().fName;
   return std::any_of(fNames.begin(), fNames.end(),
                      [&](const TName& name) { return Names(name, storedClass, propertyName); });
}

std::vector<std::string> TIgnoredProperties::FindUnknown(
   const std::vector<TStoredClass*>& classes) const
{
   std::vector<std::string> unknown;
   for (const TName& name : fNames) {
      const bool isKnown =
         std::any_of(classes.begin(), classes.end(), [&](const TStoredClass* storedClass) {
            return storedClass->FindProperty(name.fProperty) != nullptr &&
                   Names(name, *storedClass, name.fProperty);
         });
      if (!isKnown)
         unknown.push_back(name.fClass.empty() ? name.fProperty
                                               : name.fClass + "." + name.fProperty);
   }
   return unknown;
}

}  // namespace NZANQSX20
