#include "html/HtmlParts.h"

namespace {

void WriteStep(THtmlSink& out, const THtmlParts& parts, std::size_t file, TMarkup text, bool exists)
{
   if (exists)
      out << "<li><a href=\""_html << TFileUrl{parts.fGetFile(file)} << "\">"_html << text
          << "</a></li>\n"_html;
   else
      out << "<li class=\"here\">"_html << text << "</li>\n"_html;
}

void WriteSteps(THtmlSink& out, const THtmlParts& parts)
{
   const std::size_t current = parts.fCurrent;
   const std::size_t last = parts.fCount - 1;
   out << "<ul class=\"steps\">\n"_html;
   WriteStep(out, parts, 0, "First"_html, current > 0);
   WriteStep(out, parts, current - 1, "Previous"_html, current > 0);
   WriteStep(out, parts, current + 1, "Next"_html, current < last);
   WriteStep(out, parts, last, "Last"_html, current < last);
   out << "</ul>\n"_html;
}

}  // namespace

void WritePartList(THtmlSink& out, const THtmlParts& parts)
{
   if (parts.fCount < 2)
      return;
   out << "<nav class=\"parts\" aria-label=\""_html << parts.fLabel << "\">\n<p>Part "_html
       << TCount{parts.fCurrent + 1} << " of "_html << TCount{parts.fCount} << "</p>\n"_html;
   WriteSteps(out, parts);
   out << "<details><summary>All parts</summary>\n<ol>\n"_html;
   for (std::size_t i = 0; i < parts.fCount; ++i) {
      out << "<li><a href=\""_html << TFileUrl{parts.fGetFile(i)} << "\""_html
          << (i == parts.fCurrent ? " aria-current=\"page\">"_html : ">"_html);
      parts.fWriteName(i);
      out << "</a></li>\n"_html;
   }
   out << "</ol>\n</details>\n</nav>\n"_html;
}

void WritePartSteps(THtmlSink& out, const THtmlParts& parts)
{
   if (parts.fCount < 2)
      return;
   out << "<nav class=\"parts\" aria-label=\"Next and previous part\">\n"_html;
   WriteSteps(out, parts);
   out << "</nav>\n"_html;
}
