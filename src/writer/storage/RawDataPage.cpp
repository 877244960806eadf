#include "writer/storage/RawDataPage.h"

#include "writer/ReportFrame.h"
#include "writer/StoreWalk.h"

void WriteRawDataPage(TWriter& writer, const std::string& outputDirectory, const TRawDataPage& page,
                      const TWriter::TInstances& commands, std::string& linkText,
                      std::string& linkTarget)
{
   if (commands.empty())
      return;
   linkText = page.fLinkText;
   linkTarget = page.fLinkName;
   OpenReportPage(writer, outputDirectory, page.fLinkName);
   writer.WriteReportTitle(page.fTitle, " - [Show Standard Report]", page.fBackLink);
   writer.WriteTableTitle("Commands Issued", false, false);
   TTableGrid grid = WriteRawDataFiles(
      outputDirectory, {page.fFileStem, "Command", "Result"}, commands,
      [](const TInstanceHandle& command) { return MakeCourierCell(ReadText(command, "Command")); });
   writer.WriteGrid(&grid);
   CloseReportPage(writer);
}
