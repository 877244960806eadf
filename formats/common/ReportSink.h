#pragma once

#include <cstdint>
#include <string>

#include "common/ReportIndex.h"
#include "common/RunFacts.h"
#include "common/RunOutcome.h"
#include "common/Table.h"

struct TTableTitle
{
   std::string fText;
   /// The title of a table of associated instances, or of a part of a comparison.
   bool fIsSubTitle = false;
   /// The title says what differs between systems.
   bool fIsEmphasised = false;
   /// In a comparison: how many instances stand below that are the same in all collections. Nothing
   /// else follows on the page. Missing: 0 for what differs.
   std::uint64_t fSameItems = 0;
};

/// What stands on a page, in order.
class TPageSink
{
public:
   /// The first one is the title of the page, each further one heads what follows.
   /// Missing: both link texts are empty where there is no link.
   virtual void WriteReportTitle(const std::string& title, const std::string& linkText,
                                 const std::string& linkTarget) = 0;
   virtual void WriteTableTitle(const TTableTitle& title) = 0;
   /// A sentence of its own.
   virtual void WriteNote(const std::string& text) = 0;
   virtual void BeginTable(const TTableShape& shape) = 0;
   /// Any number of times between BeginTable and EndTable, or not at all.
   virtual void WriteRows(const TTableRows& rows) = 0;
   virtual void EndTable() = 0;

protected:
   ~TPageSink() = default;
};

/// What a format makes of a run. TReportFlow calls it in this order whatever the library does:
/// BeginRun, then for each page BeginPage, what stands on it, EndPage; EndRun at last.
/// Throws: TOutputError where a file can't be written.
class TReportSink : public TPageSink
{
public:
   virtual void BeginRun(const std::string& outputDirectory, const TRunFacts& facts) = 0;
   /// Pages come in the order of their numbers in the index.
   virtual void BeginPage(const std::string& linkName) = 0;
   virtual void EndPage() = 0;

   /// Ahead of EndRun. Owner: the outcome lives until EndRun came back.
   virtual void TakeOutcome(const TRunOutcome& /*outcome*/) {}

   virtual void EndRun(const TReportIndex& index) = 0;

   /// Whether the pages of a comparison shall list what is the same, too.
   virtual bool WantsSameItems() const { return false; }

   virtual ~TReportSink() = default;
};
