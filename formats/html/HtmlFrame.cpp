#include "html/HtmlFrame.h"

#include "html/HtmlDocument.h"
#include "html/HtmlState.h"

namespace {

TMarkup MarkCurrent(bool isCurrent)
{
   return isCurrent ? " aria-current=\"page\""_html : ""_html;
}

void WriteSideEntry(THtmlSink& out, const THtmlSite& site, const TReportIndex::TEntry& entry,
                    const std::string& currentFile)
{
   const std::string name = GetShownName(entry);
   const bool hasPage = entry.fPage != TReportIndex::kNoPage;
   const std::string file = hasPage ? site.fPages[entry.fPage].GetFileName(0) : "";
   const TMarkup current = MarkCurrent(hasPage && file == currentFile);
   if (site.IsLinked(entry))
      out << "<li><a href=\""_html << TFileUrl{file} << "\""_html << current << ">"_html
          << TText{name} << "</a>"_html;
   else
      out << "<li class=\"empty\"><span"_html << current << ">"_html << TText{name}
          << "</span>"_html;
   out << "<span class=\"num\">"_html;
   if (site.IsLinked(entry))
      WriteStateGlyph(out, site.fPages[entry.fPage].fState);
   WriteRowCount(out, site, entry);
   out << "</span></li>\n"_html;
}

void WriteOwnEntry(THtmlSink& out, const THtmlOwnPage& page, const std::string& currentFile)
{
   out << "<li><a href=\""_html << TFileUrl{page.fFile} << "\""_html
       << MarkCurrent(page.fFile == currentFile) << ">"_html << TText{page.fTitle}
       << "</a><span class=\"num\">"_html << TCount{page.fRows} << "</span></li>\n"_html;
}

void WriteFrontPageEntry(THtmlSink& out, const std::string& currentFile)
{
   out << "<li><a href=\""_html << TFileUrl{kFrontPageFile} << "\""_html
       << MarkCurrent(currentFile == kFrontPageFile) << ">Front page</a></li>\n"_html;
}

/// The name of the run, as a line below the machine's name in the side bar.
void WriteSideMachine(THtmlSink& out, const TRunFacts& facts)
{
   out << "<p class=\"side-machine\"><a href=\""_html << TFileUrl{kFrontPageFile} << "\">"_html
       << TText{facts.GetName()} << "</a>"_html;
   if (!facts.fSerialNumber.empty())
      out << "<span>"_html << TText{facts.fSerialNumber} << "</span>"_html;
   if (!facts.fCollected.empty())
      out << "<span>"_html << TText{facts.fCollected} << "</span>"_html;
   out << "</p>\n"_html;
}

/// The compared systems below the word for them.
void WriteSideSystems(THtmlSink& out, const THtmlSystems& systems)
{
   out << "<p class=\"side-machine\"><a href=\""_html << TFileUrl{kFrontPageFile}
       << "\">Comparison</a>"_html;
   for (std::size_t system = 0; system < systems.GetCount(); ++system) {
      out << "<span class=\"of\">"_html;
      systems.Write(out, system);
      out << "</span>"_html;
   }
   out << "</p>\n"_html;
}

void WriteSideBar(THtmlSink& out, const THtmlSite& site, const std::string& currentFile)
{
   out << "<nav class=\"side\" id=\"reports\" popover aria-label=\"Reports\">\n"_html;
   if (site.fSystems.IsEmpty())
      WriteSideMachine(out, site.fFacts);
   else
      WriteSideSystems(out, site.fSystems);
   WriteSearchField(out, "Search all reports"_html);
   out << "<ul>\n"_html;
   WriteFrontPageEntry(out, currentFile);
   for (const THtmlOwnPage& page : site.fOwnPages)
      WriteOwnEntry(out, page, currentFile);
   out << "</ul>\n"_html;
   for (const TReportIndex::TGroup& group : site.fIndex.GetGroups()) {
      if (group.fEntries.empty())
         continue;
      out << "<h2 class=\"side-group\">"_html << TText{group.fHeading} << "</h2>\n<ul>\n"_html;
      for (const TReportIndex::TEntry& entry : group.fEntries)
         WriteSideEntry(out, site, entry, currentFile);
      out << "</ul>\n"_html;
   }
   WriteThemeChoice(out);
   out << "</nav>\n"_html;
}

void WriteDifferenceCount(THtmlSink& out, const THtmlSite& site, const TReportIndex::TEntry& entry)
{
   const bool hasPage = entry.fPage != TReportIndex::kNoPage;
   const std::uint64_t count =
      entry.IsLinked() ? site.fPages[entry.fPage].fDifferences.GetCount() : 0;
   if (count > 0)
      out << TCount{count};
   else if (hasPage && site.fPages[entry.fPage].fDifferences.fSame > 0)
      out << "same"_html;
   else
      out << "no data"_html;
}

}  // namespace

