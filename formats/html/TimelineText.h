#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "common/EventLog.h"
#include "html/RowFiles.h"

/// In the folder of the row files.
inline constexpr const char* kTimelineTextFile = "timeline.txt";

/// Writes all records of a timeline as text, in its order and with its columns, for readers without
/// scripts and for other programs. logNames: by table of the events.
///
/// Shape:  as TRowText has it.
/// Throws: TOutputError. Gives the size, in bytes.
std::uint64_t WriteTimelineText(TEventLog& events, const TRowFiles& rowFiles,
                                const std::vector<std::string>& logNames);
