#include "html/HtmlComparison.h"

#include <algorithm>
#include <cstdio>

#include "html/HtmlOutliers.h"

namespace {

/// A report of the index with what differs in it. Missing: no page, nothing differs.
struct TComparedReport
{
   const TReportIndex::TEntry* fEntry;
   const THtmlPage* fPage;

   std::uint64_t GetCount() const { return fPage == nullptr ? 0 : fPage->fDifferences.GetCount(); }

   std::uint64_t GetSame() const { return fPage == nullptr ? 0 : fPage->fDifferences.fSame; }
};

class TComparisonPage
{
public:
   TComparisonPage(THtmlSink& out, const THtmlSite& site)
      : fOut(out), fSite(site), fSystems(site.fSystems)
   {
      for (const TReportIndex::TGroup& group : site.fIndex.GetGroups())
         for (const TReportIndex::TEntry& entry : group.fEntries)
            fReports.push_back({&entry, entry.fPage != TReportIndex::kNoPage
                                           ? &site.fPages[entry.fPage]
                                           : nullptr});
      std::stable_sort(fReports.begin(), fReports.end(),
                       [](const TComparedReport& a, const TComparedReport& b) {
                          return a.GetCount() > b.GetCount();
                       });
      fDiffering = static_cast<std::size_t>(
         std::count_if(fReports.begin(), fReports.end(),
                       [](const TComparedReport& report) { return report.GetCount() > 0; }));
   }

   void Write()
   {
      WriteFrameBegin(fOut, fSite, fSite.fFacts.GetName(), kFrontPageFile);
      WriteHead();
      WriteSystems();
      std::vector<const THtmlPage*> pages;
      for (const TComparedReport& report : fReports)
         if (report.fPage != nullptr)
            pages.push_back(report.fPage);
      WriteOutliers(fOut, fSystems, pages);
      WriteReports();
      WriteFrameEnd(fOut, fSite, "");
   }

private:
   bool HasMajority() const { return fSystems.GetCount() > 2; }

   std::uint64_t CountWithData() const
   {
      return static_cast<std::uint64_t>(std::count_if(
         fReports.begin(), fReports.end(),
         [](const TComparedReport& report) { return report.GetCount() + report.GetSame() > 0; }));
   }

   std::uint64_t CountReportsApart(std::size_t system) const
   {
      return static_cast<std::uint64_t>(
         std::count_if(fReports.begin(), fReports.end(), [&](const TComparedReport& report) {
            return report.fPage != nullptr && report.fPage->fDifferences.FindApart() == system;
         }));
   }

   void WriteHead()
   {
      fOut << "<header class=\"page-head\">\n<p class=\"crumbs\">Comparison of "_html
           << TCount{fSystems.GetCount()} << " systems</p>\n<h1>"_html;
      if (fDiffering == 0)
         fOut << "No report differs"_html;
      else
         fOut << TCount{fDiffering} << " of "_html << TCount{CountWithData()}
              << (CountWithData() == 1 ? " report differs"_html : " reports differ"_html);
      fOut << "</h1>\n<p class=\"apart\">"_html;
      HasMajority() ? WriteWhoStandsApart() : WriteTotals();
      fOut << "</p>\n</header>\n"_html;
   }

   void WriteWhoStandsApart()
   {
      bool isFirst = true;
      for (std::size_t system = 0; system < fSystems.GetCount(); ++system) {
         const std::uint64_t count = CountReportsApart(system);
         if (count == 0)
            continue;
         fOut << (isFirst ? ""_html : ", "_html);
         fSystems.Write(fOut, system);
         fOut << (isFirst ? " stands apart in "_html : " in "_html) << TCount{count}
              << (count == 1 ? " report"_html : " reports"_html);
         isFirst = false;
      }
      if (!isFirst)
         fOut << "."_html;
      else if (fDiffering > 0)
         fOut << "No system alone accounts for what differs in a report."_html;
   }

   void WriteTotals()
   {
      TPageDifferences total;
      for (const TComparedReport& report : fReports) {
         if (report.fPage == nullptr)
            continue;
         total.fDiffer += report.fPage->fDifferences.fDiffer;
         total.fMissing += report.fPage->fDifferences.fMissing;
         total.fUnique += report.fPage->fDifferences.fUnique;
      }
      if (total.GetCount() == 0)
         return;
      fOut << TCount{total.GetCount()}
           << (total.GetCount() == 1 ? " instance: "_html : " instances: "_html);
      WriteDifferenceCounts(fOut, total);
      fOut << "."_html;
   }

