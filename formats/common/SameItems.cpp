#include "common/SameItems.h"

#include <algorithm>

#include "catalogue/TReportParametersBuilder.h"
#include "writer/InstanceAccess.h"

namespace {

using TBuild = TReportParameters (TReportParametersBuilder::*)();

// The generic reports of a comparison.
constexpr TBuild kBuilds[] = {
   &TReportParametersBuilder::BuildSystemConfigParams,
   &TReportParametersBuilder::BuildInstalledAppsParams,
   &TReportParametersBuilder::BuildWindowsComponentsParams,
   &TReportParametersBuilder::BuildInstalledFixesParams,
   &TReportParametersBuilder::BuildInstalledRPMParams,
   &TReportParametersBuilder::BuildDeviceDriverParams,
   &TReportParametersBuilder::BuildSystemServiceParams,
   &TReportParametersBuilder::BuildKernelModuleParams,
   &TReportParametersBuilder::BuildResourceUtilizationParams,
   &TReportParametersBuilder::BuildProcessesParams,
   &TReportParametersBuilder::BuildOSConfigParams,
   &TReportParametersBuilder::BuildSysConfigParams,
   &TReportParametersBuilder::BuildHardwareInfoParams,
   &TReportParametersBuilder::BuildPCIInfoParams,
   &TReportParametersBuilder::BuildFirmwareParams,
   &TReportParametersBuilder::BuildServProcConfigParams,
   &TReportParametersBuilder::BuildQlogicParams,
   &TReportParametersBuilder::BuildEmulexParams,
   &TReportParametersBuilder::BuildVmware3iParams,
   &TReportParametersBuilder::BuildBeaconPanelParams,
   &TReportParametersBuilder::BuildBISTParams,
};

constexpr const char* kFindingClass = "ZANSG_Delta";
constexpr unsigned kPropertyFinding = 4;

std::string ReadText(ICIMInstance& instance, const char* property)
{
   return instance.GetProperty(property, {})->GetValue(TContext()).ToString(10);
}

}  // namespace

TSameItems::TSameItems(const boost::shared_ptr<ICIMNamespace>& cimNamespace,
                       const std::string& mode, bool isKMC)
   : fNamespace(cimNamespace)
{
   try {
      ReadFindings();
      ReadDefinitions(mode, isKMC);
   } catch (const TQSXException&) {
      // Without all findings nothing can be said to be the same.
      fDefinitions.clear();
   }
}

void TSameItems::ReadFindings()
{
   const auto cimClass = FindClass(fNamespace, kFindingClass);
   if (!cimClass)
      return;
   for (const auto& finding : EnumerateInstances(cimClass)) {
      const bool isOfProperty = ReadText(*finding, "Type") == std::to_string(kPropertyFinding);
      fFindings[ReadText(*finding, "InstanceName")].push_back(
         isOfProperty ? ReadText(*finding, "Property") : std::string());
   }
}

void TSameItems::ReadDefinitions(const std::string& mode, bool isKMC)
{
   TReportParametersBuilder builder(fNamespace, mode, isKMC);
   const auto add = [this, &builder](TBuild build) {
      TReportParameters definition = (builder.*build)();
      std::string linkName = definition.GetLinkName();
      fDefinitions.emplace(std::move(linkName), std::move(definition));
   };
   for (const TBuild build : kBuilds)
      add(build);
   add(builder.HasTeamInfo() ? &TReportParametersBuilder::BuildNetworkWithTeamingParams
                             : &TReportParametersBuilder::BuildNetworkWithoutTeamingParams);
}

std::vector<TSameItems::TTable> TSameItems::Find(const std::string& linkName) const
{
   std::vector<TTable> tables;
   const auto definition = fDefinitions.find(linkName);
   if (definition == fDefinitions.end())
      return tables;
   for (const TReportClass& reportClass : definition->second.GetClasses())
      try {
         TInstances instances = ReadInstances(fNamespace, reportClass);
         instances.erase(
            std::remove_if(instances.begin(), instances.end(),
                           [&](const auto& instance) { return !IsSame(instance, reportClass); }),
            instances.end());
         if (!instances.empty())
            tables.push_back({reportClass, std::move(instances)});
      } catch (const TQSXException&) {
         // The table stays out; the differences are told all the same.
      }
   return tables;
}

/// The instance, what its cells show of others, and all that is listed below it.
bool TSameItems::IsSame(const boost::shared_ptr<ICIMInstance>& instance,
                        const TReportClass& reportClass) const
{
   const auto& properties = reportClass.GetProperties();
   if (IsNamed(instance, properties))
      return false;
   for (const auto& property : properties) {
      if (property.GetAssociationClass().empty() && property.GetAssociationTarget().empty())
         continue;
      for (const auto& associated : EnumerateAssociators(instance, property.GetAssociationClass(),
                                                         property.GetAssociationTarget()))
         if (IsNamed(associated, {property}))
            return false;
   }
   for (const TReportClass& associatedClass : reportClass.GetAssociatedClasses())
      for (const auto& associated : ReadAssociatedInstances(instance, associatedClass))
         if (!IsSame(associated, associatedClass))
            return false;
   return true;
}

/// Whether a finding names it that is on one of these properties or on the instance as such.
bool TSameItems::IsNamed(const boost::shared_ptr<ICIMInstance>& instance,
                         const std::vector<TReportParameters::TReportProperty>& properties) const
{
   const auto named = fFindings.find(instance->GetReference({}).GetPath());
   if (named == fFindings.end())
      return false;
   return std::any_of(named->second.begin(), named->second.end(), [&](const std::string& name) {
      return name.empty() ||
             std::any_of(properties.begin(), properties.end(),
                         [&name](const auto& property) { return property.GetProperty() == name; });
   });
}
