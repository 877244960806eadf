#include "CatalogueCommand.h"

#include <cerrno>
#include <iostream>

#include "Console.h"
#include "FittedJson.h"
#include "Input.h"
#include "Options.h"
#include "RunLog.h"
#include "catalogue/TReportParametersBuilder.h"
#include "hypervisor/TReportParametersBuilder_vmwesxi.h"
#include "services/TCoreLogger.h"
#include "trace/DefinitionJson.h"

namespace {

/// One function of a builder. Builder is the server's or the hypervisor's.
template <typename Builder>
struct TDefinition
{
   const char* fName;
   TReportParameters (Builder::*fBuild)();
};

// In the order of the classes.

constexpr TDefinition<TReportParametersBuilder> kDefinitions[] = {
   {"BuildSystemConfigParams", &TReportParametersBuilder::BuildSystemConfigParams},
   {"BuildInstalledAppsParams", &TReportParametersBuilder::BuildInstalledAppsParams},
   {"BuildVmware3iParams", &TReportParametersBuilder::BuildVmware3iParams},
   {"BuildWindowsComponentsParams", &TReportParametersBuilder::BuildWindowsComponentsParams},
   {"BuildSysConfigParams", &TReportParametersBuilder::BuildSysConfigParams},
   {"BuildInstalledRPMParams", &TReportParametersBuilder::BuildInstalledRPMParams},
   {"BuildInstalledFixesParams", &TReportParametersBuilder::BuildInstalledFixesParams},
   {"BuildKernelModuleParams", &TReportParametersBuilder::BuildKernelModuleParams},
   {"BuildDeviceDriverParams", &TReportParametersBuilder::BuildDeviceDriverParams},
   {"BuildSystemServiceParams", &TReportParametersBuilder::BuildSystemServiceParams},
   {"BuildProcessesParams", &TReportParametersBuilder::BuildProcessesParams},
   {"BuildResourceUtilizationParams", &TReportParametersBuilder::BuildResourceUtilizationParams},
   {"BuildOSConfigParams", &TReportParametersBuilder::BuildOSConfigParams},
   {"BuildNetworkWithTeamingParams", &TReportParametersBuilder::BuildNetworkWithTeamingParams},
   {"BuildNetworkWithoutTeamingParams",
    &TReportParametersBuilder::BuildNetworkWithoutTeamingParams},
   {"BuildHardwareInfoParams", &TReportParametersBuilder::BuildHardwareInfoParams},
   {"BuildPCIInfoParams", &TReportParametersBuilder::BuildPCIInfoParams},
   {"BuildFirmwareParams", &TReportParametersBuilder::BuildFirmwareParams},
   {"BuildEmulexParams", &TReportParametersBuilder::BuildEmulexParams},
   {"BuildQlogicParams", &TReportParametersBuilder::BuildQlogicParams},
   {"BuildServProcConfigParams", &TReportParametersBuilder::BuildServProcConfigParams},
   {"BuildBeaconPanelParams", &TReportParametersBuilder::BuildBeaconPanelParams},
   {"BuildBISTParams", &TReportParametersBuilder::BuildBISTParams},
   {"BuildCELLogParams", &TReportParametersBuilder::BuildCELLogParams},
   {"BuildTLMLogParams", &TReportParametersBuilder::BuildTLMLogParams},
   {"BuildWRDPLogParams", &TReportParametersBuilder::BuildWRDPLogParams},
   {"BuildIPMILogParams", &TReportParametersBuilder::BuildIPMILogParams},
   {"BuildWinAppEventParams", &TReportParametersBuilder::BuildWinAppEventParams},
   {"BuildWinSysEventParams", &TReportParametersBuilder::BuildWinSysEventParams},
   {"BuildWinSecEventParams", &TReportParametersBuilder::BuildWinSecEventParams},
   {"BuildMergeLogParams", &TReportParametersBuilder::BuildMergeLogParams},
   {"BuildFileLoaderParams", &TReportParametersBuilder::BuildFileLoaderParams},
   {"BuildPSParams", &TReportParametersBuilder::BuildPSParams},
   {"BuildQSXLogParams", &TReportParametersBuilder::BuildQSXLogParams},
   {"BuildDiagsParams", &TReportParametersBuilder::BuildDiagsParams},
};

constexpr TDefinition<TReportParametersBuilder_vmwesxi> kHypervisorDefinitions[] = {
   {"BuildSystemOverviewParams", &TReportParametersBuilder_vmwesxi::BuildSystemOverviewParams},
   {"BuildHardwareInventoryParams",
    &TReportParametersBuilder_vmwesxi::BuildHardwareInventoryParams},
   {"BuildRegisteredProfileParams",
    &TReportParametersBuilder_vmwesxi::BuildRegisteredProfileParams},
   {"BuildHealthStatusParams", &TReportParametersBuilder_vmwesxi::BuildHealthStatusParams},
   {"BuildVMwarePrivilegeLogParams",
    &TReportParametersBuilder_vmwesxi::BuildVMwarePrivilegeLogParams},
};

template <typename Builder, std::size_t count>
std::string WriteDefinitions(Builder builder, const TDefinition<Builder> (&definitions)[count])
{
   rapidjson::StringBuffer text;
   TJsonWriter json(text);
   json.StartObject();
   for (const TDefinition<Builder>& definition : definitions) {
      json.Key(definition.fName);
      WriteJson(json, (builder.*definition.fBuild)());
   }
   json.EndObject();
   return {text.GetString(), text.GetSize()};
}

std::string WriteCatalogue(const TOptions& options, boost::shared_ptr<ICIMNamespace> cimNamespace)
{
   const std::string mode = options.fMode.value_or("default");
   if (options.fHypervisor)
      return WriteDefinitions(TReportParametersBuilder_vmwesxi(cimNamespace, mode),
                              kHypervisorDefinitions);
   return WriteDefinitions(TReportParametersBuilder(cimNamespace, mode, options.fKMC),
                           kDefinitions);
}

}  // namespace

EExitCode RunCatalogueCommand(const TOptions& options, TConsole& console)
{
   TRunLog log(options, console);
   const boost::shared_ptr<ICIMNamespace> cimNamespace =
      ReadInput(options, console, log).fNamespace;
   std::string catalogue;
   {
      const TOutputDiversion diversion(log);
      const NZANQSX20::TLogAttachment logging(log);
      catalogue = WriteCatalogue(options, cimNamespace);
   }
   errno = 0;
   std::cout << FitJson(catalogue);
   FlushStandardOutput();
   log.Finish();
   return kExitDone;
}
