#include <fstream>

#include "writer/ReportFrame.h"
#include "writer/StoreWalk.h"
#include "writer/TWriter.h"
#include "writer/WriterLog.h"
#include "writer/platform/ColumnTable.h"

namespace {

const char* const kTitle = "Cadenza Device Analysis";

const TColumns kColumns = {
   {"CadenzaScore", "0%", "", "", ""},        {"CadenzaType", "0%", "", "", ""},
   {"CadenzaCimType", "0%", "", "", ""},      {"CadenzaPropertyName", "0%", "", "", ""},
   {"CadenzaValue", "0%", "", "", ""},        {"CadenzaFrequency", "0%", "", "", ""},
   {"CadenzaCommonValues", "0%", "", "", ""}, {"CadenzaCommonFrequencies", "0%", "", "", ""},
};

/// The lines of the installed header file, joined with nothing between them.
/// Missing: the report's own title where the file can't be opened.
std::string ReadTitle(const std::string& baseDirectory)
{
   std::ifstream file(baseDirectory + "//data//cadenzadeviceheader.txt");
   if (!file)
      return kTitle;
   std::string title;
   std::string line;
   while (std::getline(file, line))
      title += line;
   return title;
}

}  // namespace

void TWriter::WriteCadenzaReport()
{
   LogTrace("Entering TWriter::WriteCadenzaReport");
   const std::string title = ReadTitle(fBaseDirectory);
   PrepareCadenzaReport();
   // A missing class ends the run, with the store's own status: meant.
   const auto findingClass = fNamespace->GetClass("ZANSG_CadenzaDevices", {});
   TInstances findings = EnumerateInstances(findingClass);
   // No BeginReportBody on this page: meant.
   OpenReportFile(fOutputDirectory + TOSSpecific::kFileSeparator + "cadenzadevices");
   WriteReportTitle(title, "", "");
   WriteCadenzaHeader();
   BeginColumnTable("100%", "", false);
   WriteColumnHeader(*this, findingClass, kColumns);
   TReportParameters::TInstanceSorter highestFirst;
   highestFirst.AddProperty("CadenzaScore", false, false);
   highestFirst.SortInstances(findings);
   int runningNumber = 0;
   for (const auto& finding : findings) {
      // WriteCadenzaRow begins the row itself.
      WriteCadenzaRow(finding, kColumns[0], kColumns[1], kColumns[2], kColumns[3], kColumns[4],
                      kColumns[5], kColumns[6], kColumns[7], runningNumber++);
      EndTableRow();
   }
   EndTable();
   CloseReportPage(*this);
   WriteIndexEntry("cadenzadevices", kTitle, true);
   LogTrace("Exiting TWriter::WriteCadenzaReport");
}
