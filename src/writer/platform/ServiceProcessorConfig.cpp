#include "writer/ReportFrame.h"
#include "writer/StoreWalk.h"
#include "writer/TWriter.h"
#include "writer/WriterLog.h"

namespace {

using TInstance = boost::shared_ptr<ICIMInstance>;

struct TSettingsSection
{
   const char* fClass;
   /// Empty: the instance's InstanceID is the title.
   const char* fTitle;
   std::vector<const char*> fProperties;
};

const TSettingsSection kStaticAddress = {
   "CIM_StaticIPAssignmentSettingData",
   "Static IP ",
   {"InstanceID", "IPv4Address", "SubnetMask", "GatewayIPv4Address"}};
const TSettingsSection kNameService = {
   "CIM_DNSSettingData", "", {"RequestedHostname", "DNSServerAddresses"}};
const TSettingsSection kDynamicAddress = {
   "CIM_IPProtocolEndpoint", "DHCP IP Address", {"IPv4Address", "SubnetMask", "SystemName"}};
const TSettingsSection kSNMP = {
   "CIM_SNMPCommunityString", "SNMP Community", {"CommunityString", "SystemName"}};

/// A section's class with its instances.
struct TSettings
{
   /// A missing class is not tested for: its empty handle runs into the assertion hook at the
   /// enumeration. This is meant, the guard of the run then writes the older page.
   TSettings(const boost::shared_ptr<ICIMNamespace>& cimNamespace, const TSettingsSection& section)
      : fSection(section),
        fClass(FindClass(cimNamespace, section.fClass)),
        fInstances(EnumerateInstances(fClass))
   {}

   const TSettingsSection& fSection;
   boost::shared_ptr<ICIMClass> fClass;
   TInstances fInstances;
};

std::string GetTitle(const TSettingsSection& section, const TInstance& instance)
{
   if (*section.fTitle)
      return section.fTitle;
   return ReadText(instance, "InstanceID");
}

void WriteSettingsTable(TWriter& writer, const TSettings& settings, const TInstance& instance)
{
   const std::string title = GetTitle(settings.fSection, instance);
   writer.WriteTableTitle(title, false, false);
   writer.BeginRowTable("70%", "40%", title);
   for (const char* name : settings.fSection.fProperties)
      WriteRow(writer, settings.fClass, instance, TReportRow{name});
   writer.EndTable();
}

void WriteSettingsTables(TWriter& writer, const TSettings& settings)
{
   for (const auto& instance : settings.fInstances)
      WriteSettingsTable(writer, settings, instance);
}

}  // namespace

void TWriter::WriteSPConfigReport()
{
   LogTrace("Entering TWriter::WriteSPConfigReport");
   const TSettings staticAddress(fNamespace, kStaticAddress);
   if (staticAddress.fInstances.empty()) {
      WriteIndexEntry("", "Static IP", false);
      return;
   }
   OpenReportPage(*this, fOutputDirectory, "SPConfig");
   WriteReportTitle("KMC Configuration", "", "");
   WriteSettingsTables(*this, staticAddress);

   const TSettings nameService(fNamespace, kNameService);
   if (nameService.fInstances.empty()) {
      // The page ends here, its body open and without an entry of its own: meant.
      WriteIndexEntry("", "DNS IP", false);
      CloseReportFile();
      return;
   }
   WriteSettingsTables(*this, nameService);
   WriteSettingsTables(*this, TSettings(fNamespace, kDynamicAddress));
   WriteSettingsTables(*this, TSettings(fNamespace, kSNMP));

   CloseReportPage(*this);
   // Static addresses do not count as data, but the page gets here with name service settings only.
   WriteIndexEntry("SPConfig", "KMC Configuration", true);
   // The text names another function; tools match on it.
   LogTrace("Exiting TWriter::WriteEnvironmentalsReport");
}
