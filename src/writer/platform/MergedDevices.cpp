#include <locale>
#include <map>

#include "writer/ReportFrame.h"
#include "writer/StoreWalk.h"
#include "writer/TWriter.h"
#include "writer/WriterLog.h"
#include "writer/platform/ColumnTable.h"

namespace {

using TInstance = boost::shared_ptr<ICIMInstance>;

const TColumns kColumns = {
   {"ElementName", "25%", "", "", ""},
   {"Location", "20%", "", "", ""},
   {"OperationalStatus", "5%", "", "", ""},
   {"Name", "5%", "ZANSG_DeviceSoftware", "ZANSG_LinuxKernelModule", "Module"},
   {"SoftwareElementState", "5%", "ZANSG_DeviceSoftware", "ZANSG_LinuxKernelModule", "State"},
   {"Manufacturer", "20%", "", "", ""},
   {"Version", "20%", "ZANSG_DeviceSoftware", "ZANSG_LinuxKernelModule", ""},
};

/// Reads both ends of each identity. No location is taken from them, every device shows its own;
/// the reads are kept because their failures leave the report.
void ReadIdentities(ICIMNamespace& cimNamespace, const boost::shared_ptr<ICIMClass>& identityClass)
{
   for (const auto& identity : EnumerateOwnInstances(identityClass))
      for (const char* end : {"SystemElement", "SameElement"})
         cimNamespace.GetInstance(
            static_cast<TCIMReference>(identity->GetProperty(end, {})->GetValue({})), {});
}

void SortDevices(TInstances& devices)
{
   TReportParameters::TInstanceSorter byClass;
   byClass.AddProperty("DeviceClass", true, false);
   byClass.AddProperty("ElementName", true, false);
   try {
      byClass.SortInstances(devices);
   } catch (const TQSXException&) {
      // The text says exiting, but the report goes on: meant.
      LogTrace("Exiting TWriter::WriteMergedDevicesReport, sort failure");
   }
}

/// The devices by the text of their class, its first letter raised. A null class drops the device.
std::map<std::string, TInstances> GroupByClass(const TInstances& devices)
{
   std::map<std::string, TInstances> groups;
   for (const auto& device : devices) {
      const auto property = device->GetProperty("DeviceClass", {});
      const TCIMValue& deviceClass = property->GetValue({});
      if (deviceClass.IsNull())
         continue;
      std::string text = deviceClass.ToString(10);
      if (!text.empty())
         text[0] = std::toupper(text[0], std::locale::classic());
      groups[text].push_back(device);
   }
   return groups;
}

void WriteGroup(TWriter& writer, const boost::shared_ptr<ICIMClass>& deviceClass,
                const std::string& title, const TInstances& devices)
{
   writer.WriteTableTitle(title, false, false);
   writer.BeginColumnTable("100%", title, false);
   WriteColumnHeader(writer, deviceClass, kColumns);
   WriteColumnRows(writer, devices, kColumns);
   writer.EndTable();
}

/// Writes the tables. Missing: false when there is no device to show.
bool WriteDevices(TWriter& writer, const boost::shared_ptr<ICIMClass>& deviceClass)
{
   auto devices = EnumerateInstances(deviceClass);
   SortDevices(devices);
   const auto groups = GroupByClass(devices);
   for (const auto& [title, members] : groups)
      WriteGroup(writer, deviceClass, title, members);
   return !groups.empty();
}

}  // namespace

void TWriter::WriteMergedDevicesReport()
{
   LogTrace("Entering TWriter::WriteMergedDevicesReport");
   OpenReportPage(*this, fOutputDirectory, "mergedDevices");
   WriteReportTitle("Merged Devices", "", "");

   const auto devices = FindClassOrLogStatus(
      fNamespace, "ZANSG_LogicalDevice",
      "Exiting TWriter::WriteMergedDevicesReport, ex.fStatusCode.fStatusCode=");
   const auto identities = FindClassOrLogStatus(
      fNamespace, "ZANSG_DeviceIdentity",
      "Exiting TWriter::WriteMergedDevicesReport(2), ex.fStatusCode.fStatusCode=");
   const auto bridges = FindClassOrLogStatus(
      fNamespace, "ZANSG_PCIBridge",
      "Exiting TWriter::WriteMergedDevicesReport(3), ex.fStatusCode.fStatusCode=");
   const auto cards = FindClassOrLogStatus(
      fNamespace, "ZANSG_PCIDevice",
      "Exiting TWriter::WriteMergedDevicesReport(4), ex.fStatusCode.fStatusCode=");
   if (identities && (bridges || cards))
      ReadIdentities(*fNamespace, identities);
   const bool hasData = devices && WriteDevices(*this, devices);

   CloseReportPage(*this);
   WriteIndexEntry("mergedDevices", "Merged Devices", hasData);
   LogTrace("Exiting TWriter::WriteMergedDevicesReport");
}
