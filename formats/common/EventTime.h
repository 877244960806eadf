#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// When a record was written, by the clock of whoever wrote it.
struct TEventTime
{
   /// Units: seconds from 1970-01-01 00:00:00 of that clock.
   std::int64_t fSeconds = 0;
   /// Units: minutes east of UTC. Missing: the text does not tell the zone.
   std::optional<short> fUtcOffset;
};

/// Reads the time that a report shows, "2009-01-02 03:04:05", and the forms in which tools write
/// one, with fractions of a second and a zone behind it or without.
///
/// Missing: nothing for what is no point in time (a day without a year, an interval, a date that
///          may be read in two ways, asterisks) and for a clock that nobody has set.
std::optional<TEventTime> ReadEventTime(std::string_view text);

/// "2009-01-02 03:04:05" or, without seconds, "2009-01-02 03:04".
std::string MakeEventTimeText(std::int64_t seconds, bool hasSeconds);

/// "UTC", "UTC+01:00".
std::string MakeUtcOffsetText(short minutes);
