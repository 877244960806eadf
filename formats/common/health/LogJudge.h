#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "common/LogColumns.h"
#include "common/Table.h"
#include "common/health/HealthLedger.h"

/// Looks for trouble in the records of all logs: records that say of themselves that they are
/// errors, and, where a log tells no severity, messages of the kernel that tell of broken hardware
/// or data. What is older than a day at the time of collection is history.
///
/// Shape: the collector's own log and merged logs are passed over.
/// Owner: the ledger is the caller's and outlives it.
class TLogJudge
{
public:
   /// collected: when the machine was read. Missing: the newest record tells.
   TLogJudge(THealthLedger& ledger, const std::string& collected);

   void BeginTable(const std::string& linkName, const std::string& title, const TTableShape& shape);
   /// place: of the table. firstRow is the number of rows ahead of these.
   void AddRows(const TTableRows& rows, const TPagePlace& place, std::uint64_t firstRow);

   /// After the last table: the findings go to the ledger.
   void Finish();

private:
   struct TError
   {
      std::int64_t fSeconds = 0;
      std::uint64_t fRow = 0;
      std::string fTime;
      std::string fMessage;
   };

   struct TLog
   {
      std::string fTitle;
      TPagePlace fPlace;
      /// How many errors, by hour. Units: hours from 1970-01-01 00:00:00 of the log's clock.
      std::map<std::int64_t, std::uint64_t> fErrorsByHour;
      /// The newest of them.
      TError fNewest;
   };

   bool IsError(const TTableRows& rows, std::size_t row);
   void AddError(const TTableRows& rows, std::size_t row, std::uint64_t number,
                 std::optional<std::int64_t> seconds);
   void TellLog(const TLog& log, std::int64_t end);

   THealthLedger& fLedger;
   std::optional<std::int64_t> fCollected;
   std::int64_t fNewestRecord = 0;
   std::uint64_t fRecords = 0;
   std::uint64_t fJudged = 0;
   std::vector<TLog> fLogs;
   TPagePlace fFirstPlace;
   /// Of the table at hand. Missing: nothing where it is no log that counts.
   std::optional<TLogColumns> fColumns;
};
