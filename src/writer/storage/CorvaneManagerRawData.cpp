#include "writer/ReportFrame.h"
#include "writer/StoreWalk.h"
#include "writer/WriterLog.h"
#include "writer/storage/RawDataPage.h"

namespace {

constexpr TRawDataPage kPage = {
   "cvmanager_rawData_index",            // link
   "Corvane Logs",                       // title
   " - [Show Manager Raw Data Report]",  // text of the link to it
   "corvanelogs",                        // standard page
   "cvmanager_rawData_results",          // files
};

}  // namespace

void TWriter::WriteCorvaneManagerRawDataReport(std::string& linkText, std::string& linkTarget)
{
   LogTrace("Entering TWriter::WriteCorvaneManagerRawDataReport");
   TClassHandle commandClass;
   try {
      commandClass = fNamespace->GetClass("ZANSG_cvManagerRawData", {});
      if (!commandClass)
         throw TQSXException(kStatusNotFound);
   } catch (const TQSXException& failure) {
      // "Entering" on the way out: meant.
      LogAt(NZANQSX20::kLogMissingClass,
            "Entering TWriter::WriteCorvaneManagerRawDataReport:Can not get "
            "ZANSG_cvManagerRawData class.",
            failure.what());
      return;
   }
   WriteRawDataPage(*this, fOutputDirectory, kPage, EnumerateInstances(commandClass), linkText,
                    linkTarget);
   LogTrace("Exiting TWriter::WriteCorvaneManagerRawDataReport");
}
