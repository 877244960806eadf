#include "html/HtmlCorrections.h"

#include "html/HtmlOwnPage.h"

namespace {

constexpr const char* kSentence =
   "What was repaired ahead of reporting: the pages show these values, the collection holds the "
   "former ones.";

void WriteCorrection(THtmlSink& out, const TCorrection& correction, std::uint64_t row)
{
   out << "<tr id=\"t1-r"_html << TNumber{row} << "\"><th scope=\"row\" class=\"brk\">"_html
       << TText{correction.fInstance} << "</th><td class=\"brk\">"_html
       << TText{correction.fProperty} << "</td>"_html;
   switch (correction.fKind) {
      case TCorrection::kChanged:
         out << "<td>"_html << TText{correction.fFrom} << "</td><td>"_html << TText{correction.fTo}
             << "</td>"_html;
         break;
      case TCorrection::kAdded:
         out << "<td></td><td>instance added</td>"_html;
         break;
      case TCorrection::kRemoved:
         out << "<td></td><td>instance removed</td>"_html;
         break;
   }
   out << "<td>"_html << TText{correction.GetReason()} << "</td></tr>\n"_html;
}

}  // namespace

void WriteCorrections(THtmlSink& out, const THtmlSite& site,
                      const std::vector<TCorrection>& corrections)
{
   WriteOwnPageBegin(out, site, kCorrectionsTitle, kCorrectionsFile, kSentence);
   if (corrections.empty())
      out << "<p class=\"none\">No value was repaired.</p>\n"_html;
   else {
      out << "<section class=\"block\" id=\"t1\">\n"_html;
      WriteFixedTableBegin(
         out, kCorrectionsTitle,
         {{"Instance", 28}, {"Property", 14}, {"From", 18}, {"To", 18}, {"Why", 22}});
      std::uint64_t row = 0;
      for (const TCorrection& correction : corrections)
         WriteCorrection(out, correction, ++row);
      WriteFixedTableEnd(out);
      out << "</section>\n"_html;
   }
   WriteOwnPageEnd(out, site, kCorrectionsTitle);
}
