#include "html/HtmlDriveAttributes.h"

#include "html/HtmlState.h"

namespace {

/// A place on the scale of an attribute, as an attribute's value: "49.0%".
struct TPlace
{
   unsigned fValue;
   unsigned fScale;
};

THtmlSink& operator<<(THtmlSink& out, TPlace place)
{
   const unsigned perMille = place.fValue * 1000 / place.fScale;
   return out << TNumber{perMille / 10} << "."_html << TNumber{perMille % 10} << "%"_html;
}

void WriteMark(THtmlSink& out, TPlace place, TMarkup look, TMarkup ends)
{
   out << "<line class=\""_html << look << "\" x1=\""_html << place << "\" x2=\""_html << place
       << "\" "_html << ends << "></line>"_html;
}

void WriteSummary(THtmlSink& out, const TClosestAttributes& attributes)
{
   const std::uint64_t failed = attributes.GetFailedCount();
   out << TCount{failed} << " of "_html << TCount{attributes.GetJudgedCount()}
       << (attributes.GetJudgedCount() == 1 ? " attribute with a threshold "_html
                                            : " attributes with a threshold "_html)
       << (failed == 1 ? "is"_html : "are"_html) << " at or below it"_html;
}

}  // namespace

void WriteAttributeRow(THtmlSink& out, const TDriveAttribute& attribute)
{
   out << "<tr><th scope=\"row\">"_html << TText{attribute.fName} << "</th><td>"_html;
   WriteAttributeBar(out, attribute);
   out << "</td><td class=\"num\">"_html;
   WriteStateGlyph(out, attribute.GetState());
   out << TNumber{attribute.fValue} << " <small>worst "_html << TNumber{attribute.fWorst}
       << ", threshold "_html << TNumber{attribute.fThreshold} << "</small></td></tr>\n"_html;
}

void WriteAttributeBar(THtmlSink& out, const TDriveAttribute& attribute)
{
   const unsigned scale = attribute.GetScale();
   out << "<svg class=\"bar\" role=\"img\" aria-label=\"Value "_html << TNumber{attribute.fValue}
       << " of "_html << TNumber{scale} << ", worst "_html << TNumber{attribute.fWorst};
   if (attribute.fThreshold > 0)
      out << ", threshold "_html << TNumber{attribute.fThreshold};
   else
      out << ", no threshold"_html;
   out << "\"><rect class=\"f-track\" width=\"100%\" height=\"12\"/><rect class=\""_html
       << ChooseByState(attribute.GetState(), "f-failed"_html, "f-attention"_html, "f-base"_html)
       << "\" width=\""_html << TPlace{attribute.fValue, scale} << "\" height=\"12\"/>"_html;
   WriteMark(out, {attribute.fWorst, scale}, "l-short"_html, "y1=\"2\" y2=\"10\""_html);
   if (attribute.fThreshold > 0)
      WriteMark(out, {attribute.fThreshold, scale}, "l-mark"_html, "y1=\"-2\" y2=\"14\""_html);
   out << "</svg>"_html;
}

void WriteAttributeFigure(THtmlSink& out, const TClosestAttributes& attributes)
{
   if (attributes.Get().empty())
      return;
   out << "<figure class=\"figure\">\n<figcaption>Closest to their thresholds first "
          "<span class=\"count\">"_html;
   WriteSummary(out, attributes);
   out << "</span></figcaption>\n<table class=\"plot\">\n<caption class=\"vh\">Attributes closest "
          "to their thresholds</caption>\n<tbody>\n"_html;
   for (const TDriveAttribute& attribute : attributes.Get())
      WriteAttributeRow(out, attribute);
   out << "</tbody>\n</table>\n<p class=\"legend\">Bar: the value, the longer the better. Short "
          "mark: the worst value so far. Long mark: the threshold.</p>\n</figure>\n"_html;
}
