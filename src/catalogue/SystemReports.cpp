#include <string>

#include "catalogue/OSType.h"
#include "catalogue/TReportDraft.h"
#include "catalogue/TReportParametersBuilder.h"

TReportParameters TReportParametersBuilder::BuildSystemConfigParams()
{
   const int osType = GetOSType();
   const bool windows = IsWindows(osType);
   const bool esx = IsESX(osType);
   const std::string version = GetDataSourceVersion();
   const bool hasUserAndTime = version >= "1.3";
   const bool hasBuild = version >= "1.2";
   TReportDraft report("system_overview", "System Overview");

   TTableDraft& computer = report.Table("ZANSG_ComputerSystem", "Computer System");
   computer.UseRowStyle("60%", "30%");
   computer.Limit(1);
   computer.Column("Manufacturer");
   computer.Column("Version");
   computer.Column("ProductName");
   computer.Column("SerialNumber");
   computer.Column("Name");

   TTableDraft& system = report.Table("ZANSG_OperatingSystem", "Operating System");
   system.UseRowStyle("60%", "30%");
   system.Limit(1);
   system.Column("Name");
   system.Column("OSType");
   if (windows) {
      system.Column("OSSubType");
      system.Column("Version");
      system.Column("FixLevel");
   }
   if (esx)
      system.Column("Version");
   system.Column("BuildID");
   system.Column("ProductVendor");
   if (windows) {
      system.Column("RegisteredOwner");
      system.Column("ProductID");
      system.Column("InstallDate");
   } else {
      system.Column("KernelName");
      system.Column("KernelRelease");
      system.Column("HardwarePlatform");
   }
   system.Column("UpTime");
   system.Column("LastBootUpTime");

   if (hasUserAndTime) {
      TTableDraft& timeZone = report.Table("ZANSG_TimeZone", "TimeZone");
      timeZone.UseRowStyle("60%", "30%");
      timeZone.Limit(1);
      timeZone.Column("LocalDateTime");
      timeZone.Column("TheTimeZone");
      if (windows)
         timeZone.Column("GMTDateTime");

      TTableDraft& currentUser = report.Table("ZANSG_ComputerSystem", "Current User");
      currentUser.UseRowStyle("60%", "30%");
      currentUser.Limit(1);
      currentUser.Column("Name", "30%").Via("ZANSG_CurrentAccountOnSystem", "ZANSG_Account");
   }

   TTableDraft& relevant = report.Table("ZANSG_HeavyHittersLogRecord", "Relevant Information");
   relevant.SetWidth("60%");
   relevant.Limit(1);
   relevant.Column("Message", "100%");

   TTableDraft& dataSource = report.Table("ZANSG_QSXProduct", "Data Source");
   dataSource.UseRowStyle("60%", "30%");
   dataSource.Limit(1);
   dataSource.Column("Name");
   dataSource.Column("Version");
   if (hasBuild)
      dataSource.Column("Build");

   return report.Finish();
}

TReportParameters TReportParametersBuilder::BuildInstalledAppsParams()
{
   TReportDraft report("installedapps", "Installed Applications");

   TTableDraft& applications = report.Table("ZANSG_InstalledApplication");
   applications.MakeSortable();
   applications.SortBy("ProductName");
   applications.Column("ProductName", "50%");
   applications.Column("ProductVersion", "20%");
   applications.Column("ProductVendor", "20%");
   applications.Column("ProductInstallDate", "10%");

   return report.Finish();
}

TReportParameters TReportParametersBuilder::BuildVmware3iParams()
{
   TReportDraft report("vmware_esxi", "VMware ESXi");

   TTableDraft& esxi = report.Table("ZANSG_VMWARE3I_SoftwareElement", "VMware ESXi");
   esxi.MakeSortable();
   // The class has no such property; the key is meant to stay.
   esxi.SortBy("ProductName");
   esxi.Column("Node", "20%");
   esxi.Column("BootbankVersion", "40%");
   esxi.Column("BootbankLicense", "40%");

   return report.Finish();
}

TReportParameters TReportParametersBuilder::BuildWindowsComponentsParams()
{
   TReportDraft report("win_components", "Windows Components");

   TTableDraft& components = report.Table("ZANSG_OSComponent");
   components.MakeSortable();
   components.SortBy("Name");
   components.Column("Name", "20%");
   components.Column("ProductName", "40%");
   components.Column("Version", "20%");
   components.Column("ComponentInstalled", "20%");

   return report.Finish();
}