   void WriteSystems()
   {
      fOut
         << "<div class=\"scroll\" role=\"group\" tabindex=\"0\" aria-label=\"The systems "
            "compared\">\n<table class=\"systems\">\n<caption class=\"vh\">The systems "
            "compared</caption>\n<thead><tr><th scope=\"col\">System</th><th scope=\"col\">Serial "
            "number</th><th scope=\"col\">Operating system</th><th scope=\"col\">Collected</th>"
            "<th scope=\"col\">Collection</th>"_html;
      if (HasMajority())
         fOut << "<th scope=\"col\">Stands apart in</th>"_html;
      fOut << "</tr></thead>\n<tbody>\n"_html;
      for (std::size_t system = 0; system < fSystems.GetCount(); ++system)
         WriteSystem(system);
      fOut << "</tbody>\n</table>\n</div>\n"_html;
   }

   void WriteSystem(std::size_t system)
   {
      const TComparedSystem& facts = fSite.fFacts.fComparedSystems[system];
      fOut << "<tr><th scope=\"row\">"_html;
      fSystems.WriteWithLabel(fOut, system);
      if (system == 0)
         fOut << " <small>base</small>"_html;
      fOut << "</th><td data-label=\"Serial number\" class=\"mono\">"_html
           << TText{facts.fSerialNumber} << "</td><td data-label=\"Operating system\">"_html
           << TText{facts.fSystem} << "</td><td data-label=\"Collected\">"_html
           << TText{facts.fCollected} << (facts.fTimeZone.empty() ? ""_html : ", "_html)
           << TText{facts.fTimeZone} << "</td><td data-label=\"Collection\" class=\"mono\">"_html
           << TText{facts.fFile} << "</td>"_html;
      if (HasMajority()) {
         const std::uint64_t count = CountReportsApart(system);
         fOut << "<td data-label=\"Stands apart in\">"_html;
         if (count == 0)
            fOut << "no report"_html;
         else
            fOut << TCount{count} << (count == 1 ? " report"_html : " reports"_html);
         fOut << "</td>"_html;
      }
      fOut << "</tr>\n"_html;
   }

   void WriteReports()
   {
      fOut << "<section>\n"_html;
      if (fDiffering > 0) {
         fOut << "<div class=\"section-head\"><h2 id=\"index\">Reports, most different first</h2>"
                 "<p>Counts are instances; the bar shows their share of all.</p></div>\n"
                 "<div class=\"scroll\" role=\"group\" tabindex=\"0\" aria-labelledby=\"index\">\n"
                 "<table class=\"compare reports\">\n<thead><tr><th scope=\"col\">Report</th>"
                 "<th scope=\"col\" class=\"c-bar\">Share</th>"
                 "<th scope=\"col\" class=\"num\">Differ</th><th scope=\"col\" "
                 "class=\"num\">Missing</th><th scope=\"col\" class=\"num\">Unique</th>"
                 "<th scope=\"col\" class=\"num\">Same</th>"
                 "<th scope=\"col\">Verdict</th></tr></thead>\n<tbody>\n"_html;
         for (const TComparedReport& report : fReports)
            if (report.GetCount() > 0)
               WriteReport(report);
         fOut << "</tbody>\n</table>\n</div>\n"_html;
         WriteLegend();
      }
      WriteAlike();
      WriteEmpty();
      fOut << "</section>\n"_html;
   }

   void WriteReport(const TComparedReport& report)
   {
      const TPageDifferences& differences = report.fPage->fDifferences;
      fOut << "<tr><th scope=\"row\"><a href=\""_html << TFileUrl{report.fPage->GetFileName(0)}
           << "\">"_html << TText{GetShownName(*report.fEntry)}
           << "</a></th><td class=\"c-bar\">"_html;
      WriteBar(differences);
      fOut << "</td>"_html;
      WriteNumber(differences.fDiffer, "differ"_html);
      WriteNumber(differences.fMissing, "missing"_html);
      WriteNumber(differences.fUnique, "unique"_html);
      WriteNumber(differences.fSame, "same"_html);
      fOut << "<td>"_html;
      WriteVerdict(differences);
      fOut << "</td></tr>\n"_html;
   }

   void WriteNumber(std::uint64_t number, TMarkup label)
   {
      fOut << (number == 0 ? "<td class=\"num zero\""_html : "<td class=\"num\""_html)
           << " data-label=\""_html << label << "\">"_html << TCount{number} << "</td>"_html;
   }

   void WriteBar(const TPageDifferences& differences)
   {
      fOut << "<svg class=\"bar\" role=\"img\" aria-label=\""_html;
      WriteDifferenceCounts(fOut, differences);
      fOut << " of "_html << TCount{differences.GetCount() + differences.fSame}
           << "\"><rect class=\"f-track\" width=\"100%\" height=\"12\"/>"_html;
      const std::uint64_t whole = differences.GetCount() + differences.fSame;
      std::uint64_t before = 0;
      WriteBarPart("<rect class=\"f-diff\" height=\"12\""_html, before, differences.fDiffer, whole);
      WriteBarPart("<rect class=\"f-ink\" height=\"12\""_html, before, differences.fMissing, whole);
      WriteBarPart("<rect class=\"f-outline\" y=\"0.75\" height=\"10.5\""_html, before,
                   differences.fUnique, whole);
      fOut << "</svg>"_html;
   }

