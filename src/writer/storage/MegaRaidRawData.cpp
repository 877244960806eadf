#include "writer/RawDataFiles.h"
#include "writer/ReportFrame.h"
#include "writer/StoreWalk.h"
#include "writer/WriterLog.h"

namespace {

constexpr const char* kLinkName = "megalsi_rawData";
constexpr const char* kStandardLinkName = "lsi_mr";
constexpr const char* kTitle = "MegaRAID Information";
constexpr const char* kIndexName = "MR Controller";

/// What the command does. Missing: the empty text, whatever fails.
std::string ReadDescription(const TInstanceHandle& command)
{
   try {
      return ReadText(command, "Message");
   } catch (const TQSXException& failure) {
      if (IsNotFound(failure))
         LogTrace("Can not get the message to the command sent to LSI MegaRAID tool - megacli");
      return "";
   }
}

/// The command line in service mode, its description otherwise. Both are read in either mode.
std::string MakeCommandCell(const TInstanceHandle& command, bool serviceMode)
{
   const std::string commandLine = ReadText(command, "Command");
   const std::string description = ReadDescription(command);
   return MakeCourierCell(serviceMode ? commandLine : description);
}

}  // namespace

void TWriter::WriteMegaLSIRawDataReport()
{
   if (fOutputFormat != "html")
      return;
   LogTrace("Entering TWriter::WriteMegaLSIRawDataReport");
   TClassHandle commandClass;
   try {
      commandClass = FindClass(fNamespace, "ZANSG_MegaLSIRawData");
      if (!commandClass) {
         LogStatus("Exiting TWriter::WriteMegaLSIRawDataReport, ex.fStatusCode.fStatusCode=",
                   kStatusNotFound);
         return;
      }
   } catch (const TQSXException&) {
      // Any other status goes on with the empty handle, which stops the enumeration: meant.
   }
   const TInstances commands = EnumerateInstances(commandClass);
   const bool serviceMode = fMode == TReportParametersBuilder::kServiceMode;
   OpenReportPage(*this, fOutputDirectory, kLinkName);
   if (serviceMode && isMRVendorProviderPresent())
      WriteReportTitle(kTitle, " - [Show Standard Report]", kStandardLinkName);
   else
      WriteReportTitle(kTitle, "", "");
   WriteTableTitle("Commands Issued", false, false);
   TTableGrid grid =
      WriteRawDataFiles(fOutputDirectory, {"megalsi_rawData_results", "Description", "Raw Result"},
                        commands, [serviceMode](const TInstanceHandle& command) {
                           return MakeCommandCell(command, serviceMode);
                        });
   WriteGrid(&grid);
   CloseReportPage(*this);
   // The provider's page has the entry where it exists, even without raw data.
   if (isMRVendorProviderPresent())
      WriteIndexEntry(kStandardLinkName, kIndexName, true);
   else
      WriteIndexEntry(kLinkName, kIndexName, !commands.empty());
   LogTrace("Exiting TWriter::WriteMegaLSIRawDataReport");
}
