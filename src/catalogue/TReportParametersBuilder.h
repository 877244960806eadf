#pragma once

#include <string>

#include "CIMStore.h"
#include "QSXExport.h"
#include "definitions/TReportParameters.h"

/// The fixed catalogue of reports, and the probes that decide which tables and columns they have.
///
/// Owner:  a value that shares the namespace handle; each definition is made afresh.
/// Throws: a probe answers what is missing (status 15) by itself; any other failure of the store
/// leaves it.
class QSX_API TReportParametersBuilder
{
public:
   /// The collected operating system, as GetOSType gives it.
   enum EOSType : int
   {
      kWindows = 0,
      kWindowsLater = 1,  // CIM OSType above 73
      kLinux = 2,
      kESX = 3,
      kUnknownOS = 4
   };

   /// The mode that adds the tables and reports of service.
   static constexpr const char* kServiceMode = "mek";

   TReportParametersBuilder(boost::shared_ptr<ICIMNamespace> cimNamespace, std::string mode,
                            bool isKMC);

   // ---- catalogue/Probes.cpp
   // -------------------------------------------------------------------------

   /// The class, read in the first namespace. Throws: as the store does.
   boost::shared_ptr<ICIMClass> GetClass(std::string name);
   int GetOSType();
   /// The type of the running console when path is not empty: kESX or kLinux.
   int GetOSType(std::string path);
   bool IsRedHat();
   bool IsMultiNode();
   bool IsMultiNodeforBeaconPanel();
   bool IsHarbor();
   bool HasTeamInfo();
   /// "3." and the first character of the collection's minor version.
   std::string GetDataSourceVersion();

   // ---- catalogue/SystemReports.cpp
   // ------------------------------------------------------------------

   TReportParameters BuildSystemConfigParams();
   TReportParameters BuildInstalledAppsParams();
   TReportParameters BuildVmware3iParams();
   TReportParameters BuildWindowsComponentsParams();
   TReportParameters BuildSysConfigParams();
   TReportParameters BuildInstalledRPMParams();
   TReportParameters BuildInstalledFixesParams();
   TReportParameters BuildKernelModuleParams();
   TReportParameters BuildDeviceDriverParams();
   TReportParameters BuildSystemServiceParams();
   TReportParameters BuildProcessesParams();
   TReportParameters BuildResourceUtilizationParams();
   TReportParameters BuildOSConfigParams();

   // ---- catalogue/NetworkReports.cpp
   // -----------------------------------------------------------------

   TReportParameters BuildNetworkWithTeamingParams();
   TReportParameters BuildNetworkWithoutTeamingParams();

   // ---- catalogue/HardwareReports.cpp
   // -----------------------------------------------------------------

   TReportParameters BuildHardwareInfoParams();
   TReportParameters BuildPCIInfoParams();

   // ---- catalogue/FirmwareReports.cpp
   // -----------------------------------------------------------------

   TReportParameters BuildFirmwareParams();
   TReportParameters BuildEmulexParams();
   TReportParameters BuildQlogicParams();

   // ---- catalogue/ServiceProcessorReports.cpp
   // -----------------------------------------------------------------

   TReportParameters BuildServProcConfigParams();
   TReportParameters BuildBeaconPanelParams();
   TReportParameters BuildBISTParams();

   // ---- catalogue/LogReports.cpp
   // -----------------------------------------------------------------

   TReportParameters BuildCELLogParams();
   TReportParameters BuildTLMLogParams();
   TReportParameters BuildWRDPLogParams();
   TReportParameters BuildIPMILogParams();
   TReportParameters BuildWinAppEventParams();
   TReportParameters BuildWinSysEventParams();
   TReportParameters BuildWinSecEventParams();
   TReportParameters BuildMergeLogParams();
   TReportParameters BuildFileLoaderParams();
   TReportParameters BuildPSParams();
   TReportParameters BuildQSXLogParams();
   TReportParameters BuildDiagsParams();

private:
   boost::shared_ptr<ICIMNamespace> fNamespace;
   std::string fMode;
   bool fIsKMC;
};
