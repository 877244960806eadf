#pragma once

#include "common/EventLog.h"
#include "html/HtmlFrame.h"
#include "html/RowFiles.h"

constexpr const char* kTimelineFile = "timeline.html";
constexpr const char* kTimelineTitle = "Timeline";

/// Writes the page that merges all logs by time: an overview by severity, then the records, the
/// newest first. events has at least one. Of a timeline that is too long for its page the order
/// stands in files beside the row files.
void WriteTimeline(THtmlSink& out, const THtmlSite& site,
                   const std::vector<TReportIndex::TPlace>& places, TEventLog& events,
                   const TRowFiles& rowFiles);
