#include "html/PageDifferences.h"

#include <algorithm>

namespace {

constexpr const char* kPresent = "present";
constexpr const char* kAbsent = "missing";
constexpr std::size_t kNoRow = static_cast<std::size_t>(-1);

/// What says most about a firmware or a package.
bool IsVersion(const std::string& property)
{
   return property.find("Version") != std::string::npos;
}

/// What most systems have, and who has another value. Of two systems, the base is most.
/// Missing: false where all have the same or no value is that of most.
bool FindOutlier(const std::vector<TOutlierValue>& values, std::size_t systems, TOutlier& found)
{
   const auto isMost = [systems](const TOutlierValue& value) {
      return systems == 2 ? value.fSystems.front() == 0 : value.fSystems.size() * 2 > systems;
   };
   const auto most = std::find_if(values.begin(), values.end(), isMost);
   if (most == values.end() || values.size() < 2)
      return false;
   found.fMajority = most->fText;
   found.fMajorityCount = most->fSystems.size();
   for (auto value = values.begin(); value != values.end(); ++value)
      if (value != most)
         found.fValues.push_back(*value);
   return true;
}

}  // namespace

std::size_t TOutlier::GetSystem() const
{
   const bool isOne = fValues.size() == 1 && fValues.front().fSystems.size() == 1;
   return isOne ? fValues.front().fSystems.front() : THtmlSystems::kNone;
}

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
   fPage.fSame += title.fSameItems;
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
   const TCell baseCell = rows.GetCell(rowOfSystem[0], column);
   std::vector<TOutlierValue> values;
   for (std::size_t system = 0; system < rowOfSystem.size(); ++system) {
      TCell cell = baseCell;
      if (rowOfSystem[system] != kNoRow)
         cell = rows.GetCell(rowOfSystem[system], column);
      const std::string_view text = cell.fSame ? baseCell.fText : cell.fText;
      auto value = std::find_if(values.begin(), values.end(),
                                [text](const TOutlierValue& at) { return at.fText == text; });
      if (value == values.end())
         value = values.insert(values.end(), {std::string(text), {}});
      value->fSystems.push_back(system);
   }
   const std::string& property = fShape.fLabels[column];
   const bool isWorse = fHasOutlier && (IsVersion(fOutlier.fProperty) || !IsVersion(property));
   TOutlier found;
   if (!FindOutlier(values, rowOfSystem.size(), found)) {
      fIsOneApart = false;
      return;
   }
   if (found.GetSystem() == THtmlSystems::kNone ||
       (fHasOutlier && fOutlier.GetSystem() != found.GetSystem()))
      fIsOneApart = false;
   if (isWorse)
      return;
   TakeOutlier(found);
   fOutlier.fProperty = property;
}

/// Most have the instance, or most lack it.
void TDifferenceCounter::SetApartByPresence()
{
   const bool isMissing = fKind == TComparedHeading::kMissing;
   std::vector<bool> has(fSystems.GetCount(), isMissing);
   for (const std::size_t system : fHeadingSystems)
      has[system] = !isMissing;
   // Of two systems, what the base has comes first.
   std::vector<TOutlierValue> values = {{has.front() ? kPresent : kAbsent, {}},
                                        {has.front() ? kAbsent : kPresent, {}}};
   for (std::size_t system = 0; system < has.size(); ++system)
      values[has[system] == has.front() ? 0 : 1].fSystems.push_back(system);
   TOutlier found;
   if (FindOutlier(values, has.size(), found))
      TakeOutlier(found);
   fIsOneApart = fHasOutlier && fOutlier.GetSystem() != THtmlSystems::kNone;
}

void TDifferenceCounter::TakeOutlier(TOutlier& found)
{
   fHasOutlier = true;
   fOutlier.fMajority = std::move(found.fMajority);
   fOutlier.fMajorityCount = found.fMajorityCount;
   fOutlier.fValues = std::move(found.fValues);
}

void TDifferenceCounter::FinishInstance()
{
   if (fKind != TComparedHeading::kOther && fHasOutlier) {
      if (fIsOneApart)
         ++fPage.fApart[fOutlier.GetSystem()];
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
