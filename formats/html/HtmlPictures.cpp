#include "html/HtmlPictures.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "common/health/Quantities.h"
#include "html/HtmlDriveAttributes.h"
#include "html/HtmlEventLanes.h"
#include "html/HtmlState.h"
#include "html/HtmlTimeline.h"

namespace {

constexpr std::size_t kShownVolumes = 12;
constexpr std::size_t kShownSensors = 12;
constexpr std::size_t kShownDrives = 4;
constexpr std::size_t kShownAttributes = 3;
constexpr std::size_t kShownHours = 48;

/// A place on a scale, as an attribute's value: "49.0%".
struct TPercent
{
   double fPercent;
};

THtmlSink& operator<<(THtmlSink& out, TPercent percent)
{
   char text[16];
   std::snprintf(text, sizeof text, "%.1f%%", std::clamp(percent.fPercent, 0.0, 100.0));
   return out << TText{text};
}

TMarkup GetFill(EState state, TMarkup plain)
{
   return ChooseByState(state, "f-failed"_html, "f-attention"_html, plain);
}

/// title and caption are fixed texts; the link leads to the table of the place.
void BeginFigure(THtmlSink& out, const THtmlSite& site, TMarkup title, const TPagePlace& place,
                 TMarkup link)
{
   out << "<figure class=\"figure\">\n<figcaption><h2>"_html << title << "</h2><a href=\""_html;
   TPagePlace table = place;
   table.fRow = table.fColumn = 0;
   WritePlaceUrl(out, site, table);
   out << "\">"_html << link
       << "</a></figcaption>\n<table class=\"plot\">\n<caption class=\"vh\">"_html << title
       << "</caption>\n<tbody>\n"_html;
}

void WriteUse(THtmlSink& out, const TUse& use)
{
   const std::string percent = MakeNumberText(std::floor(use.fPercent));
   out << "<tr><th scope=\"row\">"_html << TText{use.fName}
       << "</th><td><svg class=\"bar\" role=\"img\" aria-label=\""_html << TText{percent}
       << " % used\"><rect class=\"f-track\" width=\"100%\" height=\"12\"/><rect class=\""_html
       << GetFill(use.fState, "f-base"_html) << "\" width=\""_html << TPercent{use.fPercent}
       << "\" height=\"12\"/><line class=\"l-mark\" x1=\""_html << TPercent{use.fLimit}
       << "\" x2=\""_html << TPercent{use.fLimit}
       << "\" y1=\"-2\" y2=\"14\"></line></svg></td><td class=\"num\">"_html;
   WriteStateGlyph(out, use.fState);
   out << TText{percent} << "\u00A0%"_html;
   if (!use.fTotal.empty())
      out << " <small>of "_html << TText{use.fTotal} << "</small>"_html;
   out << "</td></tr>\n"_html;
}

/// All of them as they are, or so many of the fullest.
std::vector<TUse> FindFullest(std::vector<TUse> volumes)
{
   if (volumes.size() <= kShownVolumes)
      return volumes;
   std::stable_sort(volumes.begin(), volumes.end(),
                    [](const TUse& a, const TUse& b) { return a.fPercent > b.fPercent; });
   volumes.resize(kShownVolumes);
   return volumes;
}

void WriteUseFigure(THtmlSink& out, const THtmlSite& site, const THealthPictures& pictures)
{
   if (pictures.fMemory.empty() && pictures.fVolumes.empty())
      return;
   const bool hasVolumes = !pictures.fVolumes.empty();
   const TUse& first = hasVolumes ? pictures.fVolumes.front() : pictures.fMemory.front();
   BeginFigure(out, site, hasVolumes ? "Memory and volumes"_html : "Memory"_html, first.fPlace,
               hasVolumes ? "Volumes"_html : "Memory"_html);
   for (const TUse& use : pictures.fMemory)
      WriteUse(out, use);
   for (const TUse& use : FindFullest(pictures.fVolumes))
      WriteUse(out, use);
   out << "</tbody>\n</table>\n<p class=\"legend\">The mark stands where attention begins."_html;
   if (pictures.fVolumes.size() > kShownVolumes)
      out << " The fullest of "_html << TCount{pictures.fVolumes.size()} << " volumes."_html;
   out << "</p>\n</figure>\n"_html;
}

/// The ends of a sensor's scale, and places on it.
class TSensorScale
{
public:
   explicit TSensorScale(const TSensorReading& sensor)
   {
      const TSensorLimits& limits = sensor.fLimits;
      fLow = fHigh = sensor.fReading;
      for (const std::optional<double>& limit : {limits.fLowerCritical, limits.fLowerWarning,
                                                 limits.fUpperWarning, limits.fUpperCritical})
         if (limit) {
            fLow = std::min(fLow, *limit);
            fHigh = std::max(fHigh, *limit);
         }
      const bool isPositive = fLow >= 0;
      const bool hasLower = limits.fLowerCritical || limits.fLowerWarning;
      const double margin = kMargin * std::max(fHigh - fLow, std::fabs(fHigh) * kMargin);
      fHigh += margin;
      fLow = isPositive && !hasLower ? 0 : fLow - margin;
      if (isPositive)
         fLow = std::max(fLow, 0.0);
      if (fHigh <= fLow)
         fHigh = fLow + 1;
   }

