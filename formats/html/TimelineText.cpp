#include "html/TimelineText.h"

#include "html/RowText.h"

namespace {

/// What the timeline says below a time.
std::string_view GetTimeNote(const TEvent& event, bool hasClock)
{
   if (event.fSeconds == TEvent::kUndated)
      return "no date";
   return !event.fIsZoneKnown && hasClock ? "zone unknown" : "";
}

std::string MakeTimeText(const TEvent& event, const TEventTexts& texts, bool hasClock)
{
   std::string text = event.fSeconds == TEvent::kUndated ? std::string(texts.fTime)
                                                         : MakeEventTimeText(event.fSeconds, true);
   const std::string_view note = GetTimeNote(event, hasClock);
   if (!note.empty())
      text.append(text.empty() ? "" : ", ").append(note);
   return text;
}

std::vector<std::string> MakeLabels(bool hasSeverities)
{
   if (hasSeverities)
      return {"Time", "Severity", "Log", "Source", "Message"};
   return {"Time", "Log", "Source", "Message"};
}

void AddText(TRowText& rows, std::string_view text)
{
   TCell cell;
   cell.fText = text;
   rows.AddCell(cell);
}

}  // namespace

std::uint64_t WriteTimelineText(TEventLog& events, const TRowFiles& rowFiles,
                                const std::vector<std::string>& logNames)
{
   const bool hasClock = events.GetUtcOffset().has_value();
   TRowText rows(MakeLabels(events.HasSeverities()));
   rows.Open(rowFiles.GetPath(kTimelineTextFile));
   for (std::size_t place = 0; place < events.GetCount(); ++place) {
      const TEvent& event = events.Get(place);
      const TEventTexts texts = events.ReadTexts(event);
      AddText(rows, MakeTimeText(event, texts, hasClock));
      if (events.HasSeverities())
         AddText(rows, texts.fSeverity);
      AddText(rows,
              texts.fLogName.empty() ? std::string_view(logNames[event.fTable]) : texts.fLogName);
      AddText(rows, texts.fSource);
      AddText(rows, texts.fMessage);
      rows.EndRow();
   }
   return rows.Close();
}
