#include "html/HtmlOwnPage.h"

void WriteOwnPageBegin(THtmlSink& out, const THtmlSite& site, const std::string& title,
                       const std::string& file, const std::string& sentence)
{
   WriteFrameBegin(out, site, title, file);
   out << "<header class=\"page-head\">\n<p class=\"crumbs\"><a href=\""_html
       << TFileUrl{kFrontPageFile} << "\"><bdi>"_html << TText{site.fFacts.GetName()}
       << "</bdi></a></p>\n<div class=\"page-title\"><h1>"_html << TText{title}
       << "</h1></div>\n<p class=\"page-meta\">"_html << TText{sentence}
       << "</p>\n</header>\n<div class=\"sheet\">\n"_html;
}

void WriteOwnPageEnd(THtmlSink& out, const THtmlSite& site, const std::string& title)
{
   out << "</div>\n"_html;
   WriteFrameEnd(out, site, title);
}

void WriteFixedTableBegin(THtmlSink& out, const std::string& name,
                          const std::vector<TFixedColumn>& columns)
{
   out << "<div class=\"scroll\" role=\"group\" tabindex=\"0\" aria-label=\""_html << TText{name}
       << "\">\n<table class=\"grid cols\">\n<caption class=\"vh\">"_html << TText{name}
       << "</caption>\n<colgroup>"_html;
   for (const TFixedColumn& column : columns)
      out << "<col class=\"w-"_html << TNumber{column.fWidth} << "\">"_html;
   out << "</colgroup>\n<thead>\n<tr>"_html;
   for (const TFixedColumn& column : columns)
      out << "<th scope=\"col\">"_html << TText{column.fLabel} << "</th>"_html;
   out << "</tr>\n</thead>\n<tbody>\n"_html;
}

void WriteFixedTableEnd(THtmlSink& out)
{
   out << "</tbody>\n</table>\n</div>\n"_html;
}
