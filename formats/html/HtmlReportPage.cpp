#include "html/HtmlReportPage.h"

#include "html/HtmlComparison.h"
#include "html/HtmlParts.h"

namespace {

/// A list of tables longer than this helps nobody.
constexpr std::size_t kLongestTableList = 100;
constexpr std::size_t kTablesWorthAList = 2;

/// The library's texts are " - [Show Rawdata Report]": the link stands on its own here.
std::string_view GetBareLinkText(std::string_view text)
{
   constexpr std::string_view kBegin = " - [";
   if (text.size() > kBegin.size() && text.substr(0, kBegin.size()) == kBegin && text.back() == ']')
      return text.substr(kBegin.size(), text.size() - kBegin.size() - 1);
   return text;
}

class TPageWriter
{
public:
   TPageWriter(THtmlSink& out, const THtmlSite& site, std::size_t page, std::size_t file,
               const TReportIndex::TPlace& place)
      : fOut(out), fSite(site), fPage(site.fPages[page]), fNumber(page), fFile(file), fPlace(place)
   {}

   void Write(TOutputFile& spool)
   {
      WriteFrameBegin(fOut, fSite, GetDocumentTitle(), fPage.GetFileName(0));
      fOut << "<div class=\"report\">\n"_html;
      WriteHead();
      WriteTableList();
      fOut << "<div class=\"sheet\">\n"_html;
      WritePartList(fOut, GetParts());
      for (const TSpan& span : fPage.fFiles[fFile].fBody)
         fOut.GetFile().CopyFrom(spool, span.fOffset, span.fLength);
      WritePartSteps(fOut, GetParts());
      fOut << "</div>\n</div>\n"_html;
      WriteFrameEnd(fOut, fSite, GetTitle());
   }

private:
   bool IsSplit() const { return fPage.fFiles.size() > 1; }

   std::string GetTitle() const { return GetPageTitle(fPage, fPlace); }

   /// Whether the report asks for no title and its table has that title.
   bool IsTitleRepeated() const
   {
      return fPage.fTitle.empty() && !fPage.fTables.empty() &&
             fPage.fTables.front().fTitle == GetTitle();
   }

   std::string GetDocumentTitle() const
   {
      if (!IsSplit())
         return GetTitle();
      return GetTitle() + " (" + std::to_string(fFile + 1) + " of " +
             std::to_string(fPage.fFiles.size()) + ")";
   }

   void WriteHead()
   {
      fOut << "<header class=\"page-head\">\n<p class=\"crumbs\"><a href=\""_html
           << TFileUrl{kFrontPageFile} << "\"><bdi>"_html << TText{fSite.fFacts.GetName()}
           << "</bdi></a>"_html;
      if (fPlace.fGroup != nullptr)
         fOut << " / <bdi>"_html << TText{fPlace.fGroup->fHeading} << "</bdi>"_html;
      fOut << "</p>\n<div class=\"page-title\"><h1"_html;
      if (IsTitleRepeated())
         fOut << " class=\"vh\""_html;
      fOut << ">"_html << TText{GetTitle()} << "</h1>"_html;
      WriteTitleLink();
      WriteWholeSwitch();
      fOut << "</div>\n<p class=\"page-meta\">"_html;
      if (!fSite.fSystems.IsEmpty())
         return WriteDifferences();
      if (fPage.fTableCount > 0)
         fOut << TCount{fPage.fTableCount}
              << (fPage.fTableCount == 1 ? " table, "_html : " tables, "_html)
              << TCount{fPage.fRows} << (fPage.fRows == 1 ? " row. "_html : " rows. "_html);
      WriteCollected();
      fOut << "</p>\n</header>\n"_html;
   }

   /// Works without scripts: the style sheet asks for the switch. A page on which nothing differs
   /// shows what is the same from the start.
   void WriteWholeSwitch()
   {
      if (fSite.fSystems.IsEmpty() || fPage.fDifferences.GetCount() + fPage.fDifferences.fSame == 0)
         return;
      fOut << "<label class=\"switch whole-switch\"><input type=\"checkbox\" "
              "class=\"only-differs\""_html
           << (fPage.fDifferences.GetCount() > 0 ? " checked"_html : ""_html)
           << "> Only what differs</label>"_html;
   }

