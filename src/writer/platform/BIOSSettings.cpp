#include "writer/ReportFrame.h"
#include "writer/StoreWalk.h"
#include "writer/TWriter.h"
#include "writer/WriterLog.h"

namespace {

TReportParameters::TReportClass MakeSettingsTable()
{
   TReportParameters::TReportClass settings;
   settings.SetClass("ZANSG_BIOSEnumeration");
   settings.SetTitle("BIOS Settings");
   settings.SetProperties({{"AttributeName", "15%", "", "", ""},
                           {"CurrentValue", "25%", "", "", ""},
                           {"DefaultValue", "25%", "", "", ""},
                           {"PendingValue", "35%", "", "", ""}});
   return settings;
}

/// Throws: TQSXException where an attribute's name can't be read; this sort has no catch of its
/// own.
void SortByAttribute(TInstances& settings)
{
   TReportParameters::TInstanceSorter byAttribute;
   byAttribute.AddProperty("AttributeName", true, false);
   byAttribute.SortInstances(settings);
}

}  // namespace

void TWriter::WriteBIOSEnumeration()
{
   // No BeginReportBody on this page: meant.
   OpenReportFile(fOutputDirectory + TOSSpecific::kFileSeparator + "biosenumeration");
   WriteReportTitle("BIOS Settings", "", "");
   bool noData = true;
   const TReportClass table = MakeSettingsTable();
   if (FindClass(fNamespace, table.GetClass())) {
      TInstances settings = GetInstances(table);
      if (!settings.empty()) {
         noData = false;
         SortByAttribute(settings);
         WriteTable(table, settings, true, false, {});
      }
   }
   CloseReportPage(*this);
   WriteIndexEntry("biosenumeration", "BIOS Settings", !noData);
   LogTrace("Exiting TWriter::WriteBIOSEnumeration");
}
