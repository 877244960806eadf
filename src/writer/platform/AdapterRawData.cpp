#include "writer/RawDataFiles.h"
#include "writer/ReportFrame.h"
#include "writer/StoreWalk.h"
#include "writer/TWriter.h"

namespace {

using TInstance = boost::shared_ptr<ICIMInstance>;

/// The raw data of one kind of adapter.
struct TAdapterRawData
{
   const char* fClass;
   const char* fFileStem;
};

constexpr TAdapterRawData kFibreChannel = {"ZANSG_QLogicFibreChannelRawData", "fc_rawData_results"};
constexpr TAdapterRawData kIScsi = {"ZANSG_QLogicIScsiRawData", "iscsi_rawData_results"};
constexpr TAdapterRawData kEmulex = {"ELXHBA_Product", "emulex_rawData_results"};

const char* const kStandardReportText = " - [Show Standard Report]";

std::string MakeCommandCell(const TInstance& instance)
{
   return MakeCourierCell(ReadText(instance, "Command"));
}

std::string MakeEmulexCell(const TInstance&)
{
   // The missing semicolons are meant; tools match on the text.
   return "<font face=\"Courier\"> HBA commands:<br>"
          "&nbsp&nbspListHBAs/HBAAttrib/PortAttrib/PortStat/TargetMapping</font>";
}

void WriteRawDataGrid(TWriter& writer, const std::string& outputDirectory,
                      const TAdapterRawData& adapter, const TInstances& instances,
                      const TCommandCell& commandCell)
{
   TTableGrid grid = WriteRawDataFiles(
      outputDirectory, {adapter.fFileStem, "Command", "Raw Result"}, instances, commandCell);
   writer.WriteGrid(&grid);
}

/// A page of its own in the index.
void WriteListedReport(TWriter& writer, const boost::shared_ptr<ICIMNamespace>& cimNamespace,
                       const std::string& outputDirectory, const TAdapterRawData& adapter,
                       const std::string& linkName, const std::string& title)
{
   const auto instances = FindInstances(cimNamespace, adapter.fClass);
   if (instances.empty()) {
      writer.WriteIndexEntry(linkName, title, false);
      return;
   }
   OpenReportPage(writer, outputDirectory, linkName);
   writer.WriteReportTitle(title, "", "");
   writer.WriteTableTitle("Commands Issued", false, false);
   WriteRawDataGrid(writer, outputDirectory, adapter, instances, MakeCommandCell);
   CloseReportPage(writer);
   writer.WriteIndexEntry(linkName, title, true);
}

void OpenQlogicPage(TWriter& writer, const std::string& outputDirectory)
{
   OpenReportPage(writer, outputDirectory, "fc_rawData");
   writer.WriteReportTitle("Qlogic Data", kStandardReportText, "Qlogic");
}

/// The pages that the title of a catalogue report links to exist in service mode and HTML only.
bool HasLinkedPages(const std::string& outputFormat, const std::string& mode)
{
   return outputFormat == "html" && mode == "mek";
}

}  // namespace

void TWriter::WriteFibreChannelReport()
{
   WriteListedReport(*this, fNamespace, fOutputDirectory, kFibreChannel, "fc_rawData",
                     "QLogic Fibre Channel Data");
}

void TWriter::WriteIScsiRawDataReport()
{
   WriteListedReport(*this, fNamespace, fOutputDirectory, kIScsi, "iscsi_rawData",
                     "QLogic IScsi Data");
}

void TWriter::WriteQlogicRawDataReport()
{
   if (!HasLinkedPages(fOutputFormat, fMode))
      return;
   bool pageOpen = false;
   const auto fibreChannel = FindInstances(fNamespace, kFibreChannel.fClass);
   if (!fibreChannel.empty()) {
      OpenQlogicPage(*this, fOutputDirectory);
      pageOpen = true;
      WriteTableBreak();
      WriteReportTitle("Fibre Channel", "", "");
      WriteRawDataGrid(*this, fOutputDirectory, kFibreChannel, fibreChannel, MakeCommandCell);
   }
   const auto iscsi = FindInstances(fNamespace, kIScsi.fClass);
   if (!iscsi.empty()) {
      if (!pageOpen)
         OpenQlogicPage(*this, fOutputDirectory);
      pageOpen = true;
      // No break ahead of this title, unlike the one above: meant.
      WriteReportTitle("iSCSI", "", "");
      WriteRawDataGrid(*this, fOutputDirectory, kIScsi, iscsi, MakeCommandCell);
   }
   // No index entry: the catalogue report stands in the index and links here.
   if (pageOpen)
      CloseReportPage(*this);
}

void TWriter::WriteEmulexReport()
{
   if (!HasLinkedPages(fOutputFormat, fMode))
      return;
   const auto instances = FindInstances(fNamespace, kEmulex.fClass);
   if (instances.empty())
      return;
   OpenReportPage(*this, fOutputDirectory, "emulex_rawData");
   WriteReportTitle("Emulex Data", kStandardReportText, "emulex");
   WriteTableTitle("Emulex Raw Data", false, false);
   WriteRawDataGrid(*this, fOutputDirectory, kEmulex, instances, MakeEmulexCell);
   // No index entry: the catalogue report stands in the index and links here.
   CloseReportPage(*this);
}