   void WriteDifferences()
   {
      if (fPage.fDifferences.GetCount() > 0)
         WriteDifferenceCounts(fOut, fPage.fDifferences);
      else
         fOut << "Nothing differs"_html;
      if (fPage.fDifferences.fSame > 0)
         fOut << ", "_html << TCount{fPage.fDifferences.fSame} << " the same"_html;
      fOut << ".</p>\n</header>\n"_html;
   }

   /// The link is left out where its page was not written.
   void WriteTitleLink()
   {
      const std::size_t target = fPage.fLinkText.empty() || fPage.fLinkTarget.empty()
                                    ? TReportIndex::kNoPage
                                    : fSite.fIndex.FindPage(fPage.fLinkTarget, fNumber);
      if (target != TReportIndex::kNoPage)
         fOut << "<a class=\"raw-link\" href=\""_html
              << TFileUrl{fSite.fPages[target].GetFileName(0)} << "\">"_html
              << TText{GetBareLinkText(fPage.fLinkText)} << "</a>"_html;
   }

   void WriteCollected()
   {
      const TRunFacts& facts = fSite.fFacts;
      if (facts.fCollected.empty())
         return;
      fOut << "Collected <bdi>"_html << TText{facts.fCollected} << "</bdi>"_html;
      if (!facts.fTimeZone.empty())
         fOut << ", <bdi>"_html << TText{facts.fTimeZone} << "</bdi>"_html;
      fOut << "."_html;
   }

   void WriteTableList()
   {
      const std::vector<THtmlTableEntry>& tables = fPage.fTables;
      if (tables.size() < kTablesWorthAList)
         return;
      fOut
         << "<nav class=\"toc\" aria-label=\"Tables of this page\">\n<p>On this page</p>\n<ol>\n"_html;
      for (std::size_t i = 0; i < tables.size() && i < kLongestTableList; ++i) {
         fOut << "<li><a href=\""_html;
         if (tables[i].fFile != fFile)
            fOut << TFileUrl{fPage.GetFileName(tables[i].fFile)};
         fOut << "#"_html << TText{tables[i].fAnchor} << "\">"_html << TText{tables[i].fTitle}
              << "</a>"_html;
         if (tables[i].fRows > 0 && fSite.fSystems.IsEmpty())
            fOut << "<span class=\"num\">"_html << TCount{tables[i].fRows} << "</span>"_html;
         fOut << "</li>\n"_html;
      }
      fOut << "</ol>\n"_html;
      if (tables.size() > kLongestTableList)
         fOut << "<p>and "_html << TCount{tables.size() - kLongestTableList} << " more</p>\n"_html;
      fOut << "</nav>\n"_html;
   }

   void WriteFileName(std::size_t number)
   {
      const THtmlFile& file = fPage.fFiles[number];
      if (file.fFirstTitle.empty())
         fOut << "Part "_html << TCount{number + 1};
      else
         fOut << "From "_html << TText{file.fFirstTitle};
   }

   THtmlParts GetParts()
   {
      return {"Parts of this report"_html, fPage.fFiles.size(), fFile,
              [this](std::size_t file) { return fPage.GetFileName(file); },
              [this](std::size_t file) { WriteFileName(file); }};
   }

   THtmlSink& fOut;
   const THtmlSite& fSite;
   const THtmlPage& fPage;
   const std::size_t fNumber;
   const std::size_t fFile;
   const TReportIndex::TPlace& fPlace;
};

}  // namespace

std::string GetPageTitle(const THtmlPage& page, const TReportIndex::TPlace& place)
{
   if (!IsBlank(page.fTitle))
      return page.fTitle;
   if (place.fEntry != nullptr)
      return GetShownName(*place.fEntry);
   return IsBlank(page.fLinkName) ? page.fFileStem : page.fLinkName;
}

void WriteReportPage(const std::string& outputDirectory, const THtmlSite& site, std::size_t page,
                     const TReportIndex::TPlace& place, TOutputFile& spool)
{
   const THtmlPage& written = site.fPages[page];
   for (std::size_t file = 0; file < written.fFiles.size(); ++file) {
      TOutputFile output(outputDirectory + "/" + written.GetFileName(file));
      THtmlSink out(output);
      TPageWriter(out, site, page, file, place).Write(spool);
      output.Close();
   }
}
