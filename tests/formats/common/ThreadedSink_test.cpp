#include "common/ThreadedSink.h"

#include <cerrno>

#include <gtest/gtest.h>

#include "common/OutputFile.h"

namespace {

/// What reached the sink, and whether in the thread of the test.
struct TCalls
{
   std::vector<std::string> fTexts;
   std::vector<std::thread::id> fThreadsOfRows;
   /// The run of rows that can't be written, from 1. Missing: 0.
   std::size_t fFailingRun = 0;
};

class TRecordingSink final : public TReportSink
{
public:
   explicit TRecordingSink(TCalls& calls) : fCalls(calls) {}

   void BeginRun(const std::string&, const TRunFacts&) override { Add("begin run"); }

   void BeginPage(const std::string& linkName) override { Add("page " + linkName); }

   void EndPage() override { Add("end page"); }

   void EndRun(const TReportIndex&) override { Add("end run"); }

   void WriteReportTitle(const std::string& title, const std::string&, const std::string&) override
   {
      Add(title);
   }

   void WriteTableTitle(const TTableTitle& title) override { Add(title.fText); }

   void WriteNote(const std::string& text) override { Add(text); }

   void BeginTable(const TTableShape& shape) override { Add("table " + shape.fCaption); }

   void WriteRows(const TTableRows& rows) override
   {
      fCalls.fThreadsOfRows.push_back(std::this_thread::get_id());
      const std::size_t last = rows.GetRowCount() - 1;
      const TCell cell = rows.GetCell(last, 1);
      Add(std::to_string(last) + " " + std::string(cell.fText) + "/" +
          std::string(cell.fSecondText));
      if (fCalls.fThreadsOfRows.size() == fCalls.fFailingRun)
         throw TOutputError(ENOSPC, "rows");
   }

   void EndTable() override { Add("end table"); }

private:
   void Add(std::string text) { fCalls.fTexts.push_back(std::move(text)); }

   TCalls& fCalls;
};

void AddRows(TReportSink& sink, std::size_t count)
{
   TCollectedRows rows;
   for (std::size_t row = 0; row < count; ++row) {
      const std::string text = "row " + std::to_string(row);
      TCell cell;
      cell.fText = text;
      cell.fSecondText = "raw";
      rows.BeginRow();
      rows.AddCell(cell);
      rows.AddCell(cell);
   }
   sink.WriteRows(rows);
}

void WriteRun(TReportSink& sink)
{
   sink.BeginRun("folder", {});
   sink.BeginPage("one");
   sink.WriteReportTitle("title", "", "");
   sink.BeginTable({});
   AddRows(sink, 3);
   for (int run = 0; run < 40; ++run)
      AddRows(sink, TThreadedSink::kRowsWorthAThread);
   AddRows(sink, 5);
   sink.EndTable();
   sink.WriteNote("note");
   sink.EndPage();
   sink.EndRun({});
}

}  // namespace

TEST(TThreadedSink, PassesAllCallsOnInTheirOrder)
{
   TCalls direct;
   TRecordingSink sink(direct);
   WriteRun(sink);
   TCalls threaded;
   TThreadedSink inThread(std::make_unique<TRecordingSink>(threaded));
   WriteRun(inThread);
   EXPECT_EQ(direct.fTexts, threaded.fTexts);
   EXPECT_EQ("4 row 4/raw", threaded.fTexts[threaded.fTexts.size() - 5]);
   EXPECT_EQ(std::this_thread::get_id(), threaded.fThreadsOfRows.front());
   EXPECT_NE(std::this_thread::get_id(), threaded.fThreadsOfRows.back());
}

TEST(TThreadedSink, TellsAFailureAndWritesNothingBehindIt)
{
   for (const std::size_t run : {1u, 2u, 20u, 42u}) {
      TCalls calls;
      calls.fFailingRun = run;
      TThreadedSink sink(std::make_unique<TRecordingSink>(calls));
      EXPECT_THROW(WriteRun(sink), TOutputError);
      EXPECT_EQ(run, calls.fThreadsOfRows.size());
      EXPECT_EQ("raw", calls.fTexts.back().substr(calls.fTexts.back().size() - 3));
   }
}

TEST(TThreadedSink, CanBeGivenUpInTheMiddleOfARun)
{
   TCalls calls;
   {
      TThreadedSink sink(std::make_unique<TRecordingSink>(calls));
      sink.BeginRun("folder", {});
      for (int run = 0; run < 5; ++run)
         AddRows(sink, TThreadedSink::kRowsWorthAThread);
   }
   EXPECT_LE(calls.fThreadsOfRows.size(), 5u);
   EXPECT_NE("end run", calls.fTexts.back());
}
