#include <string>

#include "catalogue/OSType.h"
#include "catalogue/TReportDraft.h"
#include "catalogue/TReportParametersBuilder.h"

using TReportProperty = TReportParameters::TReportProperty;

namespace {

void AddProcessors(TReportDraft& report)
{
   TTableDraft& processors = report.Table("ZANSG_Processor", "Processor/Core");
   processors.UseRowStyle("75%", "40%");
   processors.Limit(6);
   processors.IdentifyBy("DeviceId");
   processors.SortBy("DeviceID");
   processors.SortBy("Core");
   processors.Column("DeviceID");
   processors.Column("Core");
   processors.Column("Manufacturer");
   processors.Column("Name");
   processors.Column("Stepping");
   processors.Column("CurrentClockSpeed");
   processors.Column("CPUStatus");
   processors.Column("HTSupported");
   processors.Column("HTEnabled");
   processors.Column("L1OperationalMode");
   processors.Column("L1Enabled");
   processors.Column("L2OperationalMode");
   processors.Column("L2Enabled");
   processors.Column("L3OperationalMode");
   processors.Column("L3Enabled");
}

void AddMemory(TReportDraft& report)
{
   TTableDraft& memory = report.Table("ZANSG_SPDData", "Memory");
   memory.UseRowStyle("75%", "25%");
   memory.Limit(8);
   memory.IdentifyBy("Tag");
   memory.SortByNumbersIn("Tag");
   memory.SortByNumbersIn("BankLabel");
   memory.Column("Tag");
   memory.Column("BankLabel");
   memory.Column("Capacity");
   memory.Column("MemoryType");
   memory.Column("DimmSpeed");
   memory.Column("ErrorMethodology");
   memory.Column("Manufacturer");
   memory.Column("PartNumber");
   memory.Column("SerialNumber");
}

/// The memory of collections that have no serial presence data.
void AddOlderMemory(TReportDraft& report)
{
   TTableDraft& memory = report.Table("ZANSG_PhysicalMemory", "Memory");
   // Told, though a column table has no label column.
   memory.SetHeaderWidth("40%");
   memory.IdentifyBy("Tag");
   memory.Column("Tag", "34%");
   memory.Column("Capacity", "33%");
   memory.Column("BankLabel", "33%");
}

void AddDisks(TReportDraft& report, bool linux)
{
   TTableDraft& disks = report.Table("ZANSG_MediaAccessDevice", "Disk Information");
   disks.IdentifyBy("DeviceId");
   disks.Column("Name", "20%");
   if (!linux) {
      disks.Column("DiskType", "20%");
      disks.Column("DiskStatus", "20%");
      disks.Column("Size", "20%");
      disks.Column("NoOfPartitions", "20%");
   } else {
      disks.Column("Size", "40%");
      disks.Column("NoOfPartitions", "40%");
   }

   TTableDraft& partitions = disks.SubTable("ZANSG_DiskPartition", "ZANSG_PartitionPresent");
   partitions.IdentifyBy("DeviceId");
   partitions.SortByNumbersIn("DeviceID");
   partitions.Column("DeviceID", "20%");
   partitions.Column("PartitionType", "15%");
   partitions.Column("PartitionSubType", "20%");
   partitions.Column("Size", "15%");
   partitions.Column("StartingOffset", "15%");
   partitions.Column("FaultTolerant", "15%");
}

void AddVolumes(TReportDraft& report, bool windows)
{
   TTableDraft& volumes = report.Table("ZANSG_LogicalDisk", "Volumes/Mount Points");
   volumes.IdentifyBy("DeviceId");
   volumes.SortBy("DeviceID");
   if (windows) {
      volumes.Column("DeviceID", "5%");
      volumes.Column("OtherIdentifyingInfo", "15%");
      volumes.Column("VolumeLayout", "10%");
      volumes.Column("FileSystemName", "10%");
      volumes.Column("VolumeState", "10%");
      volumes.Column("FreeSpace", "10%");
      volumes.Column("TotalSpace", "10%");
      volumes.Column("DiskQuotaStatus", "10%");
      volumes.Column("UserDiskQuota", "10%");
      volumes.Column("UserDiskFreeSpace", "10%");
   } else {
      volumes.Column("DeviceID", "20%");
      volumes.Column("OtherIdentifyingInfo", "30%");
      volumes.Column("FileSystemName", "20%");
      volumes.Column("FreeSpace", "15%");
      volumes.Column("TotalSpace", "15%");
   }
}

void AddVideo(TReportDraft& report)
{
   TTableDraft& video = report.Table("ZANSG_VideoController", "Video Controller");
   video.IdentifyBy("DeviceId");
   video.Column("Name", "20%");
   video.Column("StatusDescriptions", "10%");
   video.Column("BiosString", "15%");
   video.Column("VideoRamSize", "10%");
   video.Column("VideoProcessor", "25%");
   video.Column("DACType", "20%");

   TTableDraft& heads = video.SubTable("ZANSG_VideoHead", "ZANSG_HeadOfVideoController");
   heads.UseRowStyle("100%", "20%");
   heads.Limit(1);
   heads.IdentifyBy("DeviceId");
   heads.Column("HeadNumber");
   heads.Column("MonitorString");
   heads.Column("CurrentHorizontalResolution");
   heads.Column("CurrentVerticalResolution");
   heads.Column("CurrentBitsPerPixel");
   heads.Column("CurrentRefreshRate");
   heads.Column("CurrentScanMode");
   heads.Column("MaxRefreshRate");
   heads.Column("MinRefreshRate");
}

void AddMonitors(TReportDraft& report)
{
   TTableDraft& monitors = report.Table("ZANSG_DesktopMonitor", "Monitor");
   monitors.MakeSortable();
   monitors.IdentifyBy("DeviceId");
   monitors.Column("Name", "10%");
   monitors.Column("Description", "10%");
   monitors.Column("MonitorManufacturer", "10%");
   monitors.Column("ManufacturingDate", "15%");
   monitors.Column("OperationalStatus", "5%").As("Status");
   monitors.Column("StatusDescriptions", "10%").As("State");
   monitors.Column("DPMSActiveOff", "10%");
   monitors.Column("DPMSStandby", "10%");
   monitors.Column("DPMSSuspend", "10%");
   monitors.Column("EDIDVersion", "10%");

   TTableDraft& resolutions = monitors.SubTable("ZANSG_MonitorResolution", "ZANSG_MonitorSetting");
   resolutions.SetWidth("50%");
   resolutions.MakeSortable();
   resolutions.IdentifyBy("SettingID");
   resolutions.Column("HorizontalResolution", "25%");
   resolutions.Column("VerticalResolution", "25%");
   resolutions.Column("RefreshRate", "20%");
   resolutions.Column("ScanMode", "30%");
}

void AddCards(TReportDraft& report)
{
   TTableDraft& cards = report.Table("ZANSG_Card", "System Card Information");
   cards.Column("Tag", "20%");
   cards.Column("CardType", "20%");
   cards.Column("Manufacturer", "20%");
   cards.Column("Version", "20%");
   cards.Column("SerialNumber", "20%");
}

void AddBusDevices(TReportDraft& report, const std::string& cimClass, const std::string& title)
{
   TTableDraft& devices = report.Table(cimClass, title);
   devices.Column("VendorId", "10%");
   devices.Column("ProductId", "15%");
   devices.Column("DeviceType", "15%");
   devices.Column("serialNum", "15%");
   devices.Column("Revision", "10%");
   devices.Column("HostAdapterId", "11%");
   devices.Column("TargetId", "11%");
   devices.Column("Bus", "7%");
   devices.Column("Lun", "6%");
}

void AddATADevices(TReportDraft& report)
{
   TTableDraft& ata = report.Table("ZANSG_ATADevice", "SATA/IDE Devices");
   ata.Column("DeviceId", "20%");
   ata.Column("VendorId", "20%");
   ata.Column("ProductId", "20%");
   ata.Column("serialNum", "20%");
   ata.Column("Revision", "20%");
}

void AddUSB(TReportDraft& report)
{
   TTableDraft& hubs = report.Table("ZANSG_USBHub", "USB Hub");
   hubs.Column("Description", "80%");
   hubs.Column("NumberOfPorts", "20%");

   TTableDraft& usb = report.Table("ZANSG_USBDevice", "USB Devices");
   usb.Column("VendorId", "20%");
   usb.Column("USBDeviceId", "20%");
   usb.Column("Manufacturer", "20%");
   usb.Column("Description", "20%");
   usb.Column("Speed", "20%");
}

void AddOpticalDevices(TReportDraft& report, bool linuxOrESX)
{
   TTableDraft& optical = report.Table("ZANSG_CDVDDevice", "Optical Device Capabilities");
   if (linuxOrESX)
      optical.Column("DeviceId", "19%");
   if (!linuxOrESX) {
      optical.Column("VendorId", "9%");
      optical.Column("ProductId", "10%");
   }
   optical.Column("DvdRamRead", "9%");
   optical.Column("DvdRRead", "9%");
   optical.Column("DvdRomRead", "9%");
   optical.Column("DvdRamWrite", "9%");
   optical.Column("DvdRWrite", "9%");
   optical.Column("CdRwRead", "9%");
   optical.Column("CdRRead", "9%");
   optical.Column("CdRwWrite", "9%");
   optical.Column("CdRWrite", "9%");
}

void AddPorts(TReportDraft& report)
{
   TTableDraft& ports = report.Table("ZANSG_QTAPort", "QTA Ports");
   ports.SortBy("Chassis");
   ports.Column("Chassis", "10%");
   ports.Column("PortLocation", "20%");
   ports.Column("Name", "40%");
   ports.Column("PortType", "20%");
   ports.Column("PortStatus", "10%");
}

void AddOtherDevices(TReportDraft& report)
{
   TTableDraft& others = report.Table("ZANSG_LogicalDevice", "Other Devices");
   others.MakeSortable();
   others.SortBy("DeviceClass");
   others.Column("DeviceClass", "10%");
   others.Column("ElementName", "20%");
   others.Column("Manufacturer", "24%");
   others.Column("OtherIdentifyingInfo", "46%");
}

void AddSlotColumn(TTableDraft& devices, const std::string& width)
{
   devices.Column("SlotDesignation", width)
      .Via("ZANSG_DeviceInSlot", "ZANSG_SystemSlot")
      .Or("ZANSG_SystemBoard");
}

}  // namespace