TReportParameters TReportParametersBuilder::BuildSysConfigParams()
{
   TReportDraft report("linux_config", "Linux Config Files");

   TTableDraft& elements = report.Table("ZANSG_SysConfigElement");
   elements.UseRowStyle("100%", "10%");
   elements.Limit(1);
   elements.Column("DeviceID");

   TTableDraft& files = elements.SubTable("ZANSG_SysConfigSettingData", "ZANSG_SysConfigAssoc");
   files.UseRowStyle("100%", "10%");
   files.Limit(1);
   files.Column("FilePath");
   files.Column("SettingData");

   return report.Finish();
}

TReportParameters TReportParametersBuilder::BuildInstalledRPMParams()
{
   TReportDraft report("installed_packages", "Installed Packages");

   TTableDraft& packages = report.Table("ZANSG_InstalledRPM", "Installed Packages");
   packages.MakeSortable();
   packages.SortBy("ProductName");
   packages.Column("ProductName", "10%");
   packages.Column("ProductVersion", "5%");
   packages.Column("Group", "20%");
   packages.Column("Summary", "30%");
   packages.Column("Size", "5%").As("Size (byte)");
   packages.Column("License", "15%");
   packages.Column("ProductInstallDate", "15%");

   return report.Finish();
}

TReportParameters TReportParametersBuilder::BuildInstalledFixesParams()
{
   TReportDraft report("installedfixes", "Installed Hotfixes");

   TTableDraft& fixes = report.Table("ZANSG_InstalledFix", "Installed Hotfixes");
   fixes.MakeSortable();
   fixes.SortBy("ProductName");
   fixes.Column("ProductName", "50%");
   fixes.Column("ProductVersion", "20%");
   fixes.Column("ProductVendor", "20%");
   fixes.Column("ProductInstallDate", "10%");

   return report.Finish();
}

TReportParameters TReportParametersBuilder::BuildKernelModuleParams()
{
   TReportDraft report("kernelmodules", "Kernel Modules");

   TTableDraft& modules = report.Table("ZANSG_LinuxKernelModule", "Kernel Modules");
   modules.MakeSortable();
   modules.SortBy("Name");
   modules.Column("Name", "10%");
   modules.Column("Description", "25%");
   modules.Column("SoftwareElementState", "10%");
   modules.Column("Manufacturer", "15%");
   modules.Column("Version", "10%");
   modules.Column("Path", "30%");

   return report.Finish();
}

TReportParameters TReportParametersBuilder::BuildDeviceDriverParams()
{
   TReportDraft report("devicedriver", "Device Drivers");

   TTableDraft& drivers = report.Table("ZANSG_DeviceDriverInfo");
   drivers.MakeSortable();
   drivers.SortBy("Name");
   drivers.Column("Name", "8%");
   drivers.Column("Description", "16%");
   drivers.Column("CurrentState", "6%");
   drivers.Column("StartupState", "6%");
   drivers.Column("Manufacturer", "10%");
   drivers.Column("Version", "14%");
   drivers.Column("CreationTime", "12%");
   drivers.Column("FileSize", "6%").As("File Size (byte)");
   drivers.Column("Path", "22%");

   TTableDraft& rollBack = report.Table("ZANSG_DeviceDriverRollBack", "RollBack Drivers");
   rollBack.SortBy("Name");
   rollBack.Column("Name", "24%");
   rollBack.Column("CurrentState", "6%");
   rollBack.Column("StartupState", "6%");
   rollBack.Column("Manufacturer", "10%");
   rollBack.Column("Version", "14%");
   rollBack.Column("CreationTime", "12%");
   rollBack.Column("FileSize", "6%").As("File Size (byte)");
   rollBack.Column("Path", "22%");

   return report.Finish();
}

TReportParameters TReportParametersBuilder::BuildSystemServiceParams()
{
   TReportDraft report("systemservice", "System Services");

   TTableDraft& services = report.Table("ZANSG_SystemServiceInfo");
   services.MakeSortable();
   services.SortBy("Name");
   services.Column("Name", "11%");
   services.Column("Description", "17%");
   services.Column("CurrentState", "6%");
   services.Column("StartupState", "7%");
   services.Column("Manufacturer", "12%");
   services.Column("Version", "10%");
   services.Column("InstallDate", "11%");
   services.Column("FileSize", "5%").As("File Size (byte)");
   services.Column("Path", "21%");

   return report.Finish();
}

TReportParameters TReportParametersBuilder::BuildProcessesParams()
{
   TReportDraft report("processes", "Processes");

   TTableDraft& processes = report.Table("ZANSG_Process", "Processes");
   processes.MakeSortable();
   processes.SortBy("Handle");
   processes.Column("Handle", "5%");
   processes.Column("Name", "20%");
   processes.Column("User", "10%");
   processes.Column("ExecutionState", "10%");
   processes.Column("Priority", "5%");
   processes.Column("KernelModeTime", "12%");
   processes.Column("UserModeTime", "12%");
   processes.Column("WorkingSetSize", "11%");
   processes.Column("CreationDate", "15%");

   return report.Finish();
}

