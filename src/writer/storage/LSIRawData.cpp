#include "writer/ReportFrame.h"
#include "writer/StoreWalk.h"
#include "writer/WriterLog.h"
#include "writer/storage/RawDataPage.h"

namespace {

constexpr TRawDataPage kPage = {
   "lsi_rawData_index",          // link
   "LSI Controller",             // title
   " - [Show Raw Data Report]",  // text of the link to it
   "lsi",                        // standard page
   "lsi_rawData_results",        // files
};

}  // namespace

void TWriter::WriteLSIRawData(std::string& linkText, std::string& linkTarget)
{
   LogTrace("Entering TWriter::WriteLSIRawData");
   TClassHandle commandClass;
   try {
      commandClass = FindClass(fNamespace, "ZANSG_lsiRawData");
   } catch (const TQSXException&) {
      // Whatever the failure, the class counts as missing.
   }
   if (!commandClass) {
      LogTrace("Exiting TWriter::WriteLSIRawData, class ZANSG_lsiRawData not found");
      return;
   }
   WriteRawDataPage(*this, fOutputDirectory, kPage, EnumerateInstances(commandClass), linkText,
                    linkTarget);
   LogTrace("Exiting TWriter::WriteLSIRawData");
}
