#pragma once

#include <memory>
#include <mutex>
#include <vector>

#include "common/ReportSink.h"
#include "common/TaskThread.h"

/// Hands a run on to a sink that works in a thread of its own, so that the library goes on while
/// rows become bytes.
///
/// Shape:  the sink gets the same calls in the same order, one at a time. The thread begins with
/// the
///         first run of rows that is worth it; a report without one has none. BeginRun and EndRun
///         are always the caller's thread's.
/// Owner:  rows are copied. The sink must not read the store outside BeginRun and EndRun.
/// Throws: what the sink threw, at the next call or the one after, at the latest from EndRun. Calls
///         behind the one that failed don't reach the sink.
class TThreadedSink final : public TReportSink
{
public:
   /// Fewer rows at once are written by the caller's thread.
   static constexpr std::size_t kRowsWorthAThread = 2000;

   explicit TThreadedSink(std::unique_ptr<TReportSink> sink) : fSink(std::move(sink)) {}

   void BeginRun(const std::string& outputDirectory, const TRunFacts& facts) override;
   void BeginPage(const std::string& linkName) override;
   void EndPage() override;
   void TakeOutcome(const TRunOutcome& outcome) override;
   void EndRun(const TReportIndex& index) override;

   bool WantsSameItems() const override { return fSink->WantsSameItems(); }

   void WriteReportTitle(const std::string& title, const std::string& linkText,
                         const std::string& linkTarget) override;
   void WriteTableTitle(const TTableTitle& title) override;
   void WriteNote(const std::string& text) override;
   void BeginTable(const TTableShape& shape) override;
   void WriteRows(const TTableRows& rows) override;
   void EndTable() override;

private:
   template <typename TCall>
   void Pass(TCall call);
   std::unique_ptr<TCollectedRows> TakeSpareRows();
   void GiveBack(std::unique_ptr<TCollectedRows> rows);

   const std::unique_ptr<TReportSink> fSink;
   /// A comparison asks for no zones.
   bool fMayAskForZones = false;
   std::mutex fMutex;
   /// Blocks of rows that were written, to be filled again.
   std::vector<std::unique_ptr<TCollectedRows>> fSpareRows;
   /// Missing: null while nothing was worth it. Last, so that it ends ahead of what it uses.
   std::unique_ptr<TTaskThread> fThread;
};