/// In a comparison a report without differences has no data, but may have what is the same.
bool THtmlSite::IsLinked(const TReportIndex::TEntry& entry) const
{
   const bool hasPage = entry.fPage != TReportIndex::kNoPage;
   return entry.IsLinked() || (hasPage && fPages[entry.fPage].fDifferences.fSame > 0);
}

std::uint64_t THtmlSite::GetRows(const TReportIndex::TEntry& entry) const
{
   return fPages[entry.fPage].fRows;
}

void WritePlaceUrl(THtmlSink& out, const THtmlSite& site, const TPagePlace& place)
{
   const THtmlPage& page = site.fPages[place.fPage];
   out << TFileUrl{page.GetFileName(page.FindFile(place.fTable))};
   if (place.fTable > 0)
      out << "#t"_html << TNumber{place.fTable};
   if (place.fRow > 0)
      out << "-r"_html << TNumber{place.fRow};
   if (place.fColumn > 0)
      out << "-c"_html << TNumber{place.fColumn};
}

void WritePlaceUrl(THtmlSink& out, const THtmlSite& site, const TFinding& finding)
{
   switch (finding.fOwnPlace) {
      case EOwnPlace::kNone:
         return WritePlaceUrl(out, site, finding.fPlace);
      case EOwnPlace::kIndex:
         out << TFileUrl{kFrontPageFile} << "#index"_html;
         return;
      case EOwnPlace::kNotCollected:
         out << TFileUrl{kFrontPageFile} << "#not-collected"_html;
         return;
      case EOwnPlace::kCorrections:
         out << TFileUrl{kCorrectionsFile};
         return;
   }
}

std::string GetShownName(const TReportIndex::TEntry& entry)
{
   if (!IsBlank(entry.fDisplayName))
      return entry.fDisplayName;
   return IsBlank(entry.fLinkName) ? "Unnamed report" : entry.fLinkName;
}

void WriteRowCount(THtmlSink& out, const THtmlSite& site, const TReportIndex::TEntry& entry)
{
   if (!site.fSystems.IsEmpty())
      WriteDifferenceCount(out, site, entry);
   else if (entry.fHasData && entry.fPage == TReportIndex::kNoPage)
      out << "no page"_html;
   else if (!entry.IsLinked() || site.GetRows(entry) == 0)
      out << (entry.fIsCollected ? "no data"_html : "not collected"_html);
   else
      out << TCount{site.GetRows(entry)};
}

void WriteFrameBegin(THtmlSink& out, const THtmlSite& site, const std::string& title,
                     const std::string& file)
{
   const std::string machine = site.fFacts.GetName();
   const bool isFrontPage = file == kFrontPageFile;
   WriteDocumentBegin(out, isFrontPage ? title + ": front page" : title + ", " + machine);
   WriteTopBar(out, title, isFrontPage ? "" : machine, "Reports"_html);
   WriteSideBar(out, site, file);
   out << "<main id=\"main\">\n"_html;
}

void WriteFrameEnd(THtmlSink& out, const THtmlSite& site, const std::string& title)
{
   WriteDocumentEnd(out, site.fFacts.GetName(), title, site.fOptions);
}
