#include <string>

#include "catalogue/TReportDraft.h"
#include "catalogue/TReportParametersBuilder.h"

namespace {

/// A table of settings, one grid per service processor.
TTableDraft& AddSettings(TReportDraft& report, const std::string& cimClass,
                         const std::string& title)
{
   TTableDraft& settings = report.Table(cimClass, title);
   settings.UseRowStyle("80%", "30%");
   settings.Limit(1);
   return settings;
}

/// The same, with the node as its first row and its identity where there are several.
TTableDraft& AddNodeSettings(TReportDraft& report, const std::string& cimClass,
                             const std::string& title, bool multiNode)
{
   TTableDraft& settings = AddSettings(report, cimClass, title);
   if (multiNode) {
      settings.IdentifyBy("SourceNode");
      settings.Column("SourceNode");
   }
   return settings;
}

void AddTCPSettings(TReportDraft& report, bool multiNode)
{
   TTableDraft& tcp = AddSettings(report, "ZANSG_ServProc_IPProtocolEndpoint", "TCP/IP Settings");
   // The node identifies the table and is none of its rows.
   if (multiNode)
      tcp.IdentifyBy("SourceNode");
   tcp.Column("Instance");
   tcp.Column("Enabled");
   tcp.Column("HostName");
   tcp.Column("GatewayIPAddress");
   tcp.Column("HostIPAddress");
   tcp.Column("HostIPSubnetMask");
   tcp.Column("BurnedInMACAddress");
   tcp.Column("DHCPEnabled");
   tcp.Column("DHCPHostName");
   tcp.Column("DHCPAssignedGatewayAddress");
   tcp.Column("DHCPAssignedIPAddress");
   tcp.Column("DHCPAssignedSubnetMask");
   tcp.Column("DHCPDomainName");
   tcp.Column("DHCPServer");
   tcp.Column("DHCPPrimaryDNS");
   tcp.Column("DHCPSecondaryDNS");
   tcp.Column("DHCPTertiaryDNS");
}

void AddSNMPSettings(TReportDraft& report, bool multiNode)
{
   TTableDraft& snmp =
      AddNodeSettings(report, "ZANSG_ServProc_IPProtocolEndpoint2", "SNMP Settings", multiNode);
   snmp.Column("SystemLocation");
   snmp.Column("SystemContact");
   snmp.Column("Traps");
   snmp.Column("SNMPv1");
   snmp.Column("SNMPv3");
   snmp.Column("DNS");
   snmp.Column("DNSIP1");
   snmp.Column("DNSIP2");
   snmp.Column("DNSIP3");
   snmp.Column("DNSHostName1");
   snmp.Column("DNSHostIP1");
   snmp.Column("DNSHostName2");
   snmp.Column("DNSHostIP2");
   snmp.Column("DNSHostName3");
   snmp.Column("DNSHostIP3");
   snmp.Column("DNSHostName4");
   snmp.Column("DNSHostIP4");
   snmp.Column("Community1Name");
   snmp.Column("Community1IP1");
   snmp.Column("Community1IP2");
   snmp.Column("Community1IP3");
   snmp.Column("Community2Name");
   snmp.Column("Community2IP1");
   snmp.Column("Community2IP2");
   snmp.Column("Community2IP3");
   snmp.Column("Community3Name");
   snmp.Column("Community3IP1");
   snmp.Column("Community3IP2");
   snmp.Column("Community3IP3");
}

void AddSerialPortSettings(TReportDraft& report, bool multiNode)
{
   TTableDraft& serial = AddNodeSettings(report, "ZANSG_ServProc_DialProtocolEndpoint3",
                                         "Serial Port Settings", multiNode);
   serial.Column("Instance");
   serial.Column("BaudRate");
   serial.Column("Parity");
   serial.Column("StopBits");
   serial.Column("InitializationString");
   serial.Column("PortEnabled");
   serial.Column("ModemCallerIDString");
   serial.Column("FactorySettingsString");
   serial.Column("ModemEscapeGuardTime");
   serial.Column("ModemEscapeString");
   serial.Column("ModemPrefixString");
   serial.Column("ModemPostfixString");
   serial.Column("ModemAutoAnswerString");
   serial.Column("ModemAutoAnswerStopString");
   serial.Column("ModemQueryString");
   serial.Column("ModemHangupString");
}

void AddDialoutSettings(TReportDraft& report, bool multiNode)
{
   TTableDraft& dialout = AddNodeSettings(report, "ZANSG_ServProc_DialProtocolEndpoint1",
                                          "Dialout Settings", multiNode);
   dialout.Column("Instance");
   dialout.Column("DialStatus");
   dialout.Column("PhoneNumberLAN");
   dialout.Column("TextDescription");
   dialout.Column("ConnectionType");
   dialout.Column("DialoutID");
   dialout.Column("PagerPIN");
   dialout.Column("EmailAddress");
   dialout.Column("PPPLoginID");
   dialout.Column("SelectiveAlertNotification");
}

void AddDialinSettings(TReportDraft& report, bool multiNode)
{
   TTableDraft& dialin =
      AddNodeSettings(report, "ZANSG_ServProc_DialProtocolEndpoint2", "Dialin Settings", multiNode);
   dialin.Column("Instance");
   dialin.Column("LoginID");
   dialin.Column("LoginFlags");
   dialin.Column("DialBackNumber");
   dialin.Column("DenyAlways");
   dialin.Column("Supervisor");
   dialin.Column("ReadOnly");
   dialin.Column("NetworkingAndSecurity");
   dialin.Column("RemoteConsoleAccess");
   dialin.Column("RemoteConsoleVirtualMediaAccess");
   dialin.Column("RemoteServerPowerRestartAccess");
   dialin.Column("BasicConfiguration");
   dialin.Column("AbilityToClearEventLogs");
   dialin.Column("AdvancedConfiguration");
   dialin.Column("LastLogin");
}

void AddDialoutAlerts(TReportDraft& report, bool multiNode)
{
   TTableDraft& alerts =
      AddNodeSettings(report, "ZANSG_ServProc_DialProtocolEndpoint4", "Dialout Alerts", multiNode);
   alerts.Column("Temperature");
   alerts.Column("Voltage");
   alerts.Column("Tamper");
   alerts.Column("MultipleFanFailure");
   alerts.Column("PowerFailure");
   alerts.Column("HardDrive");
   alerts.Column("VRMFailure");
}

/// A table of self-test results, one grid per service processor.
TTableDraft& AddResults(TReportDraft& report, const std::string& cimClass, const std::string& title)
{
   TTableDraft& results = report.Table(cimClass, title);
   results.UseRowStyle("75%", "30%");
   results.Limit(1);
   results.Column("Description");
   return results;
}

/// The same, with the version of the firmware and, where there are several, the node.
TTableDraft& AddFirmwareResults(TReportDraft& report, const std::string& cimClass,
                                const std::string& title, bool multiNode)
{
   TTableDraft& results = AddResults(report, cimClass, title);
   results.Column("Version").Via("ZANSG_SPSystemFirmware", "ZANSG_FirmwareElement");
   if (multiNode)
      results.Column("SourceNode");
   return results;
}

}  // namespace

