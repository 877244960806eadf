#pragma once

#include <memory>
#include <optional>

#include "common/ReportSink.h"
#include "html/HtmlTable.h"

/// Writes the body of one page into the spool: titles, sentences, tables.
///
/// Shape: a title stands above the table that follows it; one that no table follows says "No data".
///        A page that grows beyond one file goes on in the next one ahead of a title or a table.
/// Owner: everything is the caller's. One object per page.
class THtmlBody final : public TPageSink
{
public:
   /// systems: empty unless it is a comparison.
   THtmlBody(TOutputFile& spool, THtmlPage& page, TRowFiles& rowFiles, const THtmlSystems& systems);

   void WriteReportTitle(const std::string& title, const std::string& linkText,
                         const std::string& linkTarget) override;
   void WriteTableTitle(const TTableTitle& title) override;
   void WriteNote(const std::string& text) override;
   void BeginTable(const TTableShape& shape) override;
   void WriteRows(const TTableRows& rows) override;
   void EndTable() override;

   /// After the last piece of the page.
   void Finish();

private:
   void BeginNextFileWhenFull();
   void BeginWhole();
   void WriteTitleWithoutTable(bool isEmpty);
   void OpenTable();
   void ListTitle(const std::string& anchor);
   void SettleTitles();
   void OpenGroup();
   void CloseGroup();
   THtmlHeading MakeHeading();

   THtmlSink fOut;
   THtmlPage& fPage;
   TBodySpool fBody;
   TRowFiles& fRowFiles;
   const THtmlSystems& fSystems;
   TTableShape fShape;
   /// Missing: empty until the table has a row.
   std::unique_ptr<THtmlTable> fTable;
   bool fIsGroupOpen = false;
   /// What is the same in all collections of a comparison stands there.
   bool fIsWholeOpen = false;
   bool fGroupHasSwitch = false;
   bool fHasContent = false;
   bool fHasPageTitle = false;
   bool fFileHasMainTitle = false;

   /// The title that waits for its table.
   std::optional<TTableTitle> fWaiting;
   std::string fMainTitle;
   bool fIsMainTitleListed = false;
   unsigned fListedTitles = 0;
   std::vector<std::string> fMainLabels;
   /// Missing: what is written stands under the main title itself.
   std::optional<TTableTitle> fSubTitle;
   unsigned fTablesUnderTitle = 0;
};
