#include "html/HtmlComparison.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace {

constexpr std::size_t kMostOutliers = 10;
// Units: bytes. The page that the line leads to has the whole text.
constexpr std::size_t kLongestValue = 120;
constexpr std::size_t kMostValues = 4;
/// So that one report does not fill the list alone.
constexpr std::size_t kFirstOutliers = 2;

/// What to look at first: firmware, hardware and settings. Processes come and go.
constexpr std::array<std::string_view, 6> kFirstPages = {
   "firmware", "hw_info", "pci_info", "net", "system_overview", "os_config"};
constexpr std::string_view kLastPage = "processes";

std::size_t GetRank(const THtmlPage& page)
{
   if (page.fLinkName == kLastPage)
      return kFirstPages.size() + 1;
   return static_cast<std::size_t>(
      std::find(kFirstPages.begin(), kFirstPages.end(), page.fLinkName) - kFirstPages.begin());
}

/// A report of the index with what differs in it. Missing: no page, nothing differs.
struct TComparedReport
{
   const TReportIndex::TEntry* fEntry;
   const THtmlPage* fPage;

   std::uint64_t GetCount() const { return fPage == nullptr ? 0 : fPage->fDifferences.GetCount(); }
};

struct TShownOutlier
{
   const THtmlPage* fPage;
   const TOutlier* fOutlier;
};

class TComparisonPage
{
public:
   TComparisonPage(THtmlSink& out, const THtmlSite& site)
      : fOut(out), fSite(site), fSystems(site.fSystems)
   {
      for (const TReportIndex::TGroup& group : site.fIndex.GetGroups())
         for (const TReportIndex::TEntry& entry : group.fEntries)
            fReports.push_back({&entry, entry.IsLinked() ? &site.fPages[entry.fPage] : nullptr});
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
      WriteOutliers();
      WriteReports();
      WriteFrameEnd(fOut, fSite, "");
   }

private:
   bool HasMajority() const { return fSystems.GetCount() > 2; }

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
         fOut << TCount{fDiffering} << " of "_html << TCount{fReports.size()}
              << (fReports.size() == 1 ? " report differs"_html : " reports differ"_html);
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

   /// Whether several systems each have an instance that the others lack under the same title: then
   /// it is their names that differ, which says little.
   bool IsNamedApart(const std::vector<TOutlier>& outliers, const TOutlier& outlier) const
   {
      return HasMajority() && outlier.fProperty.empty() &&
             std::any_of(outliers.begin(), outliers.end(), [&](const TOutlier& other) {
                return other.fProperty.empty() && other.fSection == outlier.fSection &&
                       other.GetSystem() != outlier.GetSystem();
             });
   }

   std::vector<TShownOutlier> ChooseOutliers() const
   {
      std::vector<const THtmlPage*> pages;
      for (const TComparedReport& report : fReports)
         if (report.fPage != nullptr)
            pages.push_back(report.fPage);
      std::stable_sort(pages.begin(), pages.end(), [](const THtmlPage* a, const THtmlPage* b) {
         return GetRank(*a) < GetRank(*b);
      });
      std::vector<TShownOutlier> chosen;
      const auto take = [&](std::size_t begin, std::size_t end) {
         for (const THtmlPage* page : pages) {
            const std::vector<TOutlier>& outliers = page->fDifferences.fOutliers;
            for (std::size_t i = begin; i < std::min(end, outliers.size()); ++i)
               if (chosen.size() < kMostOutliers && !IsNamedApart(outliers, outliers[i]))
                  chosen.push_back({page, &outliers[i]});
         }
      };
      take(0, kFirstOutliers);
      take(kFirstOutliers, kMostOutliers);
      std::stable_sort(chosen.begin(), chosen.end(),
                       [](const TShownOutlier& a, const TShownOutlier& b) {
                          return GetRank(*a.fPage) < GetRank(*b.fPage);
                       });
      return chosen;
   }

