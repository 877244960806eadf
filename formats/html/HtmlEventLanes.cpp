#include "html/HtmlEventLanes.h"

#include "common/EventTime.h"
#include "html/HtmlState.h"

namespace {

// Units: those of the lane's view box; the width of the view box is the number of spans.
constexpr std::uint64_t kLaneHeight = 28;
constexpr std::uint64_t kTallestBar = 27;

struct TLane
{
   ESeverity fSeverity;
   EState fState;
   TMarkup fName;
   TMarkup fFill;
};

constexpr TLane kLanes[] = {
   {ESeverity::kError, EState::kFailed, "Errors"_html, "f-failed"_html},
   {ESeverity::kWarning, EState::kAttention, "Warnings"_html, "f-attention"_html},
   {ESeverity::kInformation, EState::kNone, "Information"_html, "f-base"_html},
   {ESeverity::kNotTold, EState::kNone, "No severity"_html, "f-base"_html},
};

/// A tenth of a unit of the view box.
struct TTenths
{
   std::uint64_t fTenths;
};

THtmlSink& operator<<(THtmlSink& out, TTenths number)
{
   return out << TNumber{number.fTenths / 10} << "."_html << TNumber{number.fTenths % 10};
}

/// One path for all bars: of a lane of 200 spans, a tenth of what as many rectangles take.
void WriteBars(THtmlSink& out, const std::vector<std::uint32_t>& counts, std::uint32_t most,
               TMarkup fill)
{
   out << "<path class=\""_html << fill << "\" d=\""_html;
   for (std::size_t span = 0; span < counts.size(); ++span) {
      if (counts[span] == 0)
         continue;
      // A single record among thousands is still seen.
      const std::uint64_t height = counts[span] * (kTallestBar - 2) * 10 / most + 20;
      out << "M"_html << TTenths{span * 10 + 1} << " "_html << TNumber{kLaneHeight} << "v-"_html
          << TTenths{height} << "h.8v"_html << TTenths{height} << "z"_html;
   }
   out << "\"/>"_html;
}

void WriteLane(THtmlSink& out, const TEventCounts& counts, const TLane& lane)
{
   const std::uint64_t total = counts.GetTotal(lane.fSeverity);
   if (total == 0)
      return;
   const std::uint32_t most = counts.GetMost(lane.fSeverity);
   out << "<tr data-severity=\""_html << TNumber{static_cast<std::uint64_t>(lane.fSeverity)}
       << "\"><th scope=\"row\">"_html;
   WriteStateShape(out, lane.fState);
   out << lane.fName << "</th><td><svg class=\"lane\" viewBox=\"0 0 "_html
       << TNumber{counts.GetSpans()} << " "_html << TNumber{kLaneHeight}
       << "\" preserveAspectRatio=\"none\" role=\"img\" aria-label=\""_html << lane.fName
       << ": "_html << TCount{total} << ", at most "_html << TCount{most} << " per "_html;
   WriteSpanName(out, counts.fSpanSeconds);
   out << "\"><rect class=\"f-track\" y=\"27\" width=\""_html << TNumber{counts.GetSpans()}
       << "\" height=\"1\"/>"_html;
   WriteBars(out, counts.fCounts[static_cast<std::size_t>(lane.fSeverity)], most, lane.fFill);
   out << "</svg></td><td class=\"num\">"_html << TCount{total} << " <small>at most "_html
       << TCount{most} << "</small></td></tr>\n"_html;
}

}  // namespace

void WriteSpanName(THtmlSink& out, std::int64_t seconds)
{
   struct TUnit
   {
      std::int64_t fSeconds;
      TMarkup fName;
   };

   constexpr TUnit kUnits[] = {
      {7 * 24 * 3600, "week"_html}, {24 * 3600, "day"_html}, {3600, "hour"_html},
      {60, "minute"_html},          {1, "second"_html},
   };
   for (const TUnit& unit : kUnits) {
      if (seconds % unit.fSeconds != 0)
         continue;
      const std::int64_t count = seconds / unit.fSeconds;
      if (count > 1)
         out << TCount{static_cast<std::uint64_t>(count)} << " "_html;
      out << unit.fName << (count > 1 ? "s"_html : ""_html);
      return;
   }
}

void WriteEventLanes(THtmlSink& out, const TEventCounts& counts)
{
   if (counts.GetSpans() == 0)
      return;
   out << "<table class=\"plot time\">\n<caption class=\"vh\">Records by time and "
          "severity</caption>\n<tbody>\n"_html;
   for (const TLane& lane : kLanes)
      WriteLane(out, counts, lane);
   out << "<tr class=\"axis-row\"><td></td><td><span class=\"axis\"><span>"_html
       << TText{MakeEventTimeText(counts.fBegin, false)} << "</span><span>"_html
       << TText{MakeEventTimeText(counts.GetEnd(), false)}
       << "</span></span></td><td></td></tr>\n</tbody>\n</table>\n"_html;
}
