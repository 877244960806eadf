#include "html/RowIndex.h"

#include "html/HtmlReportPage.h"

void WriteRowIndex(const TRowFiles& rowFiles, const THtmlSite& site,
                   const std::vector<TReportIndex::TPlace>& places)
{
   TOutputFile file(rowFiles.GetPath("index.js"));
   file.Write("qsxPages(" + std::to_string(rowFiles.GetFileNumber()) + ",[");
   const char* separator = "[\"";
   for (std::size_t page = 0; page < site.fPages.size(); ++page) {
      file.Write(separator);
      WriteScriptText(file, site.fPages[page].fFileStem);
      file.Write("\",\"");
      WriteScriptText(file, GetPageTitle(site.fPages[page], places[page]));
      file.Write("\"]");
      separator = ",\n[\"";
   }
   file.Write("]);\n");
   file.Close();
}