   void WriteOutliers()
   {
      const std::vector<TShownOutlier> chosen = ChooseOutliers();
      if (chosen.empty())
         return;
      fOut << "<section>\n<div class=\"section-head\"><h2 id=\"apart\">"_html
           << (HasMajority() ? "Where a system stands apart"_html : "Where they differ"_html)
           << (HasMajority()
                  ? "</h2><p>What most systems share, and who has another value. At most "
                    "ten lines; firmware, hardware and settings first.</p></div>"_html
                  : "</h2><p>At most ten lines; firmware, hardware and settings "
                    "first.</p></div>"_html)
           << "\n"
              "<div class=\"scroll\" role=\"group\" tabindex=\"0\" aria-labelledby=\"apart\">\n"
              "<table class=\"compare\">\n<thead><tr><th scope=\"col\">Item</th>"
              "<th scope=\"col\">Property</th>"_html;
      if (HasMajority())
         fOut << "<th scope=\"col\">Majority</th><th scope=\"col\" class=\"num\">Systems</th>"
                 "<th scope=\"col\">Outlier</th><th scope=\"col\">On</th>"_html;
      else
         for (const std::size_t system : {0, 1}) {
            fOut << "<th scope=\"col\">"_html;
            fSystems.Write(fOut, system);
            fOut << "</th>"_html;
         }
      fOut << "</tr></thead>\n<tbody>\n"_html;
      for (const TShownOutlier& outlier : chosen)
         WriteOutlier(*outlier.fPage, *outlier.fOutlier);
      fOut << "</tbody>\n</table>\n</div>\n</section>\n"_html;
   }

   void WriteOutlier(const THtmlPage& page, const TOutlier& outlier)
   {
      const std::string& section = outlier.fSection.empty() ? page.fTitle : outlier.fSection;
      fOut << "<tr><th scope=\"row\""_html;
      WriteRowSpan(outlier);
      fOut << "><a href=\""_html << TFileUrl{page.GetFileName(outlier.fFile)} << "#t"_html
           << TNumber{outlier.fTable} << "\">"_html
           << TText{outlier.fItem.empty() ? section : outlier.fItem} << "</a>"_html;
      if (!outlier.fItem.empty() && outlier.fItem != section)
         fOut << " <small>"_html << TText{section} << "</small>"_html;
      fOut << "</th><td"_html;
      WriteRowSpan(outlier);
      fOut << ">"_html << TText{outlier.fProperty} << "</td><td class=\"majority\""_html;
      WriteRowSpan(outlier);
      fOut << ">"_html;
      WriteValue(outlier.fMajority, outlier.fValues.front().fText);
      fOut << "</td>"_html;
      if (HasMajority()) {
         fOut << "<td class=\"num majority\""_html;
         WriteRowSpan(outlier);
         fOut << ">"_html << TCount{outlier.fMajorityCount} << " of "_html
              << TCount{fSystems.GetCount()} << "</td>"_html;
      }
      for (std::size_t i = 0; i < CountShownValues(outlier); ++i) {
         fOut << (i > 0 ? "</tr>\n<tr class=\"more\">"_html : ""_html);
         WriteOutlierValue(outlier, i);
      }
      fOut << "</tr>\n"_html;
   }

   static std::size_t CountShownValues(const TOutlier& outlier)
   {
      return std::min(kMostValues, outlier.fValues.size());
   }

   void WriteRowSpan(const TOutlier& outlier)
   {
      if (CountShownValues(outlier) > 1)
         fOut << " rowspan=\""_html << TNumber{CountShownValues(outlier)} << "\""_html;
   }

   void WriteOutlierValue(const TOutlier& outlier, std::size_t number)
   {
      const TOutlierValue& value = outlier.fValues[number];
      fOut << "<td class=\"outlier\">"_html;
      WriteValue(value.fText, outlier.fMajority);
      const std::size_t left = outlier.fValues.size() - number - 1;
      if (number + 1 == kMostValues && left > 0)
         fOut << " <small>and "_html << TCount{left}
              << (left == 1 ? " more value</small>"_html : " more values</small>"_html);
      fOut << "</td>"_html;
      if (!HasMajority())
         return;
      fOut << (value.fSystems.size() == 1 ? "<td class=\"on one\">"_html
                                          : "<td class=\"on\">"_html);
      for (const std::size_t system : value.fSystems) {
         fSystems.Write(fOut, system);
         fOut << " "_html;
      }
      fOut << "</td>"_html;
   }

