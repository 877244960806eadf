#pragma once

#include <string>

#include "common/ReportFlow.h"
#include "support/TTemporaryFolder.h"

/// A run of one of the formats that write documents into a folder of its own.
template <typename TReport>
class TDocumentRun
{
public:
   explicit TDocumentRun(TDocumentOptions options = {}, TRunFacts facts = {})
      : fReport(options, "all"), fFlow(fReport, [](const std::string&) {})
   {
      fFlow.BeginRun(fFolder.GetPath(), facts);
      fFlow.BeginIndexGroup("Hardware");
   }

   TReportFlow& GetFlow() { return fFlow; }

   TReport& GetReport() { return fReport; }

   void BeginPage(const std::string& linkName, const std::string& title)
   {
      fFlow.OpenReportFile(fFolder.GetPath(linkName));
      fFlow.WriteReportTitle(title, "", "");
   }

   void EndPage(const std::string& linkName, bool hasData = true)
   {
      fFlow.CloseReportFile();
      fFlow.WriteIndexEntry(linkName, "Entry of " + linkName, hasData);
   }

   void AddRow(const std::vector<TCell>& cells)
   {
      fFlow.BeginTableRow();
      for (const TCell& cell : cells)
         fFlow.AddCell(cell);
      fFlow.EndTableRow();
   }

   void AddTextRow(const std::vector<std::string>& texts, bool areLabels = false)
   {
      std::vector<TCell> cells(texts.size());
      for (std::size_t i = 0; i < texts.size(); ++i) {
         cells[i].fText = texts[i];
         cells[i].fIsLabel = areLabels;
      }
      AddRow(cells);
   }

   std::string EndRun(const std::string& file)
   {
      fFlow.EndRun();
      return fFolder.Read(file);
   }

private:
   TTemporaryFolder fFolder;
   TReport fReport;
   TReportFlow fFlow;
};
