#include "html/PairedItems.h"

#include <algorithm>
#include <unordered_map>

namespace {

constexpr const char* kDifferences = "Differences";
// A control character, which no text of a page has.
constexpr char kCellEnd = '\x1F';
constexpr std::size_t kMostNames = 10;

/// The first value of an instance is what its report lists it by.
std::string GetName(const TTableRows& rows)
{
   for (std::size_t row = 0; row < rows.GetRowCount(); ++row)
      for (std::size_t column = 0; column < rows.GetCellCount(row); ++column) {
         const TCell cell = rows.GetCell(row, column);
         if (!cell.fIsLabel && !IsBlank(cell.fText))
            return std::string(cell.fText);
      }
   return {};
}

/// The labels and values of a table of one instance. Missing: empty for a table of any other form.
std::vector<std::pair<std::string, TCell>> ReadValues(const TTableShape& shape,
                                                      const TTableRows& rows)
{
   std::vector<std::pair<std::string, TCell>> values;
   if (shape.fKind == ETableKind::kRows) {
      for (std::size_t row = 0; row < rows.GetRowCount(); ++row) {
         if (rows.GetCellCount(row) != 2)
            return {};
         values.emplace_back(rows.GetCell(row, 0).fText, rows.GetCell(row, 1));
      }
      return values;
   }
   if (rows.GetRowCount() != 1 || rows.GetCellCount(0) != shape.fLabels.size())
      return {};
   for (std::size_t column = 0; column < shape.fLabels.size(); ++column)
      values.emplace_back(shape.fLabels[column], rows.GetCell(0, column));
   return values;
}

}  // namespace

void TPairedItems::WriteReportTitle(const std::string& title, const std::string& linkText,
                                    const std::string& linkTarget)
{
   Settle();
   fPage.WriteReportTitle(title, linkText, linkTarget);
}

void TPairedItems::WriteTableTitle(const TTableTitle& title)
{
   if (!title.fIsSubTitle || !title.fIsEmphasised) {
      if (fIsItemOpen && title.fIsSubTitle && title.fSameItems == 0) {
         fItemTitle = title;
         return;
      }
      Settle();
      return fPage.WriteTableTitle(title);
   }
   const TComparedHeading heading(title.fText, fSystems);
   if (!heading.fSystems.empty())
      return BeginItem(heading);
   Settle();
   fPage.WriteTableTitle(title);
}

void TPairedItems::WriteNote(const std::string& text)
{
   Settle();
   fPage.WriteNote(text);
}

void TPairedItems::BeginTable(const TTableShape& shape)
{
   // What is not marked is the next instance that differs, of a class without a title.
   if (fIsItemOpen && !shape.fMarked)
      Settle();
   if (!fIsItemOpen)
      return fPage.BeginTable(shape);
   TItem& item = fItems.back();
   item.fTables.emplace_back();
   item.fTables.back().fTitle = fItemTitle;
   item.fTables.back().fShape = shape;
   fItemTitle.reset();
   for (const std::string& label : shape.fLabels)
      item.fContent.append(label) += kCellEnd;
}

void TPairedItems::WriteRows(const TTableRows& rows)
{
   if (!fIsItemOpen)
      return fPage.WriteRows(rows);
   TItem& item = fItems.back();
   for (std::size_t row = 0; row < rows.GetRowCount(); ++row) {
      item.fTables.back().fRows.BeginRow();
      for (std::size_t column = 0; column < rows.GetCellCount(row); ++column) {
         const TCell cell = rows.GetCell(row, column);
         item.fTables.back().fRows.AddCell(cell);
         item.fContent.append(cell.fText) += kCellEnd;
      }
   }
}

void TPairedItems::EndTable()
{
   if (!fIsItemOpen)
      fPage.EndTable();
}

void TPairedItems::BeginItem(const TComparedHeading& heading)
{
   TItem item;
   item.fIsMissing = heading.fKind == TComparedHeading::kMissing;
   item.fIsUnique = !item.fIsMissing;
   item.fHas.assign(fSystems.GetCount(), item.fIsMissing);
   for (const std::size_t system : heading.fSystems)
      item.fHas[system] = item.fIsUnique;
   fItems.push_back(std::move(item));
   fIsItemOpen = true;
   fItemTitle.reset();
}

