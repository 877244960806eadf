#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "common/EventCounts.h"
#include "common/EventTime.h"
#include "common/LogColumns.h"
#include "common/OutputFile.h"
#include "common/Table.h"

/// Where the format that wrote a table of records has it.
struct TEventPlace
{
   /// The number of the table on its page, and the file of the page.
   unsigned fNumber = 0;
   std::size_t fFile = 0;
   /// The row files that hold its rows; both 0 where the format has none.
   unsigned fFirstRowFile = 0;
   unsigned fLastRowFile = 0;
};

/// A table of records.
struct TEventTable
{
   /// Number of the page in the index.
   std::size_t fPage = 0;
   /// The title above the table, or of its page. Missing: empty.
   std::string fTitle;
   TEventPlace fPlace;
   TLogColumns fColumns;
   std::uint64_t fRows = 0;
   /// Of the records that are kept.
   std::uint64_t fEvents = 0;
};

/// A record of one log.
struct TEvent
{
   static constexpr std::int64_t kUndated = INT64_MIN;

   /// Units: seconds from 1970-01-01 00:00:00 of the timeline's clock. Missing: kUndated.
   std::int64_t fSeconds = kUndated;
   std::uint64_t fTexts = 0;
   std::uint32_t fTextsLength = 0;
   /// In the table, from 1.
   std::uint32_t fRow = 0;
   std::uint32_t fTable = 0;
   /// Units: minutes east of UTC.
   short fUtcOffset = 0;
   bool fIsZoneKnown = false;
   ESeverity fSeverity = ESeverity::kNotTold;
};

/// The texts of a record, as its report shows them. Missing: empty.
struct TEventTexts
{
   std::string_view fTime;
   std::string_view fSeverity;
   std::string_view fSource;
   std::string_view fMessage;
   /// Told by the record itself, in a merged log.
   std::string_view fLogName;
};

/// The records of all logs of a run by time, the newest first and those without a date last;
/// records of one time stay in the order of their log, turned.
///
/// Shape:   a record that a merged log lists and a log of its own, too, is there once, as that of
///          its own log.
/// Units:   memory holds some 50 bytes for each record; the texts lie in a temporary file,
///          which is read back whole up to 256 MB: times may lead through it in any order.
/// Throws:  TOutputError.
class TEventLog
{
public:
   /// The folder is one that exists, for the temporary file.
   explicit TEventLog(std::string folder) : fFolder(std::move(folder)) {}

   /// What AddRows takes from then on.
   void BeginTable(std::size_t page, const std::string& title, const TLogColumns& columns);
   void AddRows(const TTableRows& rows);
   void EndTable(const TEventPlace& place);

   /// After the last table. The questions below are for after it.
   void Finish();

   bool IsEmpty() const { return fOrder.empty(); }

   std::size_t GetCount() const { return fOrder.size(); }

   /// place counts from 0, the newest record first.
   const TEvent& Get(std::size_t place) const { return fEvents[fOrder[place]]; }

   /// Owner: valid until the next call.
   TEventTexts ReadTexts(const TEvent& event);

   const std::vector<TEventTable>& GetTables() const { return fTables; }

   /// The offset of the timeline's clock: that of most records. Missing: no record tells its zone.
   std::optional<short> GetUtcOffset() const { return fClock; }

   /// Whether any log tells severities.
   bool HasSeverities() const { return fHasSeverities; }

   std::uint64_t GetUndatedCount() const { return fUndated; }

   /// Of those with a date.
   std::uint64_t GetZonelessCount() const { return fZoneless; }

   /// Of those with a zone that is not the clock's.
   std::uint64_t GetConvertedCount() const { return fConverted; }

   std::uint64_t GetCount(ESeverity severity) const
   {
      return fBySeverity[static_cast<std::size_t>(severity)];
   }

   /// From the oldest record to the newest, in so many spans at most. The oldest hundredth of them
   /// is left out where the rest would fill less than half of the spans.
   TEventCounts CountAll(std::size_t spans) const;
   /// The hours that end with that of the newest record.
   TEventCounts CountLastHours(std::size_t hours) const;

private:
   /// How often each record was seen, by a hash of its time and message.
   class TSeenRecords
   {
   public:
      void Add(std::uint64_t hash) { fAdded.push_back(hash); }

      /// Takes one away. Missing: false where none is left.
      bool Take(std::uint64_t hash);

   private:
      void Sort();
      void FindRuns();

      std::size_t GetRun(std::uint64_t hash) const { return hash >> (64 - fRunBits); }

      std::vector<std::uint64_t> fAdded;
      /// By hash.
      std::vector<std::pair<std::uint64_t, std::uint32_t>> fCounts;
      /// Where the hashes begin that have the same first bits, and the end: a search among all
      /// would wait for memory at each step.
      std::vector<std::uint32_t> fRuns;
      unsigned fRunBits = 1;
   };

   void AddRow(const TTableRows& rows, std::size_t row);
   void Date(TEvent& event, std::string_view timeText) const;
   void DropLateRepeats();
   void DropUndatedRepeats();
   void ChooseClock();
   void Sort();
   void CountUp();
   TEventCounts Count(std::int64_t begin, std::int64_t spanSeconds, std::size_t spans) const;

   const std::string fFolder;
   std::optional<TOutputFile> fSpool;
   std::vector<TEvent> fEvents;
   std::vector<std::uint32_t> fOrder;
   std::vector<TEventTable> fTables;
   TLogColumns fColumns;
   std::uint32_t fRow = 0;

   TSeenRecords fSeen;
   /// Number and hash of the records that only a merged log has so far.
   std::vector<std::pair<std::uint32_t, std::uint64_t>> fMergedOnly;

   std::optional<short> fClock;
   bool fHasSeverities = false;
   std::uint64_t fUndated = 0;
   std::uint64_t fZoneless = 0;
   std::uint64_t fConverted = 0;
   std::array<std::uint64_t, kSeverities> fBySeverity{};

   std::string_view ReadSpool(const TEvent& event);

   /// All of the spool, once the first record was asked for. Missing: empty where it is too large.
   std::string fHeldTexts;
   /// Of one record.
   std::string fReadTexts;
};
