#include "html/HtmlTimeline.h"

#include <algorithm>

#include "html/HtmlEventLanes.h"
#include "html/HtmlState.h"
#include "html/TimelineFiles.h"
#include "html/TimelineText.h"

namespace {

/// Of the overview. A lane is some 600 px wide on most screens.
constexpr std::size_t kMostSpans = 180;
constexpr std::size_t kMostRows = 2000;
// Units: bytes of the rows; with its frame the page stays below 2 MB.
constexpr std::uint64_t kMostBytes = 1'500'000;
/// Without its texts.
constexpr std::uint64_t kBytesOfRow = 300;
constexpr std::size_t kRowsWorthSkipping = 20;
constexpr std::uint64_t kBytesOfKilobyte = 1000;

EState GetState(ESeverity severity)
{
   switch (severity) {
      case ESeverity::kError:
         return EState::kFailed;
      case ESeverity::kWarning:
         return EState::kAttention;
      case ESeverity::kInformation:
      case ESeverity::kNotTold:
         break;
   }
   return EState::kNone;
}

class TTimelinePage
{
public:
   TTimelinePage(THtmlSink& out, const THtmlSite& site,
                 const std::vector<TReportIndex::TPlace>& places, TEventLog& events,
                 const TRowFiles& rowFiles)
      : fOut(out), fSite(site), fEvents(events), fRowFiles(rowFiles)
   {
      for (const TEventTable& table : events.GetTables())
         fLogNames.push_back(MakeLogName(table, places));
   }

   void Write()
   {
      WriteFrameBegin(fOut, fSite, kTimelineTitle, kTimelineFile);
      fOut << "<div class=\"report timeline\">\n"_html;
      WriteHead();
      fOut << "<div class=\"sheet\">\n"_html;
      WriteOverview();
      WriteRecords();
      fOut << "</div>\n</div>\n"_html;
      WriteFrameEnd(fOut, fSite, kTimelineTitle);
   }

private:
   std::string MakeLogName(const TEventTable& table,
                           const std::vector<TReportIndex::TPlace>& places) const
   {
      const THtmlPage& page = fSite.fPages[table.fPage];
      for (const std::string& name : {table.fTitle, page.fTitle})
         if (!IsBlank(name))
            return name;
      const TReportIndex::TEntry* const entry = places[table.fPage].fEntry;
      return entry == nullptr ? page.fFileStem : GetShownName(*entry);
   }

   void WriteHead()
   {
      fOut << "<header class=\"page-head\">\n<p class=\"crumbs\"><a href=\""_html
           << TFileUrl{kFrontPageFile} << "\"><bdi>"_html << TText{fSite.fFacts.GetName()}
           << "</bdi></a></p>\n<div class=\"page-title\"><h1>"_html << TText{kTimelineTitle}
           << "</h1></div>\n<p class=\"page-meta\">"_html;
      WriteTotals();
      WriteClock();
      fOut << "</p>\n<p class=\"page-meta\">"_html;
      WriteLogs();
      fOut << "</p>\n</header>\n"_html;
   }

   void WriteTotals()
   {
      const std::size_t count = fEvents.GetCount();
      fOut << TCount{count} << (count == 1 ? " record, "_html : " records, "_html)
           << "newest first. "_html;
   }

   void WriteClock()
   {
      const auto clock = fEvents.GetUtcOffset();
      if (!clock)
         fOut << "No log tells the zone of its clock: times stand as they were recorded. "_html;
      else
         fOut << "Times are <strong>"_html << TText{MakeUtcOffsetText(*clock)}
              << "</strong>. "_html;
      WriteCounted(fEvents.GetConvertedCount(), " of another zone is converted. "_html,
                   " of other zones are converted. "_html);
      if (clock)
         WriteCounted(fEvents.GetZonelessCount(),
                      " whose zone is unknown stands by its own clock. "_html,
                      " whose zone is unknown stand by their own clocks. "_html);
      WriteCounted(fEvents.GetUndatedCount(), " without a date stands at the end. "_html,
                   " without a date stand at the end. "_html);
   }

   void WriteCounted(std::uint64_t count, TMarkup one, TMarkup many)
   {
      if (count > 0)
         fOut << TCount{count} << (count == 1 ? one : many);
   }

   void WriteLogs()
   {
      TMarkup before = "From "_html;
      const std::vector<TEventTable>& tables = fEvents.GetTables();
      for (std::size_t i = 0; i < tables.size(); ++i) {
         if (tables[i].fEvents == 0)
            continue;
         fOut << before << "<a href=\""_html;
         WriteTableUrl(tables[i]);
         fOut << "\"><bdi>"_html << TText{fLogNames[i]} << "</bdi></a> ("_html
              << TCount{tables[i].fEvents} << ")"_html;
         before = ", "_html;
      }
      fOut << "."_html;
   }