void TPairedItems::Settle()
{
   fIsItemOpen = false;
   if (fItems.empty())
      return;
   MergeAlike();
   std::vector<const TItem*> alike;
   const bool isPaired = WriteCounterparts();
   for (const TItem& item : fItems) {
      if (item.fTables.size() > 1 && item.fIsMissing && item.fIsUnique)
         WriteParts(item);
      else if (item.IsEverywhere())
         alike.push_back(&item);
      else if (!isPaired)
         WriteItem(item);
   }
   WriteAlikeNote(alike);
   fItems.clear();
}

bool TPairedItems::TItem::IsEverywhere() const
{
   return std::find(fHas.begin(), fHas.end(), false) == fHas.end();
}

/// Missing: false where it stays another instance, as one system has both.
bool TPairedItems::TItem::Take(const TItem& alike)
{
   bool overlaps = false;
   for (std::size_t system = 0; system < fHas.size(); ++system)
      overlaps |= fHas[system] && alike.fHas[system];
   // With its parts it is listed twice where some of them are missing and others unique.
   const bool isOneOfParts = fTables.size() > 1 && fIsMissing != alike.fIsMissing;
   if (overlaps && !isOneOfParts)
      return false;
   fIsMissing |= alike.fIsMissing;
   fIsUnique |= alike.fIsUnique;
   for (std::size_t system = 0; system < fHas.size(); ++system)
      fHas[system] = fHas[system] || alike.fHas[system];
   return true;
}

/// Of items that look alike the first one stays.
void TPairedItems::MergeAlike()
{
   std::unordered_map<std::string_view, std::size_t> placeOf;
   std::vector<bool> isMerged(fItems.size(), false);
   for (std::size_t i = 0; i < fItems.size(); ++i) {
      if (fItems[i].fTables.empty())
         continue;
      const auto [place, isFirst] = placeOf.emplace(fItems[i].fContent, i);
      isMerged[i] = !isFirst && fItems[place->second].Take(fItems[i]);
   }
   placeOf.clear();
   std::size_t kept = 0;
   for (std::size_t i = 0; i < fItems.size(); ++i)
      if (!isMerged[i]) {
         if (kept != i)
            fItems[kept] = std::move(fItems[i]);
         ++kept;
      }
   fItems.resize(kept);
}

/// Where each system has one instance of its own and half of its values are those of most
/// systems: the values beside each other.
/// Missing: false where it is not so; nothing is written then.
bool TPairedItems::WriteCounterparts()
{
   std::vector<const TItem*> itemOf(fSystems.GetCount(), nullptr);
   for (const TItem& item : fItems) {
      if (item.IsEverywhere())
         continue;
      if (item.fTables.size() != 1)
         return false;
      for (std::size_t system = 0; system < itemOf.size(); ++system) {
         if (!item.fHas[system])
            continue;
         if (itemOf[system] != nullptr)
            return false;
         itemOf[system] = &item;
      }
   }
   const bool isComplete = std::find(itemOf.begin(), itemOf.end(), nullptr) == itemOf.end();
   if (!isComplete)
      return false;
   const std::vector<TPairedColumn> columns = FindDifferingColumns(itemOf);
   if (columns.empty())
      return false;
   WriteTables(*itemOf.front(), false);
   WriteDifferences(columns);
   return true;
}

/// Missing: empty where the tables have other labels or too little in common.
std::vector<TPairedItems::TPairedColumn> TPairedItems::FindDifferingColumns(
   const std::vector<const TItem*>& items) const
{
   std::vector<TPairedColumn> columns;
   for (const TItem* const item : items) {
      const auto values = ReadValues(item->fTables.front().fShape, item->fTables.front().fRows);
      if (item == items.front())
         columns.resize(values.size());
      if (values.size() != columns.size())
         return {};
      for (std::size_t i = 0; i < values.size(); ++i) {
         if (columns[i].fCells.empty())
            columns[i].fLabel = values[i].first;
         if (columns[i].fLabel != values[i].first)
            return {};
         columns[i].fCells.push_back(values[i].second);
      }
   }
   if (!AreMostlyAlike(columns))
      return {};
   columns.erase(std::remove_if(columns.begin(), columns.end(),
                                [](const TPairedColumn& column) { return column.IsAlike(); }),
                 columns.end());
   return columns;
}

