#include "html/PageDifferences.h"

#include <map>

namespace {

constexpr const char* kPresent = "present";
constexpr const char* kAbsent = "missing";
constexpr std::size_t kNoRow = static_cast<std::size_t>(-1);

/// What says most about a firmware or a package.
bool IsVersion(const std::string& property)
{
   return property.find("Version") != std::string::npos;
}

}  // namespace

std::size_t TPageDifferences::FindApart() const
{
   for (std::size_t system = 0; system < fApart.size(); ++system)
      if (fApart[system] > 0 && fApart[system] == GetCount())
         return system;
   return THtmlSystems::kNone;
}

TDifferenceCounter::TDifferenceCounter(const THtmlSystems& systems, TPageDifferences& page)
   : fSystems(systems), fPage(page)
{
   fPage.fApart.resize(systems.GetCount());
}

void TDifferenceCounter::OnTitle(const TTableTitle& title)
{
   FinishInstance();
   if (!title.fIsSubTitle || !title.fIsEmphasised) {
      fSection = title.fText;
      return;
   }
   const TComparedHeading heading(title.fText, fSystems);
   fKind = heading.fKind;
   fHeadingSystems = heading.fSystems;
   fPage.fDiffer += fKind == TComparedHeading::kDifferences;
   fPage.fMissing += fKind == TComparedHeading::kMissing;
   fPage.fUnique += fKind == TComparedHeading::kUnique;
   // Of differences, the table above the heading has the name.
   if (fKind != TComparedHeading::kDifferences)
      fHasName = false;
}

void TDifferenceCounter::OnTable(const TTableShape& shape)
{
   fShape = shape;
   if (shape.fMarked)
      return;
   FinishInstance();
   fHasName = false;
}

void TDifferenceCounter::OnRows(const TTableRows& rows)
{
   if (fKind == TComparedHeading::kDifferences)
      CompareColumns(rows);
   else if (!fHasName)
      TakeName(rows);
}

void TDifferenceCounter::OnTableEnd(std::size_t file, unsigned table)
{
   if (fKind == TComparedHeading::kOther)
      return;
   const bool isByPresence = fKind != TComparedHeading::kDifferences;
   if (isByPresence && !fHasOutlier)
      SetApartByPresence();
   if (fOutlier.fTable == 0) {
      fOutlier.fFile = file;
      fOutlier.fTable = table;
   }
}

/// The first value of an instance is what its report lists it by.
void TDifferenceCounter::TakeName(const TTableRows& rows)
{
   for (std::size_t r = 0; r < rows.GetRowCount() && !fHasName; ++r)
      for (std::size_t c = 0; c < rows.GetCellCount(r) && !fHasName; ++c) {
         const TCell cell = rows.GetCell(r, c);
         fHasName = !cell.fIsLabel && !IsBlank(cell.fText);
         if (fHasName)
            fOutlier.fItem = cell.fText;
      }
}

/// A system without a row has the values of the base.
void TDifferenceCounter::CompareColumns(const TTableRows& rows)
{
   std::vector<std::size_t> rowOfSystem(fSystems.GetCount(), kNoRow);
   for (std::size_t r = 0; r < rows.GetRowCount(); ++r) {
      const std::size_t system = fSystems.Find(rows.GetCell(r, 0).fText);
      if (system != THtmlSystems::kNone)
         rowOfSystem[system] = r;
   }
   // Without the base's row its values are not known.
   if (rowOfSystem.empty() || rowOfSystem[0] == kNoRow) {
      fIsOneApart = false;
      return;
   }
   for (std::size_t c = 1; c < fShape.fLabels.size(); ++c)
      CompareColumn(rows, c, rowOfSystem);
}

void TDifferenceCounter::CompareColumn(const TTableRows& rows, std::size_t column,
                                       const std::vector<std::size_t>& rowOfSystem)
{
   const std::string_view base = rows.GetCell(rowOfSystem[0], column).fText;
   std::map<std::string_view, std::vector<std::size_t>> systemsOf;
   for (std::size_t system = 0; system < rowOfSystem.size(); ++system) {
      std::string_view text = base;
      if (rowOfSystem[system] != kNoRow) {
         const TCell cell = rows.GetCell(rowOfSystem[system], column);
         text = cell.fSame ? base : cell.fText;
      }
      systemsOf[text].push_back(system);
   }
   if (systemsOf.size() != 2) {
      fIsOneApart = false;
      return;
   }
   const auto& [firstText, firstSystems] = *systemsOf.begin();
   const auto& [lastText, lastSystems] = *systemsOf.rbegin();
   // Of two systems, the one that is not the base.
   const bool isFirstApart = firstSystems.size() == 1 && firstSystems.front() != 0;
   const bool isBaseApart = systemsOf[base].size() == 1 && rowOfSystem.size() > 2;
   const bool takesFirst = isBaseApart ? firstText == base : isFirstApart;
   const std::vector<std::size_t>& apart = takesFirst ? firstSystems : lastSystems;
   if (apart.size() != 1) {
      fIsOneApart = false;
      return;
   }
   if (fHasOutlier && fOutlier.fSystem != apart.front())
      fIsOneApart = false;
   const std::string& property = fShape.fLabels[column];
   if (fHasOutlier && (IsVersion(fOutlier.fProperty) || !IsVersion(property)))
      return;
   fHasOutlier = true;
   fOutlier.fProperty = property;
   fOutlier.fSystem = apart.front();
   fOutlier.fMajority = takesFirst ? lastText : firstText;
   fOutlier.fValue = takesFirst ? firstText : lastText;
}

/// One that alone lacks the instance, or alone has it.
void TDifferenceCounter::SetApartByPresence()
{
   const bool isMissing = fKind == TComparedHeading::kMissing;
   const std::size_t count = fSystems.GetCount();
   std::vector<bool> has(count, isMissing);
   for (const std::size_t system : fHeadingSystems)
      has[system] = !isMissing;
   std::vector<std::size_t> present;
   std::vector<std::size_t> absent;
   for (std::size_t system = 0; system < count; ++system)
      (has[system] ? present : absent).push_back(system);
   const bool isPairOfBase = count == 2 && present.size() == 1 && present.front() == 0;
   const bool isPresentApart = present.size() == 1 && !isPairOfBase;
   fIsOneApart = isPresentApart || absent.size() == 1;
   if (!fIsOneApart)
      return;
   fHasOutlier = true;
   fOutlier.fSystem = isPresentApart ? present.front() : absent.front();
   fOutlier.fMajority = isPresentApart ? kAbsent : kPresent;
   fOutlier.fValue = isPresentApart ? kPresent : kAbsent;
}

void TDifferenceCounter::FinishInstance()
{
   if (fKind != TComparedHeading::kOther && fHasOutlier) {
      if (fIsOneApart)
         ++fPage.fApart[fOutlier.fSystem];
      if (fPage.fOutliers.size() < TPageDifferences::kMostOutliers) {
         fOutlier.fSection = fSection;
         fPage.fOutliers.push_back(fOutlier);
      }
   }
   // The name stays for the heading that follows its table.
   const std::string name = fOutlier.fItem;
   fOutlier = TOutlier();
   fOutlier.fItem = name;
   fHasOutlier = false;
   fIsOneApart = true;
   fKind = TComparedHeading::kOther;
}