   TPercent Place(double value) const { return {100 * (value - fLow) / (fHigh - fLow)}; }

private:
   static constexpr double kMargin = 0.15;

   double fLow = 0;
   double fHigh = 0;
};

void WriteLimit(THtmlSink& out, const TSensorScale& scale, const std::optional<double>& limit,
                TMarkup look)
{
   if (limit)
      out << "<line class=\""_html << look << "\" x1=\""_html << scale.Place(*limit)
          << "\" x2=\""_html << scale.Place(*limit) << "\" y1=\"0\" y2=\"12\"></line>"_html;
}

/// "41 °C, normal from 5 to 38".
std::string DescribeSensor(const TSensorReading& sensor)
{
   const TSensorLimits& limits = sensor.fLimits;
   const std::optional<double> lower =
      limits.fLowerWarning ? limits.fLowerWarning : limits.fLowerCritical;
   const std::optional<double> upper =
      limits.fUpperWarning ? limits.fUpperWarning : limits.fUpperCritical;
   std::string text = sensor.fText + ", normal";
   if (lower)
      text += " from " + MakeNumberText(*lower);
   if (upper)
      text += " to " + MakeNumberText(*upper);
   return text;
}

void WriteSensor(THtmlSink& out, const TSensorReading& sensor)
{
   const TSensorLimits& limits = sensor.fLimits;
   const TSensorScale scale(sensor);
   const std::optional<double> lower =
      limits.fLowerWarning ? limits.fLowerWarning : limits.fLowerCritical;
   const std::optional<double> upper =
      limits.fUpperWarning ? limits.fUpperWarning : limits.fUpperCritical;
   const double begin = lower ? scale.Place(*lower).fPercent : 0;
   const double end = upper ? scale.Place(*upper).fPercent : 100;
   out << "<tr><th scope=\"row\">"_html << TText{sensor.fName}
       << "</th><td><svg class=\"bar\" role=\"img\" aria-label=\""_html
       << TText{DescribeSensor(sensor)}
       << "\"><rect class=\"f-track\" y=\"3\" width=\"100%\" height=\"6\"/><rect class=\"f-soft\" "
          "x=\""_html
       << TPercent{begin} << "\" y=\"3\" width=\""_html << TPercent{end - begin}
       << "\" height=\"6\"/>"_html;
   WriteLimit(out, scale, limits.fLowerWarning, "l-faint"_html);
   WriteLimit(out, scale, limits.fUpperWarning, "l-faint"_html);
   WriteLimit(out, scale, limits.fLowerCritical, "l-mark"_html);
   WriteLimit(out, scale, limits.fUpperCritical, "l-mark"_html);
   out << "<circle class=\"f-halo "_html << GetFill(sensor.fState, "f-ink"_html) << "\" cx=\""_html
       << scale.Place(sensor.fReading)
       << "\" cy=\"6\" r=\"5\"></circle></svg></td><td class=\"num\">"_html;
   WriteStateGlyph(out, sensor.fState);
   out << TText{sensor.fText} << "</td></tr>\n"_html;
}

/// Those beyond a limit first, otherwise as they were collected.
std::vector<const TSensorReading*> FindMostUrgent(const std::vector<TSensorReading>& sensors)
{
   std::vector<const TSensorReading*> urgent;
   for (const TSensorReading& sensor : sensors)
      urgent.push_back(&sensor);
   std::stable_sort(
      urgent.begin(), urgent.end(),
      [](const TSensorReading* a, const TSensorReading* b) { return a->fState > b->fState; });
   urgent.resize(std::min(urgent.size(), kShownSensors));
   return urgent;
}

void WriteSensorFigure(THtmlSink& out, const THtmlSite& site, const THealthPictures& pictures)
{
   if (pictures.fSensors.empty())
      return;
   BeginFigure(out, site, "Sensors and their limits"_html, pictures.fSensors.front().fPlace,
               "All readings"_html);
   const std::vector<const TSensorReading*> shown = FindMostUrgent(pictures.fSensors);
   for (const TSensorReading* sensor : shown)
      WriteSensor(out, *sensor);
   out << "</tbody>\n</table>\n<p class=\"legend\">Band: normal. Thin mark: warning limit. Long "
          "mark: "
          "critical limit."_html;
   if (pictures.fSensors.size() > shown.size())
      out << " Not shown: "_html
          << TText{MakeCountText(pictures.fSensors.size() - shown.size(), "further reading")}
          << "."_html;
   if (pictures.fSensorsWithoutLimits > 0)
      out << " "_html << TText{MakeCountText(pictures.fSensorsWithoutLimits, "reading")}
          << " without limits not shown."_html;
   out << "</p>\n</figure>\n"_html;
}

/// The drives of which an attribute is closest to its threshold.
std::vector<const TDrive*> FindClosestDrives(const std::vector<TDrive>& drives)
{
   std::vector<const TDrive*> closest;
   for (const TDrive& drive : drives)
      if (!drive.fAttributes.Get().empty())
         closest.push_back(&drive);
   std::stable_sort(closest.begin(), closest.end(), [](const TDrive* a, const TDrive* b) {
      return IsCloser(a->fAttributes.Get().front(), b->fAttributes.Get().front());
   });
   closest.resize(std::min(closest.size(), kShownDrives));
   return closest;
}

void WriteDriveFigure(THtmlSink& out, const THtmlSite& site, const THealthPictures& pictures)
{
   const std::vector<const TDrive*> drives = FindClosestDrives(pictures.fDrives);
   if (drives.empty())
      return;
   BeginFigure(out, site, "Drive attributes closest to their thresholds"_html,
               drives.front()->fPlace, "All attributes"_html);
   for (const TDrive* drive : drives) {
      if (!drive->fName.empty())
         out << "<tr><th class=\"plot-sub\" scope=\"rowgroup\" colspan=\"3\">"_html
             << TText{drive->fName} << "</th></tr>\n"_html;
      const std::vector<TDriveAttribute>& attributes = drive->fAttributes.Get();
      for (std::size_t i = 0; i < std::min(attributes.size(), kShownAttributes); ++i)
         WriteAttributeRow(out, attributes[i]);
   }
   out << "</tbody>\n</table>\n<p class=\"legend\">Bar: value. Long mark: threshold. Short mark: "
          "worst. A value at or below its threshold is a failed drive.</p>\n</figure>\n"_html;
}

void WriteEventFigure(THtmlSink& out, const THtmlSite& site)
{
   if (site.fEvents == nullptr)
      return;
   const TEventCounts counts = site.fEvents->CountLastHours(kShownHours);
   if (counts.GetSpans() == 0)
      return;
   out << "<figure class=\"figure\">\n<figcaption><h2>Events per hour, last "_html
       << TNumber{kShownHours} << " hours</h2><a href=\""_html << TFileUrl{kTimelineFile}
       << "\">Timeline</a></figcaption>\n"_html;
   WriteEventLanes(out, counts);
   out << "<p class=\"legend\">Up to the newest record. Each lane has its own scale.</p>\n"
          "</figure>\n"_html;
}

}  // namespace

void WritePictures(THtmlSink& out, const THtmlSite& site, const THealth& health)
{
   const THealthPictures& pictures = health.fPictures;
   // Without a picture it is empty for the style sheet, too: a line end would count.
   out << "<div class=\"figures\">"_html;
   WriteUseFigure(out, site, pictures);
   WriteSensorFigure(out, site, pictures);
   WriteDriveFigure(out, site, pictures);
   WriteEventFigure(out, site);
   out << "</div>\n"_html;
}