   /// Of a text of several lines, the first one that differs from the other text.
   void WriteValue(const std::string& value, const std::string& other)
   {
      std::uint64_t line = 1;
      std::size_t begin = 0;
      const std::size_t common = std::min(value.size(), other.size());
      for (std::size_t i = 0; i < common && value[i] == other[i]; ++i)
         if (value[i] == '\n') {
            ++line;
            begin = i + 1;
         }
      if (value.find('\n') != std::string::npos || other.find('\n') != std::string::npos)
         fOut << "line "_html << TCount{line} << ": "_html;
      WriteShort(value.substr(begin, value.find('\n', begin) - begin));
   }

   void WriteShort(const std::string& text)
   {
      if (IsBlank(text))
         fOut << "no value"_html;
      else if (text.size() <= kLongestValue)
         fOut << TText{text};
      else {
         std::size_t end = kLongestValue;
         while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80)
            --end;
         fOut << TText{std::string_view(text).substr(0, end)} << "\u2026"_html;
      }
   }

   void WriteReports()
   {
      fOut << "<section>\n"_html;
      if (fDiffering > 0) {
         fOut << "<div class=\"section-head\"><h2 id=\"index\">Reports, most different first</h2>"
                 "<p>Counts are instances; the longest bar is the report with the most.</p></div>\n"
                 "<div class=\"scroll\" role=\"group\" tabindex=\"0\" aria-labelledby=\"index\">\n"
                 "<table class=\"compare reports\">\n<thead><tr><th scope=\"col\">Report</th>"
                 "<th scope=\"col\" class=\"c-bar\">Differences</th>"
                 "<th scope=\"col\" class=\"num\">Differ</th><th scope=\"col\" "
                 "class=\"num\">Missing</th><th scope=\"col\" class=\"num\">Unique</th>"
                 "<th scope=\"col\">Verdict</th></tr></thead>\n<tbody>\n"_html;
         for (const TComparedReport& report : fReports)
            if (report.GetCount() > 0)
               WriteReport(report);
         fOut << "</tbody>\n</table>\n</div>\n"_html;
         WriteLegend();
      }
      WriteAlike();
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
      fOut << "\"><rect class=\"f-track\" width=\"100%\" height=\"12\"/>"_html;
      std::uint64_t before = 0;
      WriteBarPart("<rect class=\"f-diff\" height=\"12\""_html, before, differences.fDiffer);
      WriteBarPart("<rect class=\"f-ink\" height=\"12\""_html, before, differences.fMissing);
      WriteBarPart("<rect class=\"f-outline\" y=\"0.75\" height=\"10.5\""_html, before,
                   differences.fUnique);
      fOut << "</svg>"_html;
   }

   void WriteBarPart(TMarkup begin, std::uint64_t& before, std::uint64_t count)
   {
      if (count == 0)
         return;
      const auto whole = static_cast<double>(fReports.front().GetCount());
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
      fOut << "<p class=\"legend\">"_html << kBegin
           << "f-diff\" width=\"100%\" height=\"12\"/></svg> differ "_html << kBegin
           << "f-ink\" width=\"100%\" height=\"12\"/></svg> missing from a system "_html << kBegin
           << "f-outline\" x=\"1\" y=\"0.75\" width=\"22\" height=\"10.5\"/></svg> unique to a "
              "system</p>\n"_html;
   }

   /// A report that has no data on any system can't be told from one that has the same.
   void WriteAlike()
   {
      if (fDiffering == fReports.size())
         return;
      fOut << "<p class=\"same-line\">Nothing differs in "_html;
      bool isFirst = true;
      for (const TComparedReport& report : fReports) {
         if (report.GetCount() > 0)
            continue;
         fOut << (isFirst ? ""_html : ", "_html) << "<bdi>"_html
              << TText{GetShownName(*report.fEntry)} << "</bdi>"_html;
         isFirst = false;
      }
      fOut << ".</p>\n"_html;
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