   void WriteBarPart(TMarkup begin, std::uint64_t& before, std::uint64_t count,
                     std::uint64_t wholeCount)
   {
      if (count == 0)
         return;
      const auto whole = static_cast<double>(wholeCount);
      fOut << begin << " x=\""_html;
      WritePercent(static_cast<double>(before) / whole);
      fOut << "\" width=\""_html;
      WritePercent(static_cast<double>(count) / whole);
      fOut << "\"/>"_html;
      before += count;
   }

   void WritePercent(double share)
   {
      char text[16];
      std::snprintf(text, sizeof text, "%.1f%%", share * 100);
      fOut << TText{text};
   }

   void WriteVerdict(const TPageDifferences& differences)
   {
      if (!HasMajority()) {
         WriteVerdictOfTwo(differences);
         return;
      }
      const std::size_t apart = differences.FindApart();
      if (apart == THtmlSystems::kNone) {
         fOut << "<span class=\"zero\">no single outlier</span>"_html;
         return;
      }
      fSystems.Write(fOut, apart);
      fOut << " stands apart"_html;
   }

   void WriteVerdictOfTwo(const TPageDifferences& differences)
   {
      if (differences.fMissing == 0 && differences.fUnique == 0)
         fOut << "other values"_html;
      else if (differences.fUnique == 0)
         fOut << (differences.fDiffer > 0 ? "other values, B lacks some"_html
                                          : "B lacks some"_html);
      else if (differences.fMissing == 0)
         fOut << (differences.fDiffer > 0 ? "other values, B has more"_html : "B has more"_html);
      else
         fOut << (differences.fDiffer > 0 ? "other values, some on one side only"_html
                                          : "some on one side only"_html);
   }

   void WriteLegend()
   {
      constexpr TMarkup kBegin = "<svg class=\"swatch\" aria-hidden=\"true\"><rect class=\""_html;
      fOut
         << "<p class=\"legend\">"_html << kBegin
         << "f-diff\" width=\"100%\" height=\"12\"/></svg> differ "_html << kBegin
         << "f-ink\" width=\"100%\" height=\"12\"/></svg> missing from a system "_html << kBegin
         << "f-outline\" x=\"1\" y=\"0.75\" width=\"22\" height=\"10.5\"/></svg> unique to a system "_html
         << kBegin
         << "f-track\" width=\"100%\" height=\"12\"/></svg> the same everywhere</p>\n"_html;
   }

   void WriteAlike()
   {
      bool isFirst = true;
      for (const TComparedReport& report : fReports)
         if (report.GetCount() == 0 && report.GetSame() > 0) {
            fOut << (isFirst ? "<p class=\"same-line\">Identical on all systems: "_html : ", "_html)
                 << "<a href=\""_html << TFileUrl{report.fPage->GetFileName(0)} << "\"><bdi>"_html
                 << TText{GetShownName(*report.fEntry)} << "</bdi></a> ("_html
                 << TCount{report.GetSame()} << ")"_html;
            isFirst = false;
         }
      fOut << (isFirst ? ""_html : ".</p>\n"_html);
   }

   void WriteEmpty()
   {
      bool isFirst = true;
      for (const TComparedReport& report : fReports)
         if (report.GetCount() + report.GetSame() == 0) {
            fOut << (isFirst ? "<p class=\"same-line\">No data to compare: "_html : ", "_html)
                 << "<bdi>"_html << TText{GetShownName(*report.fEntry)} << "</bdi>"_html;
            isFirst = false;
         }
      fOut << (isFirst ? ""_html : ".</p>\n"_html);
   }

   THtmlSink& fOut;
   const THtmlSite& fSite;
   const THtmlSystems& fSystems;
   std::vector<TComparedReport> fReports;
   std::size_t fDiffering = 0;
};

}  // namespace

void WriteComparisonFrontPage(THtmlSink& out, const THtmlSite& site)
{
   TComparisonPage(out, site).Write();
}

void WriteDifferenceCounts(THtmlSink& out, const TPageDifferences& differences)
{
   bool isFirst = true;
   const auto write = [&](std::uint64_t count, TMarkup one, TMarkup many) {
      if (count == 0)
         return;
      out << (isFirst ? ""_html : ", "_html) << TCount{count} << (count == 1 ? one : many);
      isFirst = false;
   };
   write(differences.fDiffer, " differs"_html, " differ"_html);
   write(differences.fMissing, " missing"_html, " missing"_html);
   write(differences.fUnique, " unique"_html, " unique"_html);
}
