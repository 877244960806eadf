#include "common/EventLog.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <numeric>
#include <unordered_map>

namespace {

constexpr std::int64_t kHour = 3600;
constexpr std::int64_t kMinute = 60;
/// One in so many records may be far from all others.
constexpr std::size_t kFewRecords = 100;
/// Texts of a record in the spool: this many lengths, then as many texts.
constexpr std::size_t kTexts = 5;
/// Units: bytes.
constexpr std::uint64_t kMostHeld = 256'000'000;
using TLengths = std::array<std::uint32_t, kTexts>;

std::string_view GetText(const TTableRows& rows, std::size_t row, std::size_t column)
{
   return column < rows.GetCellCount(row) ? rows.GetCell(row, column).fText : std::string_view();
}

std::uint64_t MakeHash(std::string_view time, std::string_view message)
{
   const std::hash<std::string_view> hash;
   constexpr std::uint64_t kFactor = 0x9E3779B97F4A7C15;
   return hash(time) * kFactor + hash(message);
}

std::string_view AsBytes(const TLengths& lengths)
{
   return {reinterpret_cast<const char*>(lengths.data()), sizeof lengths};
}

/// The next lower multiple, of negative numbers too.
std::int64_t RoundDown(std::int64_t number, std::int64_t unit)
{
   const std::int64_t rest = number % unit;
   return number - (rest < 0 ? rest + unit : rest);
}

}  // namespace

std::uint64_t TEventCounts::GetTotal(ESeverity severity) const
{
   const auto& counts = fCounts[static_cast<std::size_t>(severity)];
   return std::accumulate(counts.begin(), counts.end(), std::uint64_t{0});
}

std::uint32_t TEventCounts::GetMost(ESeverity severity) const
{
   const auto& counts = fCounts[static_cast<std::size_t>(severity)];
   return counts.empty() ? 0 : *std::max_element(counts.begin(), counts.end());
}

void TEventLog::BeginTable(std::size_t page, const std::string& title, const TLogColumns& columns)
{
   TEventTable table;
   table.fPage = page;
   table.fTitle = title;
   table.fColumns = columns;
   fTables.push_back(std::move(table));
   fColumns = columns;
   fRow = 0;
   if (!fSpool)
      fSpool.emplace(TOutputFile::MakeTemporary(fFolder));
}

void TEventLog::AddRows(const TTableRows& rows)
{
   for (std::size_t row = 0; row < rows.GetRowCount(); ++row)
      AddRow(rows, row);
}

void TEventLog::EndTable(const TEventPlace& place)
{
   fTables.back().fPlace = place;
   fTables.back().fRows = fRow;
}

void TEventLog::AddRow(const TTableRows& rows, std::size_t row)
{
   ++fRow;
   std::string dateAndTime;
   std::string_view time = GetText(rows, row, fColumns.fTime);
   if (fColumns.fDate != TLogColumns::kNone) {
      dateAndTime = GetText(rows, row, fColumns.fDate);
      dateAndTime.append(" ").append(time);
      time = dateAndTime;
   }
   const std::string_view shown = GetText(rows, row, fColumns.fSeverity);
   const ESeverity told =
      shown.empty() ? GetSeverity(rows, row, fColumns.fTime) : FindSeverity(shown);
   const std::string_view severity = shown.empty() ? GetSeverityWord(told) : shown;
   const std::array<std::string_view, kTexts> texts = {
      time, severity, GetText(rows, row, fColumns.fSource), GetText(rows, row, fColumns.fMessage),
      GetText(rows, row, fColumns.fLogName)};

   const std::uint64_t hash = MakeHash(time, texts[3]);
   if (!fColumns.fIsMerged)
      fSeen.Add(hash);
   else if (fSeen.Take(hash))
      return;
   else
      fMergedOnly.emplace_back(static_cast<std::uint32_t>(fEvents.size()), hash);

   TEvent event;
   event.fTable = static_cast<std::uint32_t>(fTables.size() - 1);
   event.fRow = fRow;
   event.fSeverity = told;
   fHasSeverities |= !severity.empty();
   Date(event, time);
   event.fTexts = fSpool->GetSize();
   TLengths lengths;
   for (std::size_t i = 0; i < kTexts; ++i)
      lengths[i] = static_cast<std::uint32_t>(texts[i].size());
   fSpool->Write(AsBytes(lengths));
   for (const std::string_view text : texts)
      fSpool->Write(text);
   event.fTextsLength = static_cast<std::uint32_t>(fSpool->GetSize() - event.fTexts);
   fEvents.push_back(event);
}

void TEventLog::Date(TEvent& event, std::string_view timeText) const
{
   const std::optional<TEventTime> time = ReadEventTime(timeText);
   if (!time)
      return;
   event.fSeconds = time->fSeconds;
   std::optional<short> offset = time->fUtcOffset;
   if (!offset && fColumns.fFindOffset)
      offset = fColumns.fFindOffset(timeText);
   event.fIsZoneKnown = offset.has_value();
   event.fUtcOffset = offset.value_or(0);
}

