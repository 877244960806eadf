#include "html/HtmlDocument.h"

#include "html/BundledFiles.h"
#include "html/HtmlState.h"

namespace {

/// Nothing inline, nothing from elsewhere: only the script and the style sheet beside the page.
constexpr TMarkup kHeadBegin =
   "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
   "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; style-src 'self'; "
   "script-src 'self'; img-src 'self'; base-uri 'none'; form-action 'none'\">\n"
   "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
   "<meta name=\"color-scheme\" content=\"light dark\">\n<title>"_html;

void WriteFile(const std::string& path, std::string_view content)
{
   TOutputFile file(path);
   file.Write(content);
   file.Close();
}

}  // namespace

void WriteDocumentBegin(THtmlSink& out, std::string_view title)
{
   out << kHeadBegin << TText{title} << "</title>\n<link rel=\"stylesheet\" href=\""_html
       << TFileUrl{kStyleSheetFile} << "\">\n<script src=\""_html << TFileUrl{kScriptFile}
       << "\"></script>\n</head>\n<body>\n"_html;
   WriteStateShapes(out);
   out << "<a class=\"skip\" href=\"#main\">Skip to content</a>\n"_html;
}

void WriteTopBar(THtmlSink& out, std::string_view title, std::string_view of, TMarkup button)
{
   out << "<header class=\"top\"><p><bdi>"_html << TText{title} << "</bdi>"_html;
   if (!of.empty())
      out << ", <bdi>"_html << TText{of} << "</bdi>"_html;
   out << "</p><button type=\"button\" popovertarget=\"reports\">"_html << button
       << "</button></header>\n<div class=\"page\">\n"_html;
}

void WriteSearchField(THtmlSink& out, TMarkup label)
{
   out << "<search class=\"search js-only\"><label class=\"vh\" for=\"search\">"_html << label
       << "</label><input id=\"search\" type=\"search\" placeholder=\""_html << label
       << "\" autocomplete=\"off\"></search>\n"_html;
}

void WriteThemeChoice(THtmlSink& out)
{
   out << "<p class=\"side-foot js-only\"><label class=\"vh\" for=\"theme\">Theme</label><select "
          "id=\"theme\"><option value=\"\">Theme: as the system</option><option "
          "value=\"light\">Theme: light</option><option value=\"dark\">Theme: "
          "dark</option></select></p>\n"_html;
}

void WriteDocumentEnd(THtmlSink& out, std::string_view name, std::string_view title,
                      const THtmlOptions& options)
{
   out << "<footer class=\"page-foot\"><bdi>"_html << TText{name} << "</bdi>"_html;
   if (!title.empty())
      out << ", <bdi>"_html << TText{title} << "</bdi>"_html;
   out << "."_html;
   if (!options.fWritten.empty() || !options.fProgram.empty() || !options.fSource.empty())
      out << " Written"_html;
   if (!options.fWritten.empty())
      out << " "_html << TText{options.fWritten};
   if (!options.fProgram.empty())
      out << " by "_html << TText{options.fProgram};
   if (!options.fSource.empty())
      out << " from <bdi class=\"mono\">"_html << TText{options.fSource} << "</bdi>"_html;
   out << "</footer>\n</main>\n</div>\n</body>\n</html>\n"_html;
}

void WriteBundledFiles(const std::string& outputDirectory)
{
   WriteFile(outputDirectory + '/' + kStyleSheetFile, GetStyleSheet());
   WriteFile(outputDirectory + '/' + kScriptFile, GetScript());
}
