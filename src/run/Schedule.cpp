#include "run/Schedule.h"

#include <cstdlib>

#include <boost/algorithm/string/predicate.hpp>

#include "catalogue/OSType.h"

using TCatalogue = TReportParametersBuilder;
using namespace schedule;

namespace {

TCondition OSIs(int osType)
{
   return TCondition([osType](TRun& run) { return run.fOSType == osType; });
}

/// Compared as text, byte by byte: "1.10" is less than "1.3".
TCondition VersionFrom(const std::string& version)
{
   return TCondition([version](TRun& run) { return run.fVersion >= version; });
}

bool HasBIOSProvider(TRun&)
{
   const char* provider = std::getenv("QSX_BIOSPROVIDER");
   return provider != nullptr && boost::algorithm::iequals(provider, "yes");
}

std::vector<TStep> MakeSchedule()
{
   const TCondition onWindows([](TRun& run) { return IsWindows(run.fOSType); });
   const TCondition onLinuxOrESX(
      [](TRun& run) { return IsLinux(run.fOSType) || IsESX(run.fOSType); });
   const TCondition comparing([](TRun& run) { return run.fComparing; });
   const TCondition withTeams([](TRun& run) { return run.fBuilder.HasTeamInfo(); });
   const TCondition withBIOSProvider(HasBIOSProvider);
   const TCondition withKMC([](TRun& run) { return run.fIsKMC; });
   const TCondition inServiceMode(
      [](TRun& run) { return run.fMode == TReportParametersBuilder::kServiceMode; });
   const TCondition onRedHat([](TRun& run) { return run.fBuilder.IsRedHat(); });

   return {
      Group("Software"),
      Generic(&TCatalogue::BuildSystemConfigParams),
      Generic(&TCatalogue::BuildInstalledAppsParams).When(OSIs(TCatalogue::kWindows)),
      Generic(&TCatalogue::BuildWindowsComponentsParams)
         .When(OSIs(TCatalogue::kWindows) && VersionFrom("1.3")),
      Generic(&TCatalogue::BuildInstalledFixesParams).When(OSIs(TCatalogue::kWindows)),
      Generic(&TCatalogue::BuildInstalledRPMParams).When(onLinuxOrESX),
      Generic(&TCatalogue::BuildInstalledAppsParams).When(OSIs(TCatalogue::kWindowsLater)),
      Generic(&TCatalogue::BuildInstalledFixesParams).When(OSIs(TCatalogue::kWindowsLater)),
      Generic(&TCatalogue::BuildDeviceDriverParams).When(onWindows),
      Generic(&TCatalogue::BuildSystemServiceParams).When(onWindows),
      Generic(&TCatalogue::BuildKernelModuleParams).When(onLinuxOrESX),
      Generic(&TCatalogue::BuildNetworkWithTeamingParams).When(withTeams),
      Generic(&TCatalogue::BuildNetworkWithoutTeamingParams).When(!withTeams),
      Generic(&TCatalogue::BuildResourceUtilizationParams),
      Generic(&TCatalogue::BuildProcessesParams),
      Generic(&TCatalogue::BuildOSConfigParams).When(VersionFrom("1.1")),
      Generic(&TCatalogue::BuildSysConfigParams)
         .When(VersionFrom("1.3") && OSIs(TCatalogue::kLinux)),

      Group("Hardware"),
      Generic(&TCatalogue::BuildHardwareInfoParams),
      Generic(&TCatalogue::BuildPCIInfoParams),
      Generic(&TCatalogue::BuildFirmwareParams).When(comparing),
      Report(&TWriter::WriteCustomFirmwareReport).When(!comparing),
      Guarded({Report(&TWriter::WriteSPConfigReport), Report(&TWriter::WriteEnvironmentalsReport)},
              {Generic(&TCatalogue::BuildServProcConfigParams),
               Report(&TWriter::WriteEnvironmentals).When(!comparing)})
         .When(VersionFrom("1.1")),
      Report(&TWriter::WriteDriveHealthReport).When(!comparing),
      Report(&TWriter::WriteLSIReport).When(!comparing && VersionFrom("1.1")),
      Report(&TWriter::WriteLSIMegaRaidReport).When(!comparing && VersionFrom("1.1")),
      Report(&TWriter::WriteLSIIDEReport).When(!comparing && VersionFrom("1.1")),
      Report(&TWriter::WriteCorvaneReport).When(!comparing),
      Report(&TWriter::WriteCorvaneLogsReport).When(!comparing),
      Report(&TWriter::WriteQlogicRawDataReport),
      WithRawDataLink(&TCatalogue::BuildQlogicParams, "fc_rawData"),
      Report(&TWriter::WriteEmulexReport),
      WithRawDataLink(&TCatalogue::BuildEmulexParams, "emulex_rawData"),
      Generic(&TCatalogue::BuildVmware3iParams),
      Generic(&TCatalogue::BuildBeaconPanelParams).When(VersionFrom("1.3")),
      Generic(&TCatalogue::BuildBISTParams).When(VersionFrom("2.0")),
      Report(&TWriter::WriteBIOSEnumeration).When(withBIOSProvider),

      End().When(comparing),

      Group("Windows Logs").When(onWindows),
      Report(&TWriter::WriteEventLogReport, &TCatalogue::BuildWinAppEventParams).When(onWindows),
      Report(&TWriter::WriteEventLogReport, &TCatalogue::BuildWinSysEventParams).When(onWindows),
      Report(&TWriter::WriteEventLogReport, &TCatalogue::BuildWinSecEventParams).When(onWindows),

      Group("Linux Logs").When(!onWindows),
      Report(&TWriter::WriteLinuxLogReport).When(!onWindows),

      Group("KMC Logs", "SP Logs"),
      Generic(&TCatalogue::BuildCELLogParams).When(withKMC),
      Log(NZANQSX20::kLogTrace,
          "No iKMC communication available.  Skipping CEL, writing TLM and WRDP")
         .When(!withKMC),
      Generic(&TCatalogue::BuildTLMLogParams).When(!withKMC),
      Generic(&TCatalogue::BuildWRDPLogParams).When(!withKMC),
      Generic(&TCatalogue::BuildIPMILogParams),

      Group("ZAN Service").When(inServiceMode),
      Report(&TWriter::WriteQTARegisterReport).When(inServiceMode),
      Report(&TWriter::WriteFibreChannelReport).When(inServiceMode),

      Group("Analysis"),
      Report(&TWriter::WriteCELMergedLogReport).When(withKMC),
      Report(&TWriter::WriteMergedLogReport, &TCatalogue::BuildMergeLogParams).When(!withKMC),
      Log(NZANQSX20::kLogNotice, "Merged Devices report is not available with RHEL.")
         .When(VersionFrom("1.1") && onRedHat),
      Report(&TWriter::WriteMergedDevicesReport).When(VersionFrom("1.1") && !onRedHat),
      Report(&TWriter::WriteCadenzaReport),
      Generic(&TCatalogue::BuildPSParams),
      Generic(&TCatalogue::BuildFileLoaderParams),
      Generic(&TCatalogue::BuildDiagsParams),

      // The index entry of the program's own log falls outside every group.
      EndGroup(),
      Generic(&TCatalogue::BuildQSXLogParams),
   };
}

}  // namespace

const std::vector<TStep>& schedule::GetSchedule()
{
   static const std::vector<TStep> schedule = MakeSchedule();
   return schedule;
}