   std::string GetPageFile(const TEventTable& table) const
   {
      return fSite.fPages[table.fPage].GetFileName(table.fPlace.fFile);
   }

   void WriteTableUrl(const TEventTable& table)
   {
      fOut << TFileUrl{GetPageFile(table)} << "#t"_html << TNumber{table.fPlace.fNumber};
   }

   void WriteOverview()
   {
      const TEventCounts counts = fEvents.CountAll(kMostSpans);
      if (counts.GetSpans() == 0)
         return;
      fOut << "<figure class=\"figure overview\" data-begin=\""_html;
      WriteSeconds(counts.fBegin);
      fOut << "\" data-end=\""_html;
      WriteSeconds(counts.GetEnd());
      fOut << "\">\n<figcaption>Records per "_html;
      WriteSpanName(fOut, counts.fSpanSeconds);
      fOut << "</figcaption>\n"_html;
      WriteEventLanes(fOut, counts);
      fOut << "<p class=\"legend\">Each lane has a scale of its own.<span class=\"js-only\"> Drag "
              "over the lanes to see the records of a time.</span>"_html;
      if (counts.fOlder > 0)
         fOut << " "_html << TCount{counts.fOlder}
              << (counts.fOlder == 1 ? " record is older than the picture."_html
                                     : " records are older than the picture."_html);
      fOut << "</p>\n</figure>\n"_html;
   }

   /// Seconds on the timeline's clock; no log is from before 1970.
   void WriteSeconds(std::int64_t seconds)
   {
      fOut << TNumber{static_cast<std::uint64_t>(std::max<std::int64_t>(0, seconds))};
   }

   /// How many of the newest records the page holds.
   std::size_t CountRowsInPage() const
   {
      std::uint64_t bytes = 0;
      std::size_t rows = 0;
      while (rows < fEvents.GetCount() && rows < kMostRows && bytes < kMostBytes)
         bytes += kBytesOfRow + fEvents.Get(rows++).fTextsLength;
      return rows;
   }

   void WriteRecords()
   {
      const std::size_t rows = CountRowsInPage();
      const bool isLong = rows < fEvents.GetCount();
      fOut << "<section class=\"block\" id=\"t1\""_html;
      if (isLong)
         WriteFiles();
      fOut << ">\n"_html;
      WriteRecordsHead(rows);
      fOut << "<div class=\"scroll wide\" role=\"group\" tabindex=\"0\" aria-label=\"Records\">\n"
              "<table class=\"grid cols events\">\n<caption class=\"vh\">Records of all logs by "
              "time</caption>\n"_html;
      WriteColumns();
      fOut << "<tbody>\n"_html;
      for (std::size_t row = 0; row < rows; ++row)
         WriteRecord(row);
      fOut << "</tbody>\n</table>\n</div>\n"_html;
      if (isLong)
         fOut << "<p class=\"table-note\" id=\"t1-end\" tabindex=\"-1\"><span class=\"held\">This "
                 "page holds the newest "_html
              << TCount{rows} << " of "_html << TCount{fEvents.GetCount()}
              << " records.</span> All records as text: <a href=\"rows/"_html
              << TFileUrl{kTimelineTextFile} << "\">"_html << TText{kTimelineTextFile}
              << "</a>, "_html << TCount{(fTextBytes + kBytesOfKilobyte - 1) / kBytesOfKilobyte}
              << " KB.</p>\n"_html;
      else
         fOut << "<span class=\"end\" id=\"t1-end\" tabindex=\"-1\"></span>\n"_html;
      fOut << "</section>\n"_html;
   }

   /// And where they are, for the script.
   void WriteFiles()
   {
      std::vector<std::string> pageFiles;
      for (const TEventTable& table : fEvents.GetTables())
         pageFiles.push_back(GetPageFile(table));
      const unsigned files = WriteTimelineFiles(fEvents, fRowFiles, fLogNames, pageFiles);
      fTextBytes = WriteTimelineText(fEvents, fRowFiles, fLogNames);
      fOut << " data-rows=\""_html << TNumber{fEvents.GetCount()} << "\" data-files=\""_html
           << TNumber{files} << "\""_html;
      const TRowFileRange range = FindRowFiles(fEvents);
      if (range.fFirst > 0)
         fOut << " data-from=\""_html << TNumber{range.fFirst} << "\" data-to=\""_html
              << TNumber{range.fLast} << "\""_html;
   }

