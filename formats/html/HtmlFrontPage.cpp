#include "html/HtmlFrontPage.h"

#include <initializer_list>

#include "html/HtmlComparison.h"
#include "html/HtmlHealth.h"
#include "html/HtmlOwnPage.h"
#include "html/HtmlPictures.h"
#include "html/HtmlState.h"

namespace {

/// One field of the title block; it is left out when nothing is known.
void WriteField(THtmlSink& out, TMarkup label, std::initializer_list<std::string> lines)
{
   bool isEmpty = true;
   for (const std::string& line : lines)
      isEmpty = isEmpty && line.empty();
   if (isEmpty)
      return;
   out << "<div><dt>"_html << label << "</dt>"_html;
   for (const std::string& line : lines)
      if (!line.empty())
         out << "<dd>"_html << TText{line} << "</dd>"_html;
   out << "</div>\n"_html;
}

void WriteMachine(THtmlSink& out, const TRunFacts& facts)
{
   out << "<div class=\"plate-name\"><dt>"_html
       << "Machine</dt><dd><h1>"_html << TText{facts.GetName()} << "</h1>"_html;
   const bool hasSerialNumber = !facts.fSerialNumber.empty();
   if (!facts.fProduct.empty() || hasSerialNumber) {
      out << "<p><bdi>"_html << TText{facts.fProduct} << "</bdi>"_html;
      if (hasSerialNumber)
         out << (facts.fProduct.empty() ? "Serial number "_html : ", serial number "_html)
             << "<bdi class=\"mono\">"_html << TText{facts.fSerialNumber} << "</bdi>"_html;
      out << "</p>"_html;
   }
   out << "</dd></div>\n"_html;
}

void WriteTitleBlock(THtmlSink& out, const THtmlSite& site)
{
   const TRunFacts& facts = site.fFacts;
   const std::string upTime = facts.fUpTime.empty() ? "" : "up " + facts.fUpTime;
   const std::string separator = facts.fTimeZone.empty() || upTime.empty() ? "" : ", ";
   out << "<header>\n<dl class=\"plate\">\n"_html;
   WriteMachine(out, facts);
   WriteField(out, "System"_html, {facts.fSystem, facts.fKernel});
   WriteField(out, "Collected"_html, {facts.fCollected, facts.fTimeZone + separator + upTime});
   WriteField(out, "Collected by"_html, {facts.fCollectedBy, site.fOptions.fSource});
   out << "</dl>\n</header>\n"_html;
}

void WriteIndexEntry(THtmlSink& out, const THtmlSite& site, const TReportIndex::TEntry& entry)
{
   if (entry.IsLinked()) {
      out << "<tr><th scope=\"row\"><a href=\""_html
          << TFileUrl{site.fPages[entry.fPage].GetFileName(0)} << "\">"_html
          << TText{GetShownName(entry)} << "</a>"_html;
      WriteStateGlyph(out, site.fPages[entry.fPage].fState);
      out << "</th><td>"_html;
   } else
      out << "<tr class=\"empty\"><th scope=\"row\">"_html << TText{GetShownName(entry)}
          << "</th><td>"_html;
   WriteRowCount(out, site, entry);
   out << "</td></tr>\n"_html;
}

void WriteIndexHead(THtmlSink& out, const THtmlSite& site)
{
   std::uint64_t reports = 0;
   std::uint64_t withData = 0;
   for (const TReportIndex::TGroup& group : site.fIndex.GetGroups())
      for (const TReportIndex::TEntry& entry : group.fEntries) {
         ++reports;
         withData += entry.IsLinked() && site.GetRows(entry) > 0;
      }
   out << "<div class=\"section-head\" id=\"index\"><h2>Reports</h2><p>"_html << TCount{reports}
       << (reports == 1 ? " report, "_html : " reports, "_html) << TCount{withData}
       << " with data. <em>No data</em>: collected, and there was nothing. <em>Not collected</em>: "
          "nobody looked.</p></div>\n"_html;
}

void WriteIndex(THtmlSink& out, const THtmlSite& site)
{
   WriteIndexHead(out, site);
   out << "<div class=\"index\">\n"_html;
   for (const TReportIndex::TGroup& group : site.fIndex.GetGroups()) {
      if (group.fEntries.empty())
         continue;
      out << "<section class=\"index-group\">\n<h3>"_html << TText{group.fHeading}
          << "</h3>\n<table>\n<caption class=\"vh\">"_html << TText{group.fHeading}
          << "</caption>\n<thead class=\"vh\"><tr><th scope=\"col\">Report</th>"
             "<th scope=\"col\">Rows</th></tr></thead>\n<tbody>\n"_html;
      for (const TReportIndex::TEntry& entry : group.fEntries)
         WriteIndexEntry(out, site, entry);
      out << "</tbody>\n</table>\n</section>\n"_html;
   }
   out << "</div>\n"_html;
}

void WriteGap(THtmlSink& out, const TGap& gap)
{
   std::string classes;
   for (const std::string& name : gap.fClasses)
      classes += (classes.empty() ? "" : ", ") + name;
   out << "<tr><th scope=\"row\">"_html << TText{gap.fSubject} << "</th><td class=\"brk\">"_html
       << TText{gap.fSource} << "</td><td>"_html << TText{gap.fReason} << "</td><td>"_html
       << TText{gap.fDetail} << "</td><td class=\"brk\">"_html << TText{classes}
       << "</td></tr>\n"_html;
}

/// What the collection says it could not have. Missing: nothing where it says nothing.
void WriteGaps(THtmlSink& out, const THtmlSite& site)
{
   if (site.fGaps == nullptr || site.fGaps->empty())
      return;
   out << "<div class=\"section-head\" id=\"not-collected\"><h2>Not collected</h2><p>What the "
          "collection could not have.</p></div>\n"_html;
   WriteFixedTableBegin(
      out, "Not collected",
      {{"Subject", 18}, {"Source", 22}, {"Reason", 12}, {"Detail", 22}, {"Classes", 26}});
   for (const TGap& gap : *site.fGaps)
      WriteGap(out, gap);
   WriteFixedTableEnd(out);
}

}  // namespace

void WriteFrontPage(THtmlSink& out, const THtmlSite& site)
{
   if (!site.fSystems.IsEmpty())
      return WriteComparisonFrontPage(out, site);
   WriteFrameBegin(out, site, site.fFacts.GetName(), kFrontPageFile);
   WriteTitleBlock(out, site);
   if (site.fHealth != nullptr) {
      out << "<div class=\"front\">\n"_html;
      WriteHealth(out, site, *site.fHealth);
      WritePictures(out, site, *site.fHealth);
      out << "</div>\n"_html;
   }
   WriteIndex(out, site);
   WriteGaps(out, site);
   WriteFrameEnd(out, site, "");
}
