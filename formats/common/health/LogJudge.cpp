#include "common/health/LogJudge.h"

#include <algorithm>

#include <fmt/format.h>

#include "common/EventSeverity.h"
#include "common/EventTime.h"
#include "common/health/Quantities.h"
#include "common/health/Sentence.h"

namespace {

constexpr const char* kCollectorsOwnLog = "qsx_log";
constexpr std::int64_t kSecondsPerHour = 3600;
constexpr std::int64_t kHoursThatCount = 24;
constexpr std::size_t kLongestMessage = 120;

std::string_view GetText(const TTableRows& rows, std::size_t row, std::size_t column)
{
   return column < rows.GetCellCount(row) ? rows.GetCell(row, column).fText : std::string_view();
}

bool HasPart(std::string_view text, std::string_view part)
{
   return text.find(part) != std::string_view::npos;
}

bool IsTrouble(std::string_view message)
{
   for (const TKernelMessage& known : GetKernelMessages())
      if (HasPart(message, known.fPart))
         return known.fExcept.empty() || !HasPart(message, known.fExcept);
   return false;
}

bool IsKernel(std::string_view source)
{
   return IsSameWord(source, "kernel") || IsSameWord(source, "vmkernel");
}

}  // namespace

TLogJudge::TLogJudge(THealthLedger& ledger, const std::string& collected) : fLedger(ledger)
{
   if (const std::optional<TEventTime> time = ReadEventTime(collected))
      fCollected = time->fSeconds;
}

void TLogJudge::BeginTable(const std::string& linkName, const std::string& title,
                           const TTableShape& shape)
{
   fColumns.reset();
   const bool counts = shape.fLog && !shape.fLog->fIsMerged && linkName != kCollectorsOwnLog;
   if (!counts)
      return;
   fColumns = shape.fLog;
   fLogs.emplace_back().fTitle = title;
}

void TLogJudge::AddRows(const TTableRows& rows, const TPagePlace& place, std::uint64_t firstRow)
{
   if (!fColumns)
      return;
   if (fRecords == 0)
      fFirstPlace = place;
   fLogs.back().fPlace = place;
   fRecords += rows.GetRowCount();
   for (std::size_t row = 0; row < rows.GetRowCount(); ++row) {
      const bool isError = IsError(rows, row);
      if (!isError && fCollected)
         continue;
      const std::optional<TEventTime> time = ReadEventTime(GetText(rows, row, fColumns->fTime));
      if (time)
         fNewestRecord = std::max(fNewestRecord, time->fSeconds);
      if (isError && time)
         AddError(rows, row, firstRow + row + 1, time->fSeconds);
   }
}

bool TLogJudge::IsError(const TTableRows& rows, std::size_t row)
{
   if (fColumns->fSeverity != TLogColumns::kNone) {
      const ESeverity severity = FindSeverity(GetText(rows, row, fColumns->fSeverity));
      fJudged += severity != ESeverity::kNotTold;
      return severity == ESeverity::kError;
   }
   const ESeverity told = GetSeverity(rows, row, fColumns->fTime);
   const bool isKernel = IsKernel(GetText(rows, row, fColumns->fSource));
   fJudged += isKernel || told != ESeverity::kNotTold;
   if (told == ESeverity::kError || !isKernel)
      return told == ESeverity::kError;
   return IsTrouble(GetText(rows, row, fColumns->fMessage));
}

void TLogJudge::AddError(const TTableRows& rows, std::size_t row, std::uint64_t number,
                         std::optional<std::int64_t> seconds)
{
   TLog& log = fLogs.back();
   ++log.fErrorsByHour[*seconds / kSecondsPerHour];
   if (log.fNewest.fRow > 0 && *seconds < log.fNewest.fSeconds)
      return;
   log.fNewest.fSeconds = *seconds;
   log.fNewest.fRow = number;
   log.fNewest.fTime = GetText(rows, row, fColumns->fTime);
   log.fNewest.fMessage = Shorten(GetText(rows, row, fColumns->fMessage), kLongestMessage);
}

void TLogJudge::Finish()
{
   fColumns.reset();
   if (fRecords == 0)
      return;
   const std::int64_t end = fCollected.value_or(fNewestRecord);
   for (const TLog& log : fLogs)
      TellLog(log, end);
   TFinding finding;
   finding.fPlace = fFirstPlace;
   finding.fSource = fLogs.front().fTitle;
   if (fJudged > 0) {
      finding.fState = EState::kOk;
      finding.fText = fmt::format("No error in the {} hours before the collection; {} looked at.",
                                  kHoursThatCount, MakeCountText(fJudged, "record"));
   } else {
      finding.fState = EState::kUnknown;
      finding.fText = MakeCountText(fRecords, "record") + ", none of which tells how grave it is.";
   }
   fLedger.SetRest(ESubsystem::kLogs, std::move(finding));
}

void TLogJudge::TellLog(const TLog& log, std::int64_t end)
{
   std::uint64_t count = 0;
   const std::int64_t begin = end / kSecondsPerHour - kHoursThatCount;
   for (auto hour = log.fErrorsByHour.lower_bound(begin); hour != log.fErrorsByHour.end(); ++hour)
      count += hour->second;
   if (count == 0)
      return;
   TFinding finding;
   finding.fState = EState::kAttention;
   finding.fText =
      fmt::format("{} in the {} hours before the collection, the last one: {}",
                  MakeCountText(count, "error"), kHoursThatCount, log.fNewest.fMessage);
   finding.fSource =
      fmt::format("{}, row {}: {}", log.fTitle,
                  MakeNumberText(static_cast<double>(log.fNewest.fRow)), log.fNewest.fTime);
   finding.fPlace = log.fPlace;
   finding.fPlace.fRow = log.fNewest.fRow;
   fLedger.AddFinding(ESubsystem::kLogs, std::move(finding));
}