bool TEventLog::TSeenRecords::Take(std::uint64_t hash)
{
   if (!fAdded.empty())
      Sort();
   if (fCounts.empty())
      return false;
   const std::size_t run = GetRun(hash);
   const auto begin = fCounts.begin() + fRuns[run];
   const auto end = fCounts.begin() + fRuns[run + 1];
   const auto found = std::lower_bound(begin, end, std::make_pair(hash, 0u));
   if (found == end || found->first != hash || found->second == 0)
      return false;
   --found->second;
   return true;
}

void TEventLog::TSeenRecords::Sort()
{
   for (const std::uint64_t hash : fAdded)
      fCounts.emplace_back(hash, 1);
   fAdded = {};
   std::sort(fCounts.begin(), fCounts.end());
   std::size_t kept = 0;
   for (std::size_t i = 0; i < fCounts.size(); ++i)
      if (kept > 0 && fCounts[kept - 1].first == fCounts[i].first)
         fCounts[kept - 1].second += fCounts[i].second;
      else
         fCounts[kept++] = fCounts[i];
   fCounts.resize(kept);
   FindRuns();
}

void TEventLog::TSeenRecords::FindRuns()
{
   while (std::size_t{1} << fRunBits < fCounts.size())
      ++fRunBits;
   fRuns.assign((std::size_t{1} << fRunBits) + 1, 0);
   for (const auto& [hash, count] : fCounts)
      ++fRuns[GetRun(hash) + 1];
   std::partial_sum(fRuns.begin(), fRuns.end(), fRuns.begin());
}

void TEventLog::Finish()
{
   fOrder.resize(fEvents.size());
   std::iota(fOrder.begin(), fOrder.end(), 0u);
   DropLateRepeats();
   DropUndatedRepeats();
   ChooseClock();
   Sort();
   CountUp();
}

/// Logs that came after the merged one.
void TEventLog::DropLateRepeats()
{
   std::vector<std::uint32_t> dropped;
   for (const auto& [event, hash] : fMergedOnly)
      if (fSeen.Take(hash))
         dropped.push_back(event);
   fOrder.erase(std::remove_if(fOrder.begin(), fOrder.end(),
                               [&dropped](std::uint32_t event) {
                                  return std::binary_search(dropped.begin(), dropped.end(), event);
                               }),
                fOrder.end());
   fSeen = {};
   fMergedOnly = {};
}

/// A merged log may take its times from where a log of its own has none: then the message tells.
void TEventLog::DropUndatedRepeats()
{
   const auto isUndatedOfMerged = [this](std::uint32_t at) {
      return fTables[fEvents[at].fTable].fColumns.fIsMerged &&
             fEvents[at].fSeconds == TEvent::kUndated;
   };
   std::unordered_multimap<std::string, std::uint32_t> eventsOf;
   for (const std::uint32_t at : fOrder)
      if (isUndatedOfMerged(at))
         eventsOf.emplace(ReadTexts(fEvents[at]).fMessage, at);
   if (eventsOf.empty())
      return;
   std::vector<bool> isDropped(fEvents.size(), false);
   for (const std::uint32_t at : fOrder) {
      if (fTables[fEvents[at].fTable].fColumns.fIsMerged)
         continue;
      const auto repeat = eventsOf.find(std::string(ReadTexts(fEvents[at]).fMessage));
      if (repeat == eventsOf.end())
         continue;
      isDropped[repeat->second] = true;
      eventsOf.erase(repeat);
   }
   fOrder.erase(std::remove_if(fOrder.begin(), fOrder.end(),
                               [&isDropped](std::uint32_t at) { return isDropped[at]; }),
                fOrder.end());
}

void TEventLog::ChooseClock()
{
   std::map<short, std::size_t> recordsOf;
   for (const std::uint32_t at : fOrder)
      if (fEvents[at].fIsZoneKnown)
         ++recordsOf[fEvents[at].fUtcOffset];
   const auto most =
      std::max_element(recordsOf.begin(), recordsOf.end(),
                       [](const auto& a, const auto& b) { return a.second < b.second; });
   if (most == recordsOf.end())
      return;
   fClock = most->first;
   for (const std::uint32_t at : fOrder)
      if (fEvents[at].fIsZoneKnown)
         fEvents[at].fSeconds += (*fClock - fEvents[at].fUtcOffset) * kMinute;
}

void TEventLog::Sort()
{
   // The times lie beside the numbers while they are sorted: each comparison would wait for memory.
   std::vector<std::pair<std::int64_t, std::uint32_t>> times;
   times.reserve(fOrder.size());
   for (auto at = fOrder.rbegin(); at != fOrder.rend(); ++at)
      times.emplace_back(fEvents[*at].fSeconds, *at);
   std::stable_sort(times.begin(), times.end(),
                    [](const auto& a, const auto& b) { return a.first > b.first; });
   std::transform(times.begin(), times.end(), fOrder.begin(),
                  [](const auto& time) { return time.second; });
   // Those without a date have the least number of all; among them the logs begin at the top.
   const auto undated = std::find_if(fOrder.begin(), fOrder.end(), [this](std::uint32_t at) {
      return fEvents[at].fSeconds == TEvent::kUndated;
   });
   std::reverse(undated, fOrder.end());
}

