#include "hypervisor/TReportParametersBuilder_vmwesxi.h"

#include <utility>

#include "catalogue/TReportDraft.h"

namespace {

// The widths of columns do not add up to their table's. That is meant; nothing is rebalanced.

/// The width of a label column is told, though a column table has none.
void UseColumnStyle(TTableDraft& table)
{
   table.SetWidth("80%");
   table.SetHeaderWidth("20%");
}

void AddProfiles(TReportDraft& report, const std::string& cimClass, const std::string& title)
{
   TTableDraft& profiles = report.Table(cimClass, title);
   UseColumnStyle(profiles);
   profiles.Limit(100);
   profiles.Column("RegisteredName", "10%");
   profiles.Column("RegisteredOrganization", "10%");
   profiles.Column("RegisteredVersion", "10%");
}

}  // namespace

TReportParametersBuilder_vmwesxi::TReportParametersBuilder_vmwesxi(
   boost::shared_ptr<ICIMNamespace> cimNamespace, std::string mode)
   : fNamespace(std::move(cimNamespace)), fMode(std::move(mode))
{}

TReportParameters TReportParametersBuilder_vmwesxi::BuildSystemOverviewParams()
{
   TReportDraft report("system_overview", "System Overview");

   TTableDraft& computer = report.Table("CIM_PhysicalElement", "Computer System");
   computer.UseRowStyle("60%", "20%");
   computer.Limit(1);
   computer.Column("Manufacturer", "10%");
   computer.Column("Model", "10%");

   TTableDraft& system = report.Table("VMware_HypervisorSoftwareIdentity", "Operating System");
   system.UseRowStyle("60%", "20%");
   system.Limit(1);
   system.Column("Name", "10%");
   system.Column("Manufacturer", "10%");
   system.Column("BuildNumber", "10%");
   system.Column("VersionString", "10%");

   TTableDraft& dataSource = report.Table("ZANSG_QSXProduct", "Data Source");
   dataSource.UseRowStyle("60%", "20%");
   dataSource.Limit(1);
   dataSource.Column("Name", "10%");
   dataSource.Column("Version", "10%");

   return report.Finish();
}

TReportParameters TReportParametersBuilder_vmwesxi::BuildHardwareInventoryParams()
{
   TReportDraft report("hardware_inventory", "Hardware Inventory");

   TTableDraft& bios = report.Table("OMC_SMASHFirmwareIdentity", "BIOS");
   bios.UseRowStyle("80%", "20%");
   bios.Limit(1);
   bios.Column("Name", "10%");
   bios.Column("Manufacturer", "10%");
   bios.Column("VersionString", "10%");
   bios.Column("ReleaseDate", "10%");

   TTableDraft& processors = report.Table("OMC_Chip", "Processor");
   processors.UseRowStyle("80%", "20%");
   processors.Limit(2);
   processors.Column("Manufacturer", "10%");
   processors.Column("Version", "10%");
   processors.Column("Tag", "10%");
   processors.Column("StatusDescriptions", "10%");

   TTableDraft& memory = report.Table("OMC_PhysicalMemory", "Memory");
   memory.UseRowStyle("80%", "20%");
   memory.Limit(2);
   memory.Column("BankLabel", "10%");
   memory.Column("Capacity", "10%");
   memory.Column("MemoryType", "10%");
   memory.Column("DataWidth", "10%");
   memory.Column("Tag", "10%");
   memory.Column("OperationalStatus", "10%");
   memory.Column("PoweredOn", "10%");

   TTableDraft& slots = report.Table("OMC_Slot", "Slot");
   slots.UseRowStyle("80%", "20%");
   slots.Limit(4);
   slots.Column("Tag", "10%");
   slots.Column("Number", "10%");
   slots.Column("Powered", "10%");
   slots.Column("SupportsHotPlug", "10%");
   slots.Column("VccMixedVoltageSupport", "10%");
   slots.Column("OpenSwitch", "10%");

   TTableDraft& connectors = report.Table("OMC_PhysicalConnector", "Connector");
   connectors.UseRowStyle("80%", "20%");
   connectors.Limit(4);
   connectors.Column("ConnectorType", "10%");
   connectors.Column("Tag", "10%");
   connectors.Column("PoweredOn", "10%");
   connectors.Column("HealthState", "10%");
   connectors.Column("OtherIdentifyingInfo", "10%");

   return report.Finish();
}

TReportParameters TReportParametersBuilder_vmwesxi::BuildRegisteredProfileParams()
{
   TReportDraft report("registered_profile", "Registered Profile");
   AddProfiles(report, "VMware_PowerManagementServiceRegisteredProfile", "VMware");
   AddProfiles(report, "OMC_RegisteredProfile", "OMC");
   return report.Finish();
}

TReportParameters TReportParametersBuilder_vmwesxi::BuildHealthStatusParams()
{
   TReportDraft report("health_status", "Health Status");

   TTableDraft& storage = report.Table("VMware_StoreLibSoftwareIdentity", "Storage");
   UseColumnStyle(storage);
   storage.Limit(1);
   storage.Column("InstanceID", "10%");
   storage.Column("VersionString", "10%");
   storage.Column("ReleaseDate", "10%");
   storage.Column("HealthState", "10%");

   return report.Finish();
}

TReportParameters TReportParametersBuilder_vmwesxi::BuildVMwarePrivilegeLogParams()
{
   TReportDraft report("vmware_privilege_log", "VMware Privilege Log");
   report.HideTitle();

   TTableDraft& privileges = report.Table("VMware_Privilege", "VMware Privilege Log");
   UseColumnStyle(privileges);
   privileges.Limit(100);
   privileges.Column("ElementName", "10%");
   privileges.Column("InstanceID", "20%");
   privileges.Column("PrivilegeGranted", "10%");
   privileges.Column("RepresentsAuthorizationRights", "10%");

   return report.Finish();
}

boost::shared_ptr<ICIMClass> TReportParametersBuilder_vmwesxi::GetClass(std::string name)
{
   return fNamespace->GetClass(name,
                               {{kNamespaceIndexKey, TCIMValue(static_cast<unsigned short>(0))}});
}
