#include "html/RowIndex.h"

void WriteRowIndex(const TRowFiles& rowFiles, const std::vector<TSearchedPage>& pages)
{
   TOutputFile file(rowFiles.GetPath("index.js"));
   file.Write("qsxPages(" + std::to_string(rowFiles.GetFileNumber()) + ",[");
   const char* separator = "[\"";
   for (const TSearchedPage& page : pages) {
      file.Write(separator);
      WriteScriptText(file, page.fFileStem);
      file.Write("\",\"");
      WriteScriptText(file, page.fTitle);
      file.Write("\"]");
      separator = ",\n[\"";
   }
   file.Write("]);\n");
   file.Close();
}