TReportParameters TReportParametersBuilder::BuildServProcConfigParams()
{
   const bool hasGeneral = GetDataSourceVersion() >= "1.2";
   const bool multiNode = IsMultiNode();
   TReportDraft report("servproc_config", "SP Configurations");

   if (hasGeneral) {
      TTableDraft& general = AddSettings(report, "ZANSG_SP_ComputerSystem", "General Settings");
      if (multiNode)
         general.Column("SourceNode");
      general.Column("SPClock");
   }
   AddTCPSettings(report, multiNode);
   AddSNMPSettings(report, multiNode);
   AddSerialPortSettings(report, multiNode);
   AddDialoutSettings(report, multiNode);
   AddDialinSettings(report, multiNode);
   AddDialoutAlerts(report, multiNode);

   return report.Finish();
}

TReportParameters TReportParametersBuilder::BuildBeaconPanelParams()
{
   const bool harbor = IsHarbor();
   const bool multiNode = IsMultiNodeforBeaconPanel();
   TReportDraft report("beaconpanel.html", "Beacon Panel");

   TTableDraft& leds = report.Table("ZANSG_SP_LED", "LED Settings");
   leds.SetWidth("80%");
   if (multiNode)
      leds.SortBy("SourceNode");
   leds.SortBy("SensorType");
   leds.SortBy("SensorIndex");
   if (multiNode)
      leds.Column("SourceNode", harbor ? "10%" : "20%");
   if (harbor)
      leds.Column("HarborUnit", multiNode ? "10%" : "20%");
   leds.Column("SensorType", multiNode || harbor ? "30%" : "34%");
   leds.Column("SensorIndex", multiNode || harbor ? "25%" : "33%");
   leds.Column("CurrentState", multiNode || harbor ? "25%" : "33%");

   return report.Finish();
}

