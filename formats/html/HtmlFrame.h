#pragma once

#include <string>
#include <vector>

#include "common/EventLog.h"
#include "common/Gaps.h"
#include "common/ReportIndex.h"
#include "common/RunFacts.h"
#include "common/health/Health.h"
#include "html/HtmlOptions.h"
#include "html/HtmlPage.h"
#include "html/HtmlSink.h"

/// A page of the run as a whole, beside the reports: the timeline and the like.
struct THtmlOwnPage
{
   std::string fFile;
   std::string fTitle;
   std::uint64_t fRows = 0;
};

/// All that the frame of a page shows of the run. Owner: everything is the caller's.
struct THtmlSite
{
   const TRunFacts& fFacts;
   const THtmlOptions& fOptions;
   const TReportIndex& fIndex;
   const std::vector<THtmlPage>& fPages;
   /// Empty unless it is a comparison.
   const THtmlSystems& fSystems;
   /// Missing: null in a comparison.
   const THealth* fHealth = nullptr;
   /// Missing: null where nobody asked.
   const std::vector<TGap>* fGaps = nullptr;
   /// Missing: null without a timeline.
   const TEventLog* fEvents = nullptr;
   /// In the order of the side bar, the front page not among them.
   std::vector<THtmlOwnPage> fOwnPages = {};

   /// Whether readers are led to the page of an entry: it shows something.
   bool IsLinked(const TReportIndex::TEntry& entry) const;

   /// Number of rows of an entry's page.
   std::uint64_t GetRows(const TReportIndex::TEntry& entry) const;
};

constexpr const char* kFrontPageFile = "index.html";
constexpr const char* kCorrectionsFile = "corrections.html";

/// From the first byte to <main>: policy, title, side bar. file is the one that the side bar marks
/// as the current one: of a page in several files, the first.
void WriteFrameBegin(THtmlSink& out, const THtmlSite& site, const std::string& title,
                     const std::string& file);

/// From </main> to the last byte, with a line on where the page comes from.
void WriteFrameEnd(THtmlSink& out, const THtmlSite& site, const std::string& title);

/// Writes the address of a place on the pages: "hw_info.html#t4-r3-c4".
void WritePlaceUrl(THtmlSink& out, const THtmlSite& site, const TPagePlace& place);
void WritePlaceUrl(THtmlSink& out, const THtmlSite& site, const TFinding& finding);

/// The name of an entry as readers see it: one without a name has its link name.
std::string GetShownName(const TReportIndex::TEntry& entry);

/// Writes the number of rows of an entry, or a word where there are none. In a comparison: how
/// many instances differ, are missing or are unique.
void WriteRowCount(THtmlSink& out, const THtmlSite& site, const TReportIndex::TEntry& entry);
