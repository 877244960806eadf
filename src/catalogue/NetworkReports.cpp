#include <string>

#include "catalogue/OSType.h"
#include "catalogue/TReportDraft.h"
#include "catalogue/TReportParametersBuilder.h"

namespace {

void AddGlobalSettings(TReportDraft& report)
{
   TTableDraft& settings = report.Table("ZANSG_IPService", "Global Settings");
   settings.Column("HostName", "25%");
   settings.Column("DomainName", "25%");
   settings.Column("ProxyEnabled", "25%");
   settings.Column("RoutingEnabled", "25%");
}

void AddRoutes(TReportDraft& report)
{
   TTableDraft& routes = report.Table("ZANSG_NextHopIPRoute", "Route Information");
   routes.Column("DestinationAddress", "15%");
   routes.Column("Gateway", "15%");
   routes.Column("DestinationMask", "15%");
   routes.Column("Flags", "15%");
   routes.Column("RouteMetric", "15%");
   routes.Column("Ref", "10%");
   routes.Column("Iface", "15%");
}

void AddTeams(TReportDraft& report)
{
   TTableDraft& teams = report.Table("ZANSG_VirtualNetworkingGroup", "Virtual Teams");
   teams.IdentifyBy("TeamName");
   teams.Column("TeamName", "25%");
   teams.Column("TeamType", "25%");
   teams.Column("PermanentAddress", "25%")
      .As("Virtual Members")
      .Via("ZANSG_VirtualNetworkingPortComponent", "ZANSG_VirtualNetworkPort");
   teams.Column("Name", "25%")
      .As("Physical Members")
      .Via("ZANSG_VirtualNetworkingRedundancyGroupComponent", "ZANSG_SpareGroup");
}

void AddEndpointColumn(TTableDraft& ports, const std::string& property)
{
   ports.Column(property).Via("ZANSG_PortImplementsEndpoint", "ZANSG_IPProtocolEndpoint");
}

TTableDraft& AddPorts(TReportDraft& report, const std::string& cimClass, const std::string& title)
{
   TTableDraft& ports = report.Table(cimClass, title);
   ports.UseRowStyle("100%", "20%");
   ports.Limit(2);
   // The columns spell it DeviceID.
   ports.IdentifyBy("DeviceId");
   ports.Column("DeviceID");
   ports.Column("Name");
   ports.Column("Description");
   ports.Column("LinkTechnology");
   ports.Column("PermanentAddress");
   ports.Column("NetworkAddresses");
   AddEndpointColumn(ports, "IPv4Address");
   AddEndpointColumn(ports, "SubnetMask");
   return ports;
}

void AddPortConfiguration(TTableDraft& ports, bool windows)
{
   ports.Column("GatewayList");
   ports.Column("DnsServers");
   ports.Column("DhcpEnabled");
   ports.Column("DhcpServer");
   if (windows) {
      ports.Column("HaveWins");
      ports.Column("PrimaryWinsServer");
      ports.Column("SecondaryWinsServer");
      ports.Column("AutoConfigEnabled");
      ports.Column("AutoConfigActive");
   }
   ports.Column("Speed");
   ports.Column("ActiveMaximumTransmissionUnit");
   ports.Column("EnabledState");
   ports.Column("DriverLoaded");
}

void AddPortStatistics(TTableDraft& ports)
{
   for (const char* counter :
        {"RXPackets", "RXErrors", "RXDropErrors", "RXOverrunErrors", "RXFrameErrors", "TXPackets",
         "TXErrors", "TXDropErrors", "TXOverrunErrors", "TXCarrierErrors", "Collisions", "RXBytes",
         "TXBytes"})
      ports.Column(counter).Via("ZANSG_NetworkPortStatistics", "ZANSG_NetworkStatisticalData");
}

void AddVirtualPorts(TReportDraft& report, bool windows)
{
   TTableDraft& ports = AddPorts(report, "ZANSG_VirtualNetworkPort", "Virtual Network Ports");
   AddPortConfiguration(ports, windows);
   ports.Column("VLANID");
   ports.Column("VLANName");
   ports.Column("speedDuplex");
}

void AddPhysicalPorts(TReportDraft& report, bool windows, bool teaming, bool statistics)
{
   TTableDraft& ports = AddPorts(report, "ZANSG_PhysicalNetworkPort", "Physical Network Ports");
   AddEndpointColumn(ports, "IPv6Address");
   AddPortConfiguration(ports, windows);
   if (windows)
      ports.Column("NICType");
   if (teaming) {
      ports.Column("MemberType");
      ports.Column("TeamName");
      ports.Column("TeamID");
      ports.Column("MemberPriority");
   }
   ports.Column("speedDuplex");
   if (statistics)
      AddPortStatistics(ports);
}

}  // namespace

TReportParameters TReportParametersBuilder::BuildNetworkWithTeamingParams()
{
   const int osType = GetOSType();
   const bool windows = IsWindows(osType);
   const bool linuxOrESX = IsLinux(osType) || IsESX(osType);
   TReportDraft report("net", "Network Settings");

   AddGlobalSettings(report);
   if (linuxOrESX)
      AddRoutes(report);
   AddTeams(report);
   AddVirtualPorts(report, windows);
   AddPhysicalPorts(report, windows, true, linuxOrESX);

   return report.Finish();
}

// Routes and statistics stand on Linux alone here; with teaming they stand on ESX too.
TReportParameters TReportParametersBuilder::BuildNetworkWithoutTeamingParams()
{
   const int osType = GetOSType();
   const bool windows = IsWindows(osType);
   const bool linux = IsLinux(osType);
   TReportDraft report("net", "Network Settings");

   AddGlobalSettings(report);
   if (linux)
      AddRoutes(report);
   AddVirtualPorts(report, windows);
   AddPhysicalPorts(report, windows, false, linux);

   return report.Finish();
}
