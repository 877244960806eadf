#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

/// Which page belongs to which index entry, for a run in which link names repeat and an entry may
/// come before its page.
///
/// An entry with data takes the last page opened under its link name that no entry has taken; where
/// there is none, the next page opened under that name; where none comes, the last page of that
/// name. An entry without data takes the page opened last, if that has its link name.
class TReportIndex
{
public:
   static constexpr std::size_t kNoPage = static_cast<std::size_t>(-1);

   struct TEntry
   {
      std::string fLinkName;
      std::string fDisplayName;
      bool fHasData = false;
      /// Whether somebody looked at what the report is about.
      bool fIsCollected = true;
      /// Number of the page, kNoPage where there is none.
      std::size_t fPage = kNoPage;

      /// Whether readers are led to the page.
      bool IsLinked() const { return fHasData && fPage != kNoPage; }
   };

   struct TGroup
   {
      std::string fHeading;
      std::vector<TEntry> fEntries;
   };

   void BeginGroup(const std::string& heading)
   {
      fGroups.push_back({heading, {}});
      fIsOpen = true;
   }

   void EndGroup() { fIsOpen = false; }

   /// Adds to the open group, or to one called "Other" where none is open.
   void AddEntry(const std::string& linkName, const std::string& displayName, bool hasData);

   /// Pages are numbered from 0 in the order in which they are opened.
   std::size_t AddPage(const std::string& linkName);

   /// After the last entry and page.
   void Resolve();

   const std::vector<TGroup>& GetGroups() const { return fGroups; }

   /// Asked of each entry.
   void MarkCollected(const std::function<bool(const TEntry&)>& isCollected);

   /// The page that a link of another page means: the last of that name opened before, else the
   /// first one after it. Missing: kNoPage.
   std::size_t FindPage(const std::string& linkName, std::size_t fromPage) const;

   struct TPlace
   {
      const TGroup* fGroup = nullptr;
      const TEntry* fEntry = nullptr;
   };

   /// The entry of each page, in the order of the pages. Missing: empty pointers.
   /// Owner: valid until the index changes.
   std::vector<TPlace> GetPlaces() const;

private:
   struct TPage
   {
      std::string fLinkName;
      bool fIsTaken = false;
   };

   std::size_t FindUntakenPage(const std::string& linkName, bool hasData) const;

   std::vector<TGroup> fGroups;
   std::vector<TPage> fPages;
   bool fIsOpen = false;
};