TReportParameters TReportParametersBuilder::BuildHardwareInfoParams()
{
   const int osType = GetOSType();
   const bool windows = IsWindows(osType);
   const bool linux = IsLinux(osType);
   const bool linuxOrESX = linux || IsESX(osType);
   const bool serialPresence = GetDataSourceVersion() >= "1.1";
   TReportDraft report("hw_info", "Hardware Inventory");

   AddProcessors(report);
   if (serialPresence)
      AddMemory(report);
   else
      AddOlderMemory(report);
   AddDisks(report, linux);
   AddVolumes(report, windows);
   AddVideo(report);
   AddMonitors(report);
   AddCards(report);
   if (windows) {
      AddBusDevices(report, "ZANSG_SysBusDevice", "System Devices");
   } else {
      AddBusDevices(report, "ZANSG_SCSIDevice", "SCSI Devices");
      AddATADevices(report);
   }
   AddUSB(report);
   AddOpticalDevices(report, linuxOrESX);
   AddPorts(report);
   AddOtherDevices(report);

   return report.Finish();
}

TReportParameters TReportParametersBuilder::BuildPCIInfoParams()
{
   TReportDraft report("pci_info", "PCI Information");

   TTableDraft& devices = report.Table("ZANSG_PCIDevice", "Devices");
   devices.SortBy("ClassCode");
   devices.Column("ClassCode", "20%");
   devices.Column("Description", "40%");
   AddSlotColumn(devices, "15%");
   devices.Column("PciDeviceID", "5%").As("DeviceID");
   devices.Column("VendorID", "5%");
   devices.Column("IRQ", "5%");
   devices.Column("IOAddress", "5%").JoinedBy(TReportProperty::kSeparatorSlash);
   devices.Column("IOLength", "5%").JoinedBy(TReportProperty::kSeparatorSlash);

   TTableDraft& bridges = report.Table("ZANSG_PCIBridge", "Bridges");
   bridges.SortBy("ClassCode");
   bridges.Column("ClassCode", "15%");
   bridges.Column("Description", "50%");
   AddSlotColumn(bridges, "10%");
   bridges.Column("Location", "25%");

   TTableDraft& slots = report.Table("ZANSG_SystemSlot", "Slots");
   slots.MakeSortable();
   slots.SortBy("SlotDesignation");
   slots.Column("SlotDesignation", "15%");
   slots.Column("Tag", "15%");
   slots.Column("ConnectorType", "15%");
   slots.Column("SlotLength", "5%");
   slots.Column("MaxDataWidth", "10%");
   slots.Column("SupportsHotPlug", "5%");
   slots.Column("CurrentUsage", "10%");
   slots.Column("OperationalStatus", "10%");
   slots.Column("VccMixedVoltageSupport", "15%").JoinedBy(TReportProperty::kSeparatorBlank);

   return report.Finish();
}