bool TPairedItems::TPairedColumn::IsAlike() const
{
   return std::all_of(fCells.begin(), fCells.end(),
                      [this](const TCell& cell) { return cell.fText == fCells.front().fText; });
}

bool TPairedItems::TPairedColumn::IsMostlyAlike() const
{
   return std::any_of(fCells.begin(), fCells.end(), [this](const TCell& cell) {
      const auto count = std::count_if(fCells.begin(), fCells.end(), [&cell](const TCell& other) {
         return other.fText == cell.fText;
      });
      return static_cast<std::size_t>(count) * 2 > fCells.size();
   });
}

/// Whether most systems have the same in half of the properties that any has.
bool TPairedItems::AreMostlyAlike(const std::vector<TPairedColumn>& columns)
{
   std::ptrdiff_t alike = 0;
   for (const TPairedColumn& column : columns)
      if (!column.IsMostlyAlike())
         --alike;
      else if (!IsBlank(column.fCells.front().fText))
         ++alike;
   return alike >= 0;
}

void TPairedItems::WriteDifferences(const std::vector<TPairedColumn>& columns)
{
   TTableShape shape;
   shape.fMarked = true;
   shape.fHasRowLabels = true;
   shape.fLabels.emplace_back("Data Source");
   for (const TPairedColumn& column : columns)
      shape.fLabels.push_back(column.fLabel);
   TCollectedRows rows;
   for (std::size_t system = 0; system < fSystems.GetCount(); ++system) {
      rows.BeginRow();
      TCell label;
      label.fText = fSystems.GetLabel(system);
      label.fIsLabel = true;
      rows.AddCell(label);
      for (const TPairedColumn& column : columns) {
         TCell cell = column.fCells[system];
         cell.fIsLabel = false;
         cell.fSecondText = {};
         cell.fSame = system > 0 && cell.fText == column.fCells.front().fText;
         rows.AddCell(cell);
      }
   }
   fPage.WriteTableTitle({kDifferences, true, true});
   fPage.BeginTable(shape);
   fPage.WriteRows(rows);
   fPage.EndTable();
}

void TPairedItems::WriteItem(const TItem& item)
{
   const bool isMissing = item.fHas.front();
   fPage.WriteTableTitle(
      {(isMissing ? "Missing from " : "Unique to ") + JoinLabels(item, !isMissing), true, true});
   WriteTables(item, true);
}

/// An instance that is there everywhere, but not all that is associated with it.
void TPairedItems::WriteParts(const TItem& item)
{
   WriteTables(item, false);
   fPage.WriteTableTitle({kDifferences, true, true});
   fPage.WriteNote("Some of its parts are missing from a system, others are unique to one.");
}

void TPairedItems::WriteTables(const TItem& item, bool isMarked)
{
   for (const TItemTable& table : item.fTables) {
      if (table.fTitle)
         fPage.WriteTableTitle(*table.fTitle);
      TTableShape shape = table.fShape;
      shape.fMarked = isMarked;
      fPage.BeginTable(shape);
      fPage.WriteRows(table.fRows);
      fPage.EndTable();
   }
}

void TPairedItems::WriteAlikeNote(const std::vector<const TItem*>& items)
{
   if (items.empty())
      return;
   std::string text = "The same on all systems, each under a key of its own: ";
   for (std::size_t i = 0; i < std::min(kMostNames, items.size()); ++i) {
      const auto& tables = items[i]->fTables;
      const std::string name = tables.empty() ? std::string() : GetName(tables.front().fRows);
      text += (i > 0 ? ", " : "") + (name.empty() ? "one without a name" : name);
   }
   if (items.size() > kMostNames)
      text += " and " + std::to_string(items.size() - kMostNames) + " more";
   fPage.WriteNote(text + ".");
}

std::string TPairedItems::JoinLabels(const TItem& item, bool thatHaveIt) const
{
   std::string text;
   for (std::size_t system = 0; system < item.fHas.size(); ++system)
      if (item.fHas[system] == thatHaveIt)
         text += (text.empty() ? "" : ", ") + fSystems.GetLabel(system);
   return text;
}
