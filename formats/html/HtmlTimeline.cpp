#include "html/HtmlTimeline.h"

#include <algorithm>

#include "html/HtmlEventLanes.h"
#include "html/HtmlState.h"

namespace {

/// Of the overview. A lane is some 600 px wide on most screens.
constexpr std::size_t kMostSpans = 150;
constexpr std::size_t kMostRows = 2000;
// Units: bytes of the rows; with its frame the page stays below 2 MB.
constexpr std::uint64_t kMostBytes = 1'500'000;
constexpr std::size_t kRowsWorthSkipping = 20;

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
                 const std::vector<TReportIndex::TPlace>& places, TEventLog& events)
      : fOut(out), fSite(site), fEvents(events)
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

   void WriteTableUrl(const TEventTable& table)
   {
      fOut << TFileUrl{fSite.fPages[table.fPage].GetFileName(table.fFile)} << "#t"_html
           << TNumber{table.fNumber};
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
      fOut << " <span class=\"count\">Each lane has a scale of its own</span></figcaption>\n"_html;
      WriteEventLanes(fOut, counts);
      if (counts.fOlder > 0)
         fOut << "<p class=\"legend\">"_html << TCount{counts.fOlder}
              << (counts.fOlder == 1 ? " record is older than the picture.</p>\n"_html
                                     : " records are older than the picture.</p>\n"_html);
      fOut << "</figure>\n"_html;
   }

   /// Seconds on the timeline's clock; no log is from before 1970.
   void WriteSeconds(std::int64_t seconds)
   {
      fOut << TNumber{static_cast<std::uint64_t>(std::max<std::int64_t>(0, seconds))};
   }

   void WriteRecords()
   {
      const std::size_t rows = std::min(kMostRows, fEvents.GetCount());
      fOut << "<section class=\"block\" id=\"t1\">\n<div class=\"block-head\">\n<h2 "
              "id=\"t1-h\">Records</h2>\n<p class=\"count\">"_html
           << TCount{fEvents.GetCount()} << (fEvents.GetCount() == 1 ? " row"_html : " rows"_html)
           << "</p>\n</div>\n"_html;
      if (rows > kRowsWorthSkipping)
         fOut << "<a class=\"skip-rows\" href=\"#t1-end\">Skip the rows of Records</a>\n"_html;
      fOut << "<div class=\"scroll wide\" role=\"group\" tabindex=\"0\" aria-label=\"Records\">\n"
              "<table class=\"grid cols events\">\n<caption class=\"vh\">Records of all logs by "
              "time</caption>\n<colgroup><col class=\"n\"><col class=\"w-14\">"_html;
      if (fEvents.HasSeverities())
         fOut << "<col class=\"w-9\">"_html;
      fOut << "<col class=\"w-14\"><col class=\"w-11\"><col></colgroup>\n<thead>\n<tr><th "
              "scope=\"col\" class=\"n\">Row</th><th "
              "scope=\"col\" class=\"when\">Time</th>"_html;
      if (fEvents.HasSeverities())
         fOut << "<th scope=\"col\">Severity</th>"_html;
      fOut << "<th scope=\"col\">Log</th><th scope=\"col\">Source</th><th scope=\"col\" "
              "class=\"brk\">Message</th></tr>\n</thead>\n<tbody>\n"_html;
      const std::uint64_t begin = fOut.GetFile().GetSize();
      std::size_t written = 0;
      for (; written < rows && fOut.GetFile().GetSize() - begin < kMostBytes; ++written)
         WriteRecord(written);
      fOut << "</tbody>\n</table>\n</div>\n<span class=\"end\" id=\"t1-end\" "
              "tabindex=\"-1\"></span>\n"_html;
      if (written < fEvents.GetCount())
         fOut << "<p class=\"legend\">The newest "_html << TCount{written} << " of "_html
              << TCount{fEvents.GetCount()}
              << " records; the reports of the logs above have all of them.</p>\n"_html;
      fOut << "</section>\n"_html;
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
      fOut << "<td><a href=\""_html;
      WriteTableUrl(fEvents.GetTables()[event.fTable]);
      fOut << "-r"_html << TNumber{event.fRow} << "\">"_html
           << TText{texts.fLogName.empty() ? std::string_view(fLogNames[event.fTable])
                                           : texts.fLogName}
           << "</a></td><td>"_html << TText{texts.fSource} << "</td><td class=\"brk\">"_html
           << TText{texts.fMessage} << "</td></tr>\n"_html;
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
      fOut << "<td>"_html;
      const EState state = GetState(event.fSeverity);
      if (state != EState::kNone) {
         fOut << (state == EState::kFailed ? "<span class=\"state is-failed\">"_html
                                           : "<span class=\"state is-attention\">"_html);
         WriteStateShape(fOut, state);
         fOut << TText{texts.fSeverity} << "</span>"_html;
      } else
         fOut << TText{texts.fSeverity};
      fOut << "</td>"_html;
   }

   THtmlSink& fOut;
   const THtmlSite& fSite;
   TEventLog& fEvents;
   /// By table.
   std::vector<std::string> fLogNames;
};

}  // namespace

void WriteTimeline(THtmlSink& out, const THtmlSite& site,
                   const std::vector<TReportIndex::TPlace>& places, TEventLog& events)
{
   TTimelinePage(out, site, places, events).Write();
}
