#include "common/ReportClasses.h"

#include <algorithm>
#include <memory>

#include "catalogue/TReportParametersBuilder.h"
#include "hypervisor/TReportParametersBuilder_vmwesxi.h"

namespace {

using TBuilder = TReportParametersBuilder;
using THypervisorBuilder = TReportParametersBuilder_vmwesxi;

/// The definitions of the reports; one of the same link name adds to the classes.
constexpr TReportParameters (TBuilder::*kDefinitions[])() = {
   &TBuilder::BuildSystemConfigParams,   &TBuilder::BuildInstalledAppsParams,
   &TBuilder::BuildVmware3iParams,       &TBuilder::BuildWindowsComponentsParams,
   &TBuilder::BuildSysConfigParams,      &TBuilder::BuildInstalledRPMParams,
   &TBuilder::BuildInstalledFixesParams, &TBuilder::BuildKernelModuleParams,
   &TBuilder::BuildDeviceDriverParams,   &TBuilder::BuildSystemServiceParams,
   &TBuilder::BuildProcessesParams,      &TBuilder::BuildResourceUtilizationParams,
   &TBuilder::BuildOSConfigParams,       &TBuilder::BuildNetworkWithTeamingParams,
   &TBuilder::BuildHardwareInfoParams,   &TBuilder::BuildPCIInfoParams,
   &TBuilder::BuildFirmwareParams,       &TBuilder::BuildEmulexParams,
   &TBuilder::BuildQlogicParams,         &TBuilder::BuildServProcConfigParams,
   &TBuilder::BuildBeaconPanelParams,    &TBuilder::BuildBISTParams,
   &TBuilder::BuildCELLogParams,         &TBuilder::BuildTLMLogParams,
   &TBuilder::BuildWRDPLogParams,        &TBuilder::BuildIPMILogParams,
   &TBuilder::BuildWinAppEventParams,    &TBuilder::BuildWinSysEventParams,
   &TBuilder::BuildWinSecEventParams,    &TBuilder::BuildMergeLogParams,
   &TBuilder::BuildFileLoaderParams,     &TBuilder::BuildPSParams,
   &TBuilder::BuildQSXLogParams,         &TBuilder::BuildDiagsParams,
};

constexpr TReportParameters (THypervisorBuilder::*kHypervisorDefinitions[])() = {
   &THypervisorBuilder::BuildSystemOverviewParams,
   &THypervisorBuilder::BuildHardwareInventoryParams,
   &THypervisorBuilder::BuildRegisteredProfileParams,
   &THypervisorBuilder::BuildHealthStatusParams,
   &THypervisorBuilder::BuildVMwarePrivilegeLogParams,
};

/// Of a report that is written by hand.
struct TReportClass
{
   /// The link name, or the name in the index where the entry has no link name.
   const char* fReport;
   const char* fClass;
};

constexpr TReportClass kWrittenByHand[] = {
   {"Environmentals", "CIM_NumericSensor"},
   {"environmentals", "ZANSG_SP_NumericSensor"},
   {"SPConfig", "CIM_StaticIPAssignmentSettingData"},
   {"Static IP", "CIM_StaticIPAssignmentSettingData"},
   {"DNS IP", "CIM_DNSSettingData"},
   {"drive_health", "OMC_ATADevice"},
   {"drive_health", "ZANSG_TapeDriveSensePageData"},
   {"lsi", "ZANSG_LSISCSIProtocolController"},
   {"lsi", "LSI_RAID_Card"},
   {"lsi_mr", "LSIESG_MegaRAIDHBA"},
   {"megalsi_rawData", "LSIESG_MegaRAIDHBA"},
   {"LSI IDE Controller", "ZANSG_LSIIDEProtocolController"},
   {"lsiide", "ZANSG_LSIIDEProtocolController"},
   {"Corvane", "ZANSG_cvSCSIProtocolController"},
   {"cv", "ZANSG_cvSCSIProtocolController"},
   {"corvanelogs", "ZANSG_LogRecord_RAIDMgrEvent"},
   {"corvanelogs", "ZANSG_LogRecord_cvDDD"},
   {"corvanelogs", "ZANSG_cvSCSIDeviceData"},
   {"fc_rawData", "ZANSG_QLogicFibreChannelRawData"},
   {"iscsi_rawData", "ZANSG_QLogicIScsiRawData"},
   {"emulex_rawData", "ELXHBA_Product"},
   {"biosenumeration", "ZANSG_BIOSEnumeration"},
   {"Event Logs", "ZANSG_LinuxEventLogRecord"},
   {"qta_reg", "ZANSG_QTAChipsetErrorData"},
   {"mergedDevices", "ZANSG_LogicalDevice"},
   {"mergedlog", "ZANSG_LogRecord"},
   {"cadenzadevices", "ZANSG_CadenzaDevices"},
};

template <typename Builder, std::size_t kCount>
void AddDefinitions(TReportClasses& classes, Builder builder,
                    TReportParameters (Builder::*const (&definitions)[kCount])())
{
   for (const auto definition : definitions) {
      try {
         const TReportParameters report = (builder.*definition)();
         std::vector<std::string>& known = classes[report.GetLinkName()];
         for (const TReportParameters::TReportClass& reportClass : report.GetClasses())
            known.push_back(reportClass.GetClass());
      } catch (const TQSXException&) {
         // A report that nobody knows counts as collected.
      }
   }
}

}  // namespace

TReportClasses ReadReportClasses(const boost::shared_ptr<ICIMNamespace>& cimNamespace)
{
   TReportClasses classes;
   AddDefinitions(classes, TBuilder(cimNamespace, "", false), kDefinitions);
   for (const TReportClass& known : kWrittenByHand)
      classes[known.fReport].emplace_back(known.fClass);
   return classes;
}

TReportClasses ReadHypervisorReportClasses(const boost::shared_ptr<ICIMNamespace>& cimNamespace)
{
   TReportClasses classes;
   AddDefinitions(classes, THypervisorBuilder(cimNamespace, ""), kHypervisorDefinitions);
   return classes;
}

std::function<bool(const TReportIndex::TEntry&)> MakeIsCollected(
   std::function<TReportClasses()> readClasses, const TCollectionFacts& facts,
   const std::vector<TGap>& gaps)
{
   if (!facts.fIsDeclared)
      return {};
   const auto classes = std::make_shared<TReportClasses>();
   return [=](const TReportIndex::TEntry& entry) {
      if (classes->empty())
         *classes = readClasses();
      return IsCollected(entry, *classes, facts, gaps);
   };
}

bool IsCollected(const TReportIndex::TEntry& entry, const TReportClasses& classes,
                 const TCollectionFacts& facts, const std::vector<TGap>& gaps)
{
   const auto known = classes.find(entry.fLinkName.empty() ? entry.fDisplayName : entry.fLinkName);
   if (!facts.fIsDeclared || known == classes.end())
      return true;
   const std::vector<std::string>& needed = known->second;
   for (const TGap& gap : gaps)
      for (const std::string& name : gap.fClasses)
         if (std::find(needed.begin(), needed.end(), name) != needed.end())
            return false;
   return std::any_of(needed.begin(), needed.end(), facts.fIsDeclared);
}
