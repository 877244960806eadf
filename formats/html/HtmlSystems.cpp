#include "html/HtmlSystems.h"

#include <algorithm>

namespace {

constexpr std::string_view kDifferencesTitle = "Differences";
constexpr std::string_view kMissingTitle = "Missing from ";
constexpr std::string_view kUniqueTitle = "Unique to ";
constexpr std::string_view kSeparator = ", ";

bool StartsWith(std::string_view text, std::string_view begin)
{
   return text.substr(0, begin.size()) == begin;
}

}  // namespace

THtmlSystems::THtmlSystems(const TRunFacts& facts)
{
   for (const TComparedSystem& system : facts.fComparedSystems)
      fLabels.push_back(system.fLabel);
}

std::string THtmlSystems::GetLetter(std::size_t system)
{
   constexpr std::size_t kLetters = 26;
   const std::string last(1, static_cast<char>('A' + system % kLetters));
   return system < kLetters ? last : GetLetter(system / kLetters - 1) + last;
}

std::size_t THtmlSystems::Find(std::string_view label) const
{
   const auto found = std::find(fLabels.begin(), fLabels.end(), label);
   return found == fLabels.end() ? kNone : static_cast<std::size_t>(found - fLabels.begin());
}

std::vector<std::size_t> THtmlSystems::FindList(std::string_view labels) const
{
   std::vector<std::size_t> systems;
   while (!labels.empty()) {
      // A label may have a separator of its own: the longest that fits counts.
      std::size_t best = kNone;
      for (std::size_t i = 0; i < fLabels.size(); ++i) {
         const std::string& label = fLabels[i];
         const bool fits =
            StartsWith(labels, label) &&
            (labels.size() == label.size() || StartsWith(labels.substr(label.size()), kSeparator));
         if (fits && (best == kNone || label.size() > fLabels[best].size()))
            best = i;
      }
      if (best == kNone)
         return {};
      systems.push_back(best);
      labels.remove_prefix(std::min(labels.size(), fLabels[best].size() + kSeparator.size()));
   }
   return systems;
}

void THtmlSystems::Write(THtmlSink& out, std::size_t system) const
{
   if (GetCount() <= kMostLabels)
      return WriteWithLabel(out, system);
   out << (system == 0 ? "<span class=\"sys base alone\" title=\""_html
                       : "<span class=\"sys alone\" title=\""_html)
       << TText{fLabels[system]} << "\" aria-hidden=\"true\">"_html << TText{GetLetter(system)}
       << "</span><span class=\"vh\">"_html << TText{fLabels[system]} << "</span>"_html;
}

void THtmlSystems::WriteWithLabel(THtmlSink& out, std::size_t system) const
{
   out << (system == 0 ? "<span class=\"sys base\""_html : "<span class=\"sys\""_html)
       << " aria-hidden=\"true\">"_html << TText{GetLetter(system)} << "</span>"_html
       << TText{fLabels[system]};
}

TComparedHeading::TComparedHeading(const std::string& text, const THtmlSystems& systems)
{
   const std::string_view view = text;
   if (view == kDifferencesTitle)
      fKind = kDifferences;
   else if (StartsWith(view, kMissingTitle)) {
      fKind = kMissing;
      fSystems = systems.FindList(view.substr(kMissingTitle.size()));
   } else if (StartsWith(view, kUniqueTitle)) {
      fKind = kUnique;
      fSystems = systems.FindList(view.substr(kUniqueTitle.size()));
   }
}
