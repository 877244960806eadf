#pragma once

#include <memory>

#include "common/ReportSink.h"
#include "common/health/LogJudge.h"
#include "common/health/TableJudge.h"

/// Stands between a run and its sink, judges the health of the machine from what passes, and marks
/// the cells that tell a state.
///
/// Shape: calls pass on as they come, in the same order. A comparison is not judged.
/// Owner: the sink is the caller's.
class THealthJudge final : public TReportSink
{
public:
   THealthJudge(TReportSink& sink, TLabelLookup getLabel)
      : fSink(sink), fGetLabel(std::move(getLabel))
   {}

   /// Ahead of BeginRun. Missing: without it, no reading of a sensor is judged, and nothing is told
   /// of gaps and corrections.
   void SetCollection(TSensorLimitsByName limits, std::vector<TGap> gaps, TCollectionFacts facts)
   {
      fLimits = std::move(limits);
      fGaps = std::move(gaps);
      fCollection = std::move(facts);
   }

   void BeginRun(const std::string& outputDirectory, const TRunFacts& facts) override;
   void BeginPage(const std::string& linkName) override;
   void EndPage() override;
   void EndRun(const TReportIndex& index) override;

   void WriteReportTitle(const std::string& title, const std::string& linkText,
                         const std::string& linkTarget) override;
   void WriteTableTitle(const TTableTitle& title) override;
   void WriteNote(const std::string& text) override;
   void BeginTable(const TTableShape& shape) override;
   void WriteRows(const TTableRows& rows) override;
   void EndTable() override;

private:
   TReportSink& fSink;
   const TLabelLookup fGetLabel;
   TSensorLimitsByName fLimits;
   std::vector<TGap> fGaps;
   TCollectionFacts fCollection;
   TRunFacts fFacts;

   /// Missing: null in a comparison.
   std::unique_ptr<THealthLedger> fLedger;
   std::unique_ptr<TTableJudge> fTables;
   std::unique_ptr<TLogJudge> fLogs;
   std::string fLinkName;
   std::string fReportTitle;
   std::string fTableTitle;
   std::size_t fPages = 0;
   /// Tables of the page that have a row.
   unsigned fTableCount = 0;
   /// Rows of the table.
   std::uint64_t fRows = 0;
};