   void WriteRecordsHead(std::size_t rows)
   {
      fOut << "<div class=\"block-head\">\n<h2 id=\"t1-h\">Records</h2>\n<p "
              "class=\"count\"><output>"_html;
      if (rows < fEvents.GetCount())
         fOut << TCount{rows} << " of "_html;
      fOut
         << TCount{fEvents.GetCount()} << (fEvents.GetCount() == 1 ? " row"_html : " rows"_html)
         << "</output></p>\n<div class=\"tools\">\n<label class=\"filter js-only\"><span "
            "class=\"vh\">Filter Records</span><input type=\"search\" placeholder=\"Filter rows\" "
            "autocomplete=\"off\"></label>\n<button type=\"button\" class=\"copy js-only\">Copy as "
            "CSV</button>\n</div>\n</div>\n"_html;
      if (rows > kRowsWorthSkipping)
         fOut << "<a class=\"skip-rows\" href=\"#t1-end\">Skip the rows of Records</a>\n"_html;
   }

   void WriteColumns()
   {
      const bool hasSeverities = fEvents.HasSeverities();
      fOut << "<colgroup><col class=\"n\"><col class=\"w-14\">"_html
           << (hasSeverities ? "<col class=\"w-9\">"_html : ""_html)
           << "<col class=\"w-18\"><col class=\"w-11\"><col></colgroup>\n<thead>\n<tr><th "
              "scope=\"col\" class=\"n\">Row</th>"_html;
      WriteColumn("Time"_html, "when"_html);
      if (hasSeverities)
         WriteColumn("Severity"_html, "severity"_html);
      WriteColumn("Log"_html, "log"_html);
      WriteColumn("Source"_html, "source"_html);
      WriteColumn("Message"_html, "brk"_html);
      fOut << "</tr>\n</thead>\n"_html;
   }

   void WriteColumn(TMarkup label, TMarkup look)
   {
      fOut << "<th scope=\"col\" class=\""_html << look
           << "\" aria-sort=\"none\"><button type=\"button\" class=\"sort\">"_html << label
           << "</button></th>"_html;
   }

   void WriteRecord(std::size_t place)
   {
      const TEvent& event = fEvents.Get(place);
      const TEventTexts texts = fEvents.ReadTexts(event);
      const TNumber row{place + 1};
      fOut << "<tr id=\"t1-r"_html << row << "\"><td class=\"n\"><a href=\"#t1-r"_html << row
           << "\">"_html << TCount{row.fNumber} << "</a></td>"_html;
      WriteTime(event, texts);
      if (fEvents.HasSeverities())
         WriteSeverity(event, texts);
      fOut << "<td class=\"log\"><a href=\""_html;
      WriteTableUrl(fEvents.GetTables()[event.fTable]);
      fOut << "-r"_html << TNumber{event.fRow} << "\">"_html
           << TText{texts.fLogName.empty() ? std::string_view(fLogNames[event.fTable])
                                           : texts.fLogName}
           << "</a></td><td class=\"source\">"_html << TText{texts.fSource}
           << "</td><td class=\"brk\">"_html << TText{texts.fMessage} << "</td></tr>\n"_html;
   }

   void WriteTime(const TEvent& event, const TEventTexts& texts)
   {
      if (event.fSeconds == TEvent::kUndated) {
         fOut << "<th scope=\"row\" class=\"when\">"_html << TText{texts.fTime}
              << (IsBlank(texts.fTime) ? "<small>no date</small></th>"_html
                                       : " <small>no date</small></th>"_html);
         return;
      }
      fOut << "<th scope=\"row\" class=\"when\" data-seconds=\""_html;
      WriteSeconds(event.fSeconds);
      fOut << "\">"_html << TText{MakeEventTimeText(event.fSeconds, true)};
      if (!event.fIsZoneKnown && fEvents.GetUtcOffset())
         fOut << " <small>zone unknown</small>"_html;
      fOut << "</th>"_html;
   }

   void WriteSeverity(const TEvent& event, const TEventTexts& texts)
   {
      fOut << "<td class=\"severity\" data-severity=\""_html
           << TNumber{static_cast<std::uint64_t>(event.fSeverity)} << "\">"_html;
      const EState state = GetState(event.fSeverity);
      if (state != EState::kNone) {
         fOut << (state == EState::kFailed ? "<span class=\"told is-failed\">"_html
                                           : "<span class=\"told is-attention\">"_html);
         WriteStateShape(fOut, state);
         fOut << TText{texts.fSeverity} << "</span>"_html;
      } else
         fOut << TText{texts.fSeverity};
      fOut << "</td>"_html;
   }

   THtmlSink& fOut;
   const THtmlSite& fSite;
   TEventLog& fEvents;
   const TRowFiles& fRowFiles;
   /// By table.
   std::vector<std::string> fLogNames;
   /// Of the text file of a timeline that is too long for its page.
   std::uint64_t fTextBytes = 0;
};

}  // namespace

void WriteTimeline(THtmlSink& out, const THtmlSite& site,
                   const std::vector<TReportIndex::TPlace>& places, TEventLog& events,
                   const TRowFiles& rowFiles)
{
   TTimelinePage(out, site, places, events, rowFiles).Write();
}