void TEventLog::CountUp()
{
   for (const std::uint32_t at : fOrder) {
      const TEvent& event = fEvents[at];
      ++fTables[event.fTable].fEvents;
      ++fBySeverity[static_cast<std::size_t>(event.fSeverity)];
      const bool isDated = event.fSeconds != TEvent::kUndated;
      fUndated += !isDated;
      fZoneless += isDated && !event.fIsZoneKnown;
      fConverted += event.fIsZoneKnown && event.fUtcOffset != fClock;
   }
}

/// Owner: valid until the next call.
std::string_view TEventLog::ReadSpool(const TEvent& event)
{
   const std::uint64_t size = fSpool->GetSize();
   if (fHeldTexts.empty() && size <= kMostHeld) {
      fHeldTexts.resize(static_cast<std::size_t>(size));
      fSpool->ReadBack(0, fHeldTexts.data(), fHeldTexts.size());
   }
   if (!fHeldTexts.empty())
      return std::string_view(fHeldTexts)
         .substr(static_cast<std::size_t>(event.fTexts), event.fTextsLength);
   fReadTexts.resize(event.fTextsLength);
   fSpool->ReadBack(event.fTexts, fReadTexts.data(), fReadTexts.size());
   return fReadTexts;
}

TEventTexts TEventLog::ReadTexts(const TEvent& event)
{
   const std::string_view read = ReadSpool(event);
   TLengths lengths;
   std::memcpy(lengths.data(), read.data(), sizeof lengths);
   std::array<std::string_view, kTexts> texts;
   std::size_t begin = sizeof lengths;
   for (std::size_t i = 0; i < kTexts; ++i) {
      texts[i] = read.substr(begin, lengths[i]);
      begin += lengths[i];
   }
   return {texts[0], texts[1], texts[2], texts[3], texts[4]};
}

TEventCounts TEventLog::CountAll(std::size_t spans) const
{
   // Spans that people count in, so that a mark on the axis is a time that can be said.
   constexpr std::int64_t kUnits[] = {10,
                                      30,
                                      kMinute,
                                      5 * kMinute,
                                      15 * kMinute,
                                      30 * kMinute,
                                      kHour,
                                      3 * kHour,
                                      6 * kHour,
                                      12 * kHour,
                                      24 * kHour,
                                      2 * 24 * kHour,
                                      7 * 24 * kHour,
                                      14 * 24 * kHour,
                                      28 * 24 * kHour};
   if (fOrder.size() == fUndated)
      return {};
   const std::int64_t newest = Get(0).fSeconds;
   const std::size_t dated = fOrder.size() - fUndated;
   std::int64_t oldest = Get(dated - 1).fSeconds;
   const std::int64_t mostlyOldest = Get(dated - 1 - dated / kFewRecords).fSeconds;
   if (newest - mostlyOldest < (newest - oldest) / 2)
      oldest = mostlyOldest;
   const auto count = static_cast<std::int64_t>(spans);
   const auto getSpans = [&](std::int64_t unit) {
      return (RoundDown(newest, unit) - RoundDown(oldest, unit)) / unit + 1;
   };
   std::int64_t unit = kUnits[0];
   for (const std::int64_t next : kUnits)
      if (getSpans(unit) > count)
         unit = next;
   while (getSpans(unit) > count)
      unit *= 2;
   return Count(RoundDown(oldest, unit), unit, static_cast<std::size_t>(getSpans(unit)));
}

TEventCounts TEventLog::CountLastHours(std::size_t hours) const
{
   if (fOrder.size() == fUndated || hours == 0)
      return {};
   const std::int64_t lastHour = RoundDown(Get(0).fSeconds, kHour);
   return Count(lastHour - kHour * (static_cast<std::int64_t>(hours) - 1), kHour, hours);
}

TEventCounts TEventLog::Count(std::int64_t begin, std::int64_t spanSeconds, std::size_t spans) const
{
   TEventCounts counts;
   counts.fBegin = begin;
   counts.fSpanSeconds = spanSeconds;
   for (auto& ofSeverity : counts.fCounts)
      ofSeverity.resize(spans);
   for (std::size_t i = 0; i < fOrder.size() - fUndated; ++i) {
      const TEvent& event = Get(i);
      if (event.fSeconds < begin) {
         counts.fOlder = fOrder.size() - fUndated - i;
         break;
      }
      const auto span = static_cast<std::size_t>((event.fSeconds - begin) / spanSeconds);
      if (span < spans)
         ++counts.fCounts[static_cast<std::size_t>(event.fSeverity)][span];
   }
   return counts;
}