TReportParameters TReportParametersBuilder::BuildResourceUtilizationParams()
{
   // Compared byte by byte, as the versions are everywhere: "10.0" goes before "5.0".
   const bool hasCounters = TCIMSchemaHelper::GetOperatingSystemVersion(fNamespace) > "5.0";
   TReportDraft report("resource", "Resource Utilization");

   TTableDraft& memory = report.Table("ZANSG_OperatingSystem", "Memory Utilization");
   memory.UseRowStyle("75%", "25%");
   memory.Limit(1);
   memory.Column("MemoryLoad");
   memory.Column("SwapUtilization");
   memory.Column("TotalVirtualMemorySize");
   memory.Column("FreeVirtualMemory");
   memory.Column("SizeStoredInPagingFiles");
   memory.Column("FreeSpaceInPagingFiles");
   memory.Column("FreeSwapSpaceSize");
   memory.Column("TotalSwapSpaceSize");
   if (hasCounters) {
      memory.Column("HandleCount");
      memory.Column("ThreadCount");
      memory.Column("ProcessCount");
   }
   memory.Column("TotalVisibleMemorySize");
   memory.Column("FreePhysicalMemory");
   if (hasCounters) {
      memory.Column("SystemCache");
      memory.Column("CommitTotal");
      memory.Column("CommitLimit");
      memory.Column("CommitPeak");
      memory.Column("KernelTotal");
      memory.Column("KernelPaged");
      memory.Column("KernelNonpaged");
   }

   TTableDraft& counters = report.Table("ZANSG_SystemPerformanceData", "Performance Data");
   counters.SetWidth("85%");
   counters.SortBy("ObjectName");
   counters.Column("ObjectName", "15%");
   counters.Column("CounterName", "15%");
   counters.Column("InstanceName", "55%");
   counters.Column("CounterValue", "15%");

   return report.Finish();
}

TReportParameters TReportParametersBuilder::BuildOSConfigParams()
{
   const int osType = GetOSType();
   const bool windows = IsWindows(osType);
   const bool linuxOrESX = IsLinux(osType) || IsESX(osType);
   TReportDraft report("os_config", "OS Configuration");

   TTableDraft& boot = report.Table("ZANSG_OperatingSystem", "Boot Configuration");
   boot.UseRowStyle("100%", "10%");
   boot.Limit(1);
   boot.Column("BootConfigurationFileName");
   boot.Column("BootConfigurationFileContents").Monospaced();

   if (linuxOrESX) {
      TTableDraft& init = report.Table("ZANSG_OperatingSystem", "Init Configuration");
      init.UseRowStyle("100%", "10%");
      init.Limit(1);
      init.Column("InitConfigurationFileName");
      init.Column("InitConfigurationFileContents").Monospaced();

      TTableDraft& modules =
         report.Table("ZANSG_LinuxModulesConfigurationSetting", "Kernel Modules Configuration");
      modules.UseRowStyle("100%", "10%");
      modules.Limit(1);
      modules.Column("ElementName");
      modules.Column("ModulesConf").Monospaced();

      TTableDraft& ringBuffer = report.Table("ZANSG_OperatingSystem", "Kernel Ring Buffer");
      ringBuffer.UseRowStyle("100%", "10%");
      ringBuffer.Limit(1);
      ringBuffer.Column("KernelRingBufferName");
      ringBuffer.Column("KernelRingBufferContents").Monospaced();
   }

   TTableDraft& users = report.Table("ZANSG_Account", "Active User Information");
   users.UseRowStyle("100%", "10%");
   users.Limit(1);
   users.Column("Name");
   users.Column("UserID");
   users.Column("Descriptions");
   users.Column("LastLogon");
   if (windows) {
      users.Column("Domain");
      users.Column("LogonServer");
   }

   TTableDraft& userVariables =
      report.Table("ZANSG_UserEnvironmentVariable", "User Environment Variables");
   userVariables.Column("SettingID", "15%");
   userVariables.Column("SettingValue", "85%");

   TTableDraft& systemVariables =
      report.Table("ZANSG_SystemEnvironmentVariable", "System Environment Variables");
   systemVariables.SortBy("SettingID");
   systemVariables.Column("SettingID", "15%");
   systemVariables.Column("SettingValue", "85%");

   TTableDraft& pageFiles = report.Table("ZANSG_PageFile", "Paging File");
   pageFiles.SetWidth("60%");
   pageFiles.SortBy("SettingID");
   pageFiles.Column("Name", "60%");
   pageFiles.Column("FileSize", "40%");

   return report.Finish();
}
