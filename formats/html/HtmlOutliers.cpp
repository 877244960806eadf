#include "html/HtmlOutliers.h"

#include <algorithm>
#include <array>

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

struct TShownOutlier
{
   const THtmlPage* fPage;
   const TOutlier* fOutlier;
};

class TOutlierTable
{
public:
   TOutlierTable(THtmlSink& out, const THtmlSystems& systems, std::vector<const THtmlPage*> pages)
      : fOut(out), fSystems(systems), fPages(std::move(pages))
   {}

   void Write()
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
         for (const std::size_t system : {std::size_t{0}, std::size_t{1}}) {
            fOut << "<th scope=\"col\">"_html;
            fSystems.Write(fOut, system);
            fOut << "</th>"_html;
         }
      fOut << "</tr></thead>\n<tbody>\n"_html;
      for (const TShownOutlier& outlier : chosen)
         WriteOutlier(*outlier.fPage, *outlier.fOutlier);
      fOut << "</tbody>\n</table>\n</div>\n</section>\n"_html;
   }

private:
   bool HasMajority() const { return fSystems.GetCount() > 2; }

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
      std::vector<const THtmlPage*> pages = fPages;
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

   THtmlSink& fOut;
   const THtmlSystems& fSystems;
   const std::vector<const THtmlPage*> fPages;
};

}  // namespace

void WriteOutliers(THtmlSink& out, const THtmlSystems& systems,
                   const std::vector<const THtmlPage*>& pages)
{
   TOutlierTable(out, systems, pages).Write();
}
