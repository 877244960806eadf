#include "common/health/HealthJudge.h"

#include "common/health/CollectionFindings.h"

namespace {

/// Rows with their marks. Owner: both are the caller's and outlive this view.
class TMarkedRows final : public TTableRows
{
public:
   /// The marks count rows of the table from 1.
   TMarkedRows(const TTableRows& rows, const TTableJudge::TMarks& marks, std::uint64_t firstRow)
      : fRows(rows), fMarks(marks), fFirstRow(firstRow)
   {}

   std::size_t GetRowCount() const override { return fRows.GetRowCount(); }

   std::size_t GetCellCount(std::size_t row) const override { return fRows.GetCellCount(row); }

   TCell GetCell(std::size_t row, std::size_t column) const override
   {
      TCell cell = fRows.GetCell(row, column);
      const auto mark = fMarks.find({fFirstRow + row + 1, column + 1});
      if (mark != fMarks.end())
         cell.fState = mark->second;
      return cell;
   }

private:
   const TTableRows& fRows;
   const TTableJudge::TMarks& fMarks;
   const std::uint64_t fFirstRow;
};

}  // namespace

void THealthJudge::BeginRun(const std::string& outputDirectory, const TRunFacts& facts)
{
   fPages = 0;
   fFacts = facts;
   fTables.reset();
   fLogs.reset();
   fLedger.reset();
   if (!facts.IsComparison()) {
      fLedger = std::make_unique<THealthLedger>();
      fTables = std::make_unique<TTableJudge>(*fLedger, fGetLabel, fLimits);
      fLogs = std::make_unique<TLogJudge>(*fLedger, facts.fCollected);
   }
   fSink.BeginRun(outputDirectory, facts);
}

void THealthJudge::BeginPage(const std::string& linkName)
{
   if (fTables)
      fTables->BeginPage(fPages, linkName);
   ++fPages;
   fTableCount = 0;
   fLinkName = linkName;
   fReportTitle.clear();
   fTableTitle.clear();
   fSink.BeginPage(linkName);
}

void THealthJudge::EndPage()
{
   fSink.EndPage();
}

void THealthJudge::EndRun(const TReportIndex& index)
{
   TRunOutcome outcome;
   outcome.fFacts = fFacts;
   outcome.fGaps = fGaps;
   if (fCollection.fGetCorrections)
      outcome.fCorrections = fCollection.fGetCorrections();
   if (fLedger) {
      fLogs->Finish();
      if (outcome.fCorrections)
         TellCorrections(*fLedger, *outcome.fCorrections);
      TellGaps(*fLedger, index, fGaps);
      outcome.fHealth = fLedger->Finish();
   }
   if (fCollection.fOnOutcome)
      fCollection.fOnOutcome(outcome);
   fSink.TakeOutcome(outcome);
   fSink.EndRun(index);
}

void THealthJudge::WriteReportTitle(const std::string& title, const std::string& linkText,
                                    const std::string& linkTarget)
{
   if (fReportTitle.empty())
      fReportTitle = title;
   else
      fTableTitle = title;
   fSink.WriteReportTitle(title, linkText, linkTarget);
}

void THealthJudge::WriteTableTitle(const TTableTitle& title)
{
   if (!title.fIsSubTitle)
      fTableTitle = title.fText;
   fSink.WriteTableTitle(title);
}

void THealthJudge::WriteNote(const std::string& text)
{
   fSink.WriteNote(text);
}

void THealthJudge::BeginTable(const TTableShape& shape)
{
   fRows = 0;
   if (fLedger) {
      fTables->BeginTable(fReportTitle, fTableTitle, shape);
      fLogs->BeginTable(fLinkName, fTableTitle.empty() ? fReportTitle : fTableTitle, shape);
   }
   fSink.BeginTable(shape);
}

void THealthJudge::WriteRows(const TTableRows& rows)
{
   if (rows.GetRowCount() > 0 && fRows == 0)
      ++fTableCount;
   TTableJudge::TMarks marks;
   if (fLedger) {
      marks = fTables->Judge(rows, fTableCount, fRows);
      fLogs->AddRows(rows, {fPages - 1, fTableCount, 0, 0}, fRows);
   }
   if (marks.empty())
      fSink.WriteRows(rows);
   else
      fSink.WriteRows(TMarkedRows(rows, marks, fRows));
   fRows += rows.GetRowCount();
}

void THealthJudge::EndTable()
{
   fSink.EndTable();
}
