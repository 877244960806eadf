#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Which columns of a table of log records hold what.
struct TLogColumns
{
   static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

   /// The offset from UTC of the record with such a time, in minutes. Missing: not known.
   using TFindOffset = std::function<std::optional<short>(std::string_view timeText)>;

   /// Missing: kNone.
   std::size_t fTime = kNone;
   /// Where date and time of day stand in a column each.
   std::size_t fDate = kNone;
   std::size_t fSeverity = kNone;
   std::size_t fSource = kNone;
   std::size_t fMessage = kNone;
   std::size_t fLogName = kNone;
   /// The table also lists the records of other logs.
   bool fIsMerged = false;
   /// Missing: empty where no record's zone is known.
   TFindOffset fFindOffset;
};

/// What is known of the table of a log.
struct TLogTable
{
   const char* fClass;
   /// Above the grid of a report; empty where the class of the table is known otherwise.
   const char* fTitle;
   const char* fTime;
   /// Also one that no column shows; it then is taken from the instances.
   const char* fSeverity;
   const char* fSource;
   const char* fMessage;
   const char* fLogName = "";
   const char* fDate = "";

   /// The columns whose properties are these, in order. Missing: nothing without a time and a
   /// message.
   std::optional<TLogColumns> FindColumns(const std::vector<std::string>& properties) const;

   /// The properties of all columns that count.
   std::vector<std::string> GetProperties() const;
};

/// Missing: a null pointer for any class or title that is no log's.
const TLogTable* FindLogOfClass(std::string_view className);
const TLogTable* FindLogOfTitle(std::string_view tableTitle);
