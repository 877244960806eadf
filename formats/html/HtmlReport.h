#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "common/EventLog.h"
#include "common/PageNames.h"
#include "common/ReportSink.h"
#include "html/ComparedPage.h"
#include "html/HtmlBody.h"
#include "html/HtmlFrame.h"
#include "html/HtmlOptions.h"

/// The report of a run as a folder of HTML pages: a front page, the files of each report, the row
/// files of their tables, one style sheet and one script.
///
/// Shape: bodies go to a temporary file as they come; every page names all reports in its side bar,
///        so the files are put together at the end of the run. Until then only row files stand in
///        the folder, and memory holds some hundred bytes for each page and table.
/// Throws: TOutputError.
class THtmlReport final : public TReportSink
{
public:
   explicit THtmlReport(THtmlOptions options);

   void BeginRun(const std::string& outputDirectory, const TRunFacts& facts) override;
   void BeginPage(const std::string& linkName) override;
   void EndPage() override;

   void TakeOutcome(const TRunOutcome& outcome) override { fOutcome = &outcome; }

   void EndRun(const TReportIndex& index) override;

   bool WantsSameItems() const override { return true; }

   void WriteReportTitle(const std::string& title, const std::string& linkText,
                         const std::string& linkTarget) override;
   void WriteTableTitle(const TTableTitle& title) override;
   void WriteNote(const std::string& text) override;
   void BeginTable(const TTableShape& shape) override;
   void WriteRows(const TTableRows& rows) override;
   void EndTable() override;

private:
   void ShowOutcome(THtmlSite& site);
   void WriteSearchIndex(const THtmlSite& site,
                         const std::vector<TReportIndex::TPlace>& places) const;
   void WriteOwnPage(const std::string& name,
                     const std::function<void(THtmlSink& out)>& write) const;
   void BeginLog(const TLogColumns& columns);
   TPageSink& GetPage();

   const THtmlOptions fOptions;
   std::string fOutputDirectory;
   TRunFacts fFacts;
   THtmlSystems fSystems;
   TPageNames fNames;
   std::optional<TOutputFile> fSpool;
   std::optional<TRowFiles> fRowFiles;
   std::vector<THtmlPage> fPages;
   std::unique_ptr<THtmlBody> fBody;
   /// Missing: null where nobody judged.
   const TRunOutcome* fOutcome = nullptr;
   /// Missing: empty unless it is a comparison.
   std::unique_ptr<TComparedPage> fCompared;
   /// Of the whole run. Missing: none in a comparison.
   std::optional<TEventLog> fEvents;
   /// The title that a table of the page would stand under.
   std::string fTableTitle;
   bool fIsLogOpen = false;
   /// Of the log that is open.
   unsigned fFirstRowFile = 0;
};
