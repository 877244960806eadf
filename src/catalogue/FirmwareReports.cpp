#include "catalogue/TReportDraft.h"
#include "catalogue/TReportParametersBuilder.h"

namespace {

void AddFirmwareColumns(TTableDraft& firmware)
{
   firmware.Column("Name", "15%");
   firmware.Column("Manufacturer", "15%");
   firmware.Column("ProductID", "15%").Via("ZANSG_DeviceFirmware", "ZANSG_SysBusDevice");
   firmware.Column("OtherIdentifyingInfo", "20%")
      .As("Device")
      .Via("ZANSG_DeviceFirmware", "CIM_LogicalDevice");
   firmware.Column("Version", "10%");
   firmware.Column("BuildNumber", "10%");
   firmware.Column("BuildDate", "15%");
}

void AddBIOSColumns(TTableDraft& bios, bool multiNode)
{
   if (multiNode) {
      bios.Column("Name", "20%");
      bios.Column("SourceNode", "20%");
      bios.Column("BuildNumber", "20%");
      bios.Column("Version", "20%");
      bios.Column("ReleaseDate", "20%");
   } else {
      bios.Column("Name", "30%");
      bios.Column("BuildNumber", "20%");
      bios.Column("Version", "20%");
      bios.Column("ReleaseDate", "30%");
   }
}

}  // namespace

TReportParameters TReportParametersBuilder::BuildFirmwareParams()
{
   const bool multiNode = IsMultiNode();
   TReportDraft report("firmware", "Firmware/VPD");

   TTableDraft& firmware = report.Table("ZANSG_FirmwareElement", "Firmware");
   firmware.SortBy("Name");
   AddFirmwareColumns(firmware);

   TTableDraft& emulex = report.Table("ELXHBA_FirmwareVersion", "Emulex Firmware");
   emulex.SortBy("Name");
   emulex.SortBy("Name");
   AddFirmwareColumns(emulex);

   TTableDraft& bios = report.Table("CIM_BIOSElement", "BIOS/uEFI");
   bios.SortBy("Name");
   bios.SortBy("Name");
   bios.SortBy("Name");
   AddBIOSColumns(bios, multiNode);

   TTableDraft& postBios = report.Table("ZANSG_PostBIOSVPD", "Post BIOS VPD");
   // The BIOS columns come first: the widths add to 200%, and two columns are shown twice.
   AddBIOSColumns(postBios, multiNode);
   postBios.Column("BuildNumber", "15%");
   postBios.Column("BuildDate", "20%");
   postBios.Column("Version", "25%");
   postBios.Column("Filename", "15%");
   postBios.Column("UniqueID", "25%");

   TTableDraft& diagnostics = report.Table("ZANSG_DiagnosticVPD", "Diagnostic VPD");
   if (multiNode) {
      diagnostics.Column("BuildNumber", "30%");
      diagnostics.Column("SourceNode", "20%");
      diagnostics.Column("Filename", "25%");
      diagnostics.Column("UniqueID", "25%");
   } else {
      diagnostics.Column("BuildNumber", "30%");
      diagnostics.Column("Filename", "35%");
      diagnostics.Column("UniqueID", "35%");
   }

   TTableDraft& main = report.Table("ZANSG_SPROMFirmwareVPDMain", "SP Firmware Main VPD");
   main.Column("Name", "20%");
   main.Column("BuildNumber", "20%");
   main.Column("BuildDate", "20%");
   main.Column("Version", "20%");
   main.Column("Filename", "20%");

   TTableDraft& bootROM = report.Table("ZANSG_SPROMFirmwareVPDBootROM", "SP Firmware BootROM VPD");
   bootROM.Column("BuildNumber", "25%");
   bootROM.Column("BuildDate", "25%");
   bootROM.Column("Version", "25%");
   bootROM.Column("Filename", "25%");

   TTableDraft& revision = report.Table("ZANSG_HardwareRevisionLevel", "SP Hardware Revision");
   revision.Column("Hardwarelevel", "100%");

   TTableDraft& frus = report.Table("ZANSG_FRU", "Other VPD");
   frus.SortBy("Name");
   frus.Column("Name", "20%");
   frus.Column("Vendor", "20%");
   frus.Column("FRUNumber", "20%");
   frus.Column("PartNumber", "20%");
   frus.Column("SerialNumber", "20%");

   return report.Finish();
}

TReportParameters TReportParametersBuilder::BuildEmulexParams()
{
   TReportDraft report("emulex", "Emulex");

   TTableDraft& firmware = report.Table("ELXHBA_FirmwareVersion", "Firmware");
   firmware.SortBy("Name");
   firmware.Column("Name", "50%");
   firmware.Column("Version", "50%");

   TTableDraft& bios = report.Table("ELXHBA_BIOSVersion", "BIOS");
   bios.SortBy("Name");
   bios.SortBy("Name");
   bios.Column("Name", "50%");
   bios.Column("Version", "50%");

   return report.Finish();
}

TReportParameters TReportParametersBuilder::BuildQlogicParams()
{
   TReportDraft report("Qlogic", "Qlogic");

   TTableDraft& fcFirmware =
      report.Table("ZANSG_QLogicFibreChannelFirmwareElement", "Qlogic Fibre Channel Firmware");
   fcFirmware.SortBy("Name");
   AddFirmwareColumns(fcFirmware);

   TTableDraft& fcBios =
      report.Table("ZANSG_QLogicFibreChannelBIOSElement", "Qlogic Fibre Channel BIOS");
   fcBios.SortBy("Name");
   fcBios.SortBy("Name");
   fcBios.Column("Name", "34%");
   fcBios.Column("Version", "33%");
   fcBios.Column("ReleaseDate", "33%");

   TTableDraft& iscsiFirmware =
      report.Table("ZANSG_QLogicIScsiFirmwareElement", "Qlogic iSCSI Firmware");
   iscsiFirmware.SortBy("Name");
   iscsiFirmware.SortBy("Name");
   iscsiFirmware.SortBy("Name");
   AddFirmwareColumns(iscsiFirmware);

   TTableDraft& iscsiBios = report.Table("ZANSG_QLogicIScsiBIOSElement", "Qlogic iSCSI BIOS");
   iscsiBios.SortBy("Name");
   iscsiBios.SortBy("Name");
   iscsiBios.SortBy("Name");
   iscsiBios.SortBy("Name");
   iscsiBios.Column("Name", "34%");
   iscsiBios.Column("Version", "33%");
   iscsiBios.Column("ReleaseDate", "33%");

   return report.Finish();
}
