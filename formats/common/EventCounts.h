#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "common/EventSeverity.h"

/// How many records of all logs fall into spans of equal length, by severity.
struct TEventCounts
{
   /// Units: seconds from 1970-01-01 00:00:00 of the timeline's clock, see MakeEventTimeText.
   std::int64_t fBegin = 0;
   std::int64_t fSpanSeconds = 0;
   /// How many records are from before the first span.
   std::uint64_t fOlder = 0;
   /// One number for each span, by ESeverity. Missing: empty where no record has a date.
   std::array<std::vector<std::uint32_t>, kSeverities> fCounts;

   std::size_t GetSpans() const { return fCounts.front().size(); }

   std::int64_t GetEnd() const
   {
      return fBegin + fSpanSeconds * static_cast<std::int64_t>(GetSpans());
   }

   std::uint64_t GetTotal(ESeverity severity) const;
   std::uint32_t GetMost(ESeverity severity) const;
};
