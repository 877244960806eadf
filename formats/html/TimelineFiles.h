#pragma once

#include <string>
#include <vector>

#include "common/EventLog.h"
#include "html/RowFiles.h"

/// The row files that the timeline needs. Missing: both 0 where they are far apart, so that between
/// them lie more that it doesn't need.
struct TRowFileRange
{
   unsigned fFirst = 0;
   unsigned fLast = 0;
};

TRowFileRange FindRowFiles(const TEventLog& events);

/// Writes the order of the timeline as scripts beside the row files, for a timeline that is too
/// long for its page: the texts of its records stand in the row files already.
///
/// Shape: rows/timeline1.js and so on. qsxEventTables(whether logs tell severities, tables), a
///        table being [page, table, file of the page, name, first row file, last row file,
///        [columns of time, date, severity, source, message, log]], a column -1 where there is
///        none; then qsxEvents([table, row, seconds since the record below, flags, ...]) by place.
///        Flags: severity, 4 for a zone that is unknown, 8 for no date. The seconds of the last
///        dated record stand in qsxEventTables.
///        Of a merged log that only few records have to come from, their texts stand here:
///        qsxEventText(place, text) with the cells time, severity, source, message and log.
/// Throws: TOutputError. Gives the number of files.
unsigned WriteTimelineFiles(TEventLog& events, const TRowFiles& rowFiles,
                            const std::vector<std::string>& logNames,
                            const std::vector<std::string>& pageFiles);
