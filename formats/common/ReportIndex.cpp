#include "common/ReportIndex.h"

namespace {

constexpr const char* kGroupOfTheRest = "Other";

}  // namespace

void TReportIndex::AddEntry(const std::string& linkName, const std::string& displayName,
                            bool hasData)
{
   if (!fIsOpen)
      BeginGroup(kGroupOfTheRest);

   TEntry entry{linkName, displayName, hasData, true, kNoPage};
   entry.fPage = FindUntakenPage(linkName, hasData);
   if (entry.fPage != kNoPage)
      fPages[entry.fPage].fIsTaken = true;
   fGroups.back().fEntries.push_back(entry);
}

std::size_t TReportIndex::FindUntakenPage(const std::string& linkName, bool hasData) const
{
   if (linkName.empty())
      return kNoPage;
   for (std::size_t i = fPages.size(); i-- > 0;) {
      if (fPages[i].fLinkName == linkName && !fPages[i].fIsTaken)
         return i;
      // A report without data has closed its page just before, or has none.
      if (!hasData)
         break;
   }
   return kNoPage;
}

std::size_t TReportIndex::AddPage(const std::string& linkName)
{
   const std::size_t page = fPages.size();
   fPages.push_back({linkName, false});
   for (TGroup& group : fGroups)
      for (TEntry& entry : group.fEntries) {
         const bool waits = entry.fHasData && entry.fPage == kNoPage;
         if (!waits || entry.fLinkName != linkName || fPages[page].fIsTaken)
            continue;
         fPages[page].fIsTaken = true;
         entry.fPage = page;
      }
   return page;
}

void TReportIndex::Resolve()
{
   for (TGroup& group : fGroups)
      for (TEntry& entry : group.fEntries)
         if (entry.fHasData && entry.fPage == kNoPage && !entry.fLinkName.empty())
            entry.fPage = FindPage(entry.fLinkName, fPages.size());
}

void TReportIndex::MarkCollected(const std::function<bool(const TEntry&)>& isCollected)
{
   for (TGroup& group : fGroups)
      for (TEntry& entry : group.fEntries)
         entry.fIsCollected = isCollected(entry);
}

std::size_t TReportIndex::FindPage(const std::string& linkName, std::size_t fromPage) const
{
   for (std::size_t i = fromPage; i-- > 0;)
      if (fPages[i].fLinkName == linkName)
         return i;
   for (std::size_t i = fromPage + 1; i < fPages.size(); ++i)
      if (fPages[i].fLinkName == linkName)
         return i;
   return kNoPage;
}

std::vector<TReportIndex::TPlace> TReportIndex::GetPlaces() const
{
   std::vector<TPlace> places(fPages.size());
   for (const TGroup& group : fGroups)
      for (const TEntry& entry : group.fEntries)
         if (entry.fPage != kNoPage && places[entry.fPage].fEntry == nullptr)
            places[entry.fPage] = {&group, &entry};
   return places;
}
