#pragma once

#include "common/EventLog.h"
#include "html/HtmlFrame.h"

constexpr const char* kTimelineFile = "timeline.html";
constexpr const char* kTimelineTitle = "Timeline";

/// Writes the page that merges all logs by time: an overview by severity, then the records, the
/// newest first. events has at least one.
void WriteTimeline(THtmlSink& out, const THtmlSite& site,
                   const std::vector<TReportIndex::TPlace>& places, TEventLog& events);
