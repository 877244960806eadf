#include "common/ThreadedSink.h"

#include <utility>

/// Has the call done by whoever writes now. It owns what it needs.
template <typename TCall>
void TThreadedSink::Pass(TCall call)
{
   if (fThread)
      fThread->Add([this, call = std::move(call)] { call(*fSink); });
   else
      call(*fSink);
}

void TThreadedSink::BeginRun(const std::string& outputDirectory, const TRunFacts& facts)
{
   fThread.reset();
   fMayAskForZones = !facts.IsComparison();
   fSink->BeginRun(outputDirectory, facts);
}

void TThreadedSink::BeginPage(const std::string& linkName)
{
   Pass([linkName](TReportSink& sink) { sink.BeginPage(linkName); });
}

void TThreadedSink::EndPage()
{
   Pass([](TReportSink& sink) { sink.EndPage(); });
}

void TThreadedSink::TakeOutcome(const TRunOutcome& outcome)
{
   if (fThread)
      fThread->Finish();
   fThread.reset();
   fSink->TakeOutcome(outcome);
}

void TThreadedSink::EndRun(const TReportIndex& index)
{
   if (fThread)
      fThread->Finish();
   fThread.reset();
   fSpareRows.clear();
   fSink->EndRun(index);
}

void TThreadedSink::WriteReportTitle(const std::string& title, const std::string& linkText,
                                     const std::string& linkTarget)
{
   Pass([title, linkText, linkTarget](TReportSink& sink) {
      sink.WriteReportTitle(title, linkText, linkTarget);
   });
}

void TThreadedSink::WriteTableTitle(const TTableTitle& title)
{
   Pass([title](TReportSink& sink) { sink.WriteTableTitle(title); });
}

void TThreadedSink::WriteNote(const std::string& text)
{
   Pass([text](TReportSink& sink) { sink.WriteNote(text); });
}

void TThreadedSink::BeginTable(const TTableShape& shape)
{
   // The first question for a zone reads the store, which is the library's thread's alone.
   if (fMayAskForZones && shape.fLog && shape.fLog->fFindOffset)
      shape.fLog->fFindOffset({});
   Pass([shape](TReportSink& sink) { sink.BeginTable(shape); });
}

void TThreadedSink::WriteRows(const TTableRows& rows)
{
   if (!fThread && rows.GetRowCount() >= kRowsWorthAThread)
      fThread = std::make_unique<TTaskThread>();
   if (!fThread)
      return fSink->WriteRows(rows);
   const std::shared_ptr<TCollectedRows> copy(
      TakeSpareRows().release(),
      [this](TCollectedRows* used) { GiveBack(std::unique_ptr<TCollectedRows>(used)); });
   copy->Append(rows);
   fThread->Add([this, copy] { fSink->WriteRows(*copy); });
}

void TThreadedSink::EndTable()
{
   Pass([](TReportSink& sink) { sink.EndTable(); });
}

std::unique_ptr<TCollectedRows> TThreadedSink::TakeSpareRows()
{
   const std::lock_guard lock(fMutex);
   if (fSpareRows.empty())
      return std::make_unique<TCollectedRows>();
   std::unique_ptr<TCollectedRows> rows = std::move(fSpareRows.back());
   fSpareRows.pop_back();
   return rows;
}

void TThreadedSink::GiveBack(std::unique_ptr<TCollectedRows> rows)
{
   rows->Clear();
   const std::lock_guard lock(fMutex);
   fSpareRows.push_back(std::move(rows));
}
