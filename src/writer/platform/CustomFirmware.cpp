#include "writer/ReportFrame.h"
#include "writer/StoreWalk.h"
#include "writer/TWriter.h"
#include "writer/WriterLog.h"
#include "writer/platform/ColumnTable.h"

namespace {

using TInstance = boost::shared_ptr<ICIMInstance>;
using TReportProperty = TReportParameters::TReportProperty;

/// A RAID controller's firmware identity, shown in the table of the system's own.
struct TControllerIdentity
{
   const char* fClass;
   const char* fNameAssociation;
   const char* fNameTarget;
};

/// A cell of a RAID row that shows a text. It has a width and no property.
struct TTextCell
{
   const char* fWidth;
   const char* fText;
};

/// The cells of a RAID row: name, texts, version, texts.
struct TControllerRow
{
   std::vector<TControllerIdentity> fIdentities;
   const char* fNameWidth;
   std::vector<TTextCell> fAheadOfVersion;
   const char* fVersionWidth;
   std::vector<TTextCell> fBehindVersion;
};

struct TFirmwareSection
{
   const char* fClass;
   const char* fTitle;
   TColumns fColumns;
   TControllerRow fControllers = {};
};

const TControllerRow kFirmwareControllers = {
   {{"LSIESG_ControllerFirmwareIdentity", "LSIESG_ElementSoftwareIdentity", "LSIESG_MegaRAIDHBA"},
    {"LSI_RAID_ControllerFWSoftwareIdentity", "LSI_RAID_SystemFWSoftwareIdentity",
     "LSI_RAID_ComputerSystem"}},
   "15%",
   {{"15%", "LSI"}, {"15%", ""}, {"20%", ""}},
   "10%",
   {{"10%", ""}, {"15%", ""}}};

// Four cells, one less than the table of a multi-node system has columns: meant.
const TControllerRow kBIOSControllers = {
   {{"LSIESG_ControllerBIOSIdentity", "LSIESG_ElementSoftwareIdentity", "LSIESG_MegaRAIDHBA"},
    {"LSI_RAID_ControllerBIOSSoftwareIdentity", "LSI_RAID_SystemBIOSSoftwareIdentity",
     "LSI_RAID_ComputerSystem"}},
   "20%",
   {{"20%", ""}},
   "20%",
   {{"20%", ""}}};

std::vector<TFirmwareSection> MakeSections(bool multiNode)
{
   std::vector<TFirmwareSection> sections;

   sections.push_back(
      {"ZANSG_FirmwareElement",
       "Firmware",
       {{"Name", "15%", "", "", ""},
        {"Manufacturer", "15%", "", "", ""},
        {"ProductID", "15%", "ZANSG_DeviceFirmware", "ZANSG_SysBusDevice", ""},
        {"OtherIdentifyingInfo", "20%", "ZANSG_DeviceFirmware", "CIM_LogicalDevice", "Device"},
        {"Version", "10%", "", "", ""},
        {"BuildNumber", "10%", "", "", ""},
        {"BuildDate", "15%", "", "", ""}},
       kFirmwareControllers});

   TFirmwareSection bios = {"CIM_BIOSElement", "BIOS/uEFI", {}, kBIOSControllers};
   bios.fColumns.emplace_back("Name", "20%", "", "", "");
   if (multiNode)
      bios.fColumns.emplace_back("SourceNode", "20%", "", "", "");
   bios.fColumns.emplace_back("BuildNumber", "20%", "", "", "");
   bios.fColumns.emplace_back("Version", "20%", "", "", "");
   bios.fColumns.emplace_back("ReleaseDate", "20%", "", "", "");
   sections.push_back(bios);

   sections.push_back({"ZANSG_PostBIOSVPD",
                       "Post BIOS VPD",
                       {{"BuildNumber", "15%", "", "", ""},
                        {"BuildDate", "20%", "", "", ""},
                        {"Version", "20%", "", "", ""},
                        {"Filename", "15%", "", "", ""},
                        {"UniqueID", "25%", "", "", ""}}});

   TFirmwareSection diagnostic = {"ZANSG_DiagnosticVPD", "Diagnostic VPD", {}};
   diagnostic.fColumns.emplace_back("BuildNumber", multiNode ? "50%" : "100%", "", "", "");
   if (multiNode)
      diagnostic.fColumns.emplace_back("SourceNode", "50%", "", "", "");
   sections.push_back(diagnostic);

   sections.push_back({"ZANSG_SPROMFirmwareVPDMain",
                       "SP Firmware Main VPD",
                       {{"Name", "20%", "", "", ""},
                        {"BuildNumber", "20%", "", "", ""},
                        {"BuildDate", "20%", "", "", ""},
                        {"Version", "20%", "", "", ""},
                        {"Filename", "20%", "", "", ""}}});

   sections.push_back({"ZANSG_SPROMFirmwareVPDBootROM",
                       "SP Firmware BootROM VPD",
                       {{"BuildNumber", "25%", "", "", ""},
                        {"BuildDate", "25%", "", "", ""},
                        {"Version", "25%", "", "", ""},
                        {"Filename", "25%", "", "", ""}}});

   sections.push_back({"ZANSG_HardwareRevisionLevel",
                       "SP Hardware Revision",
                       {{"Hardwarelevel", "100%", "", "", ""}}});

   sections.push_back({"ZANSG_FRU",
                       "Other VPD",
                       {{"Name", "20%", "", "", ""},
                        {"Vendor", "20%", "", "", ""},
                        {"FRUNumber", "20%", "", "", ""},
                        {"PartNumber", "20%", "", "", ""},
                        {"SerialNumber", "20%", "", "", ""}}});
   return sections;
}

/// The class, or an empty handle whatever the store says.
boost::shared_ptr<ICIMClass> TryGetClass(const boost::shared_ptr<ICIMNamespace>& cimNamespace,
                                         const std::string& name)
{
   try {
      return cimNamespace->GetClass(name, {});
   } catch (const TQSXException&) {
      return {};
   }
}

void WriteTextCells(TWriter& writer, const std::vector<TTextCell>& cells)
{
   for (const auto& cell : cells)
      writer.WriteTextCell(TReportProperty("", cell.fWidth, "", "", ""), cell.fText);
}

void WriteControllerRow(TWriter& writer, const TInstance& instance, const TControllerRow& row,
                        const TControllerIdentity& identity)
{
   writer.BeginTableRow(true);
   writer.WriteValueCell(instance, {"ElementName", row.fNameWidth, identity.fNameAssociation,
                                    identity.fNameTarget, ""});
   WriteTextCells(writer, row.fAheadOfVersion);
   writer.WriteValueCell(instance, {"VersionString", row.fVersionWidth, "", "", ""});
   WriteTextCells(writer, row.fBehindVersion);
   writer.EndTableRow();
}

void WriteControllerRows(TWriter& writer, const boost::shared_ptr<ICIMNamespace>& cimNamespace,
                         const TControllerRow& row)
{
   for (const auto& identity : row.fIdentities) {
      const auto cimClass = TryGetClass(cimNamespace, identity.fClass);
      if (!cimClass)
         continue;
      for (const auto& instance : EnumerateInstances(cimClass))
         WriteControllerRow(writer, instance, row, identity);
   }
}

/// A missing class is not tested for: its empty handle runs into the assertion hook, which ends the
/// report. This is meant.
void WriteSection(TWriter& writer, const boost::shared_ptr<ICIMNamespace>& cimNamespace,
                  const boost::shared_ptr<ICIMClass>& cimClass, const TFirmwareSection& section)
{
   const auto instances = EnumerateInstances(cimClass);
   if (instances.empty())
      return;
   writer.WriteTableTitle(section.fTitle, false, false);
   writer.BeginColumnTable("100%", section.fTitle, true);
   WriteColumnHeader(writer, cimClass, section.fColumns);
   WriteColumnRows(writer, instances, section.fColumns);
   WriteControllerRows(writer, cimNamespace, section.fControllers);
   writer.EndTable();
}

}  // namespace

void TWriter::WriteCustomFirmwareReport(TReportParametersBuilder builder)
{
   // The texts name another class; tools match on them.
   LogTrace("Entering TDataWriter::WriteCustomFirmwareReport");
   // No BeginReportBody on this page: meant.
   OpenReportFile(fOutputDirectory + TOSSpecific::kFileSeparator + "firmware");
   WriteReportTitle("Firmware/VPD", "", "");
   for (const auto& section : MakeSections(builder.IsMultiNode()))
      WriteSection(*this, fNamespace, TryGetClass(fNamespace, section.fClass), section);
   CloseReportPage(*this);
   WriteIndexEntry("firmware", "Firmware", true);
   LogTrace("Exiting TDataWriter::WriteCustomFirmwareReport");
}
