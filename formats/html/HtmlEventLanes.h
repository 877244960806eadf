#pragma once

#include "common/EventCounts.h"
#include "html/HtmlSink.h"

/// Writes a table of pictures: a lane of bars for each severity that occurs, the gravest first,
/// each on a scale of its own with its number of records and the most in one span beside it, and
/// the times of begin and end below.
/// Missing: nothing where no record has a date.
void WriteEventLanes(THtmlSink& out, const TEventCounts& counts);

/// Writes "hour", "6 hours", "2 days".
void WriteSpanName(THtmlSink& out, std::int64_t seconds);