TReportParameters TReportParametersBuilder::BuildBISTParams()
{
   const bool multiNode = IsMultiNode();
   TReportDraft report("bist.html", fIsKMC ? "KMC Built-in Self Test" : "BIST Results");

   TTableDraft& merlin =
      AddFirmwareResults(report, "ZANSG_Merlin_ComputerSystem", "WRDP BIST Results", multiNode);
   merlin.Column("FlashError");
   merlin.Column("ROMError");
   merlin.Column("RAMError");
   merlin.Column("Watchdog");

   TTableDraft& gbx =
      AddFirmwareResults(report, "ZANSG_GBX_ComputerSystem", "GBX BIST Results", multiNode);
   gbx.Column("NVRAM");
   gbx.Column("DRAM");
   gbx.Column("Com1");
   gbx.Column("Com2");
   gbx.Column("RS485Legacy");
   gbx.Column("RS485LocalBus");
   gbx.Column("RTC");
   gbx.Column("I2CController");
   gbx.Column("ExternalEthernetInternalWrapTest");
   gbx.Column("ExternalEthernetExternalWrapTest");

   TTableDraft& tlmp =
      AddFirmwareResults(report, "ZANSG_TLMP_ComputerSystem", "TLMP BIST Results", multiNode);
   tlmp.Column("E_SRAM_MEMORY_TEST");
   tlmp.Column("E_SERIAL_PORT_1_TEST");
   tlmp.Column("E_SERIAL_PORT_2_TEST");
   tlmp.Column("E_NVRAM_MEMORY_TEST");
   tlmp.Column("E_RTC_TEST");
   tlmp.Column("E_FPGA_TEST");
   tlmp.Column("E_I2CT_TEST");
   tlmp.Column("E_MAINAPP_CHECKSUM_TEST");
   tlmp.Column("E_BOOTROM_CHECKSUM_TEST");
   tlmp.Column("E_ETH_TEST");
   tlmp.Column("E_PCI_EEPROM_INIT");
   tlmp.Column("E_R485_SEND_SYNC");

   TTableDraft& dmc = AddResults(report, "ZANSG_DMC_ComputerSystem", "WRDP BIST Results");
   if (multiNode)
      dmc.Column("SourceNode");
   dmc.Column("FlashError");
   dmc.Column("ROMError");
   dmc.Column("RAMError");

   TTableDraft& bmc =
      AddFirmwareResults(report, "ZANSG_BMC_ComputerSystem", "IPMI BIST Results", multiNode);
   bmc.Column("SELDevice");
   bmc.Column("SDRRepository");
   bmc.Column("BMCFRUDevice");
   bmc.Column("IPMBSignalLines");
   bmc.Column("SDRRepositoryNonEmpty");
   bmc.Column("InternalUseAreaofBMCFRU");
   bmc.Column("ControllerUpdateBootBlockFirmware");
   bmc.Column("ControllerOperationalFirmware");

   return report.Finish();
}
