#include "common/GridTable.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::array<std::string_view, 6> kRawDataPages = {
   "lsi_rawData_index", "cvmanager_rawData_index", "megalsi_rawData",
   "fc_rawData",        "iscsi_rawData",           "emulex_rawData"};

constexpr std::array<std::string_view, 6> kResultFiles = {
   "lsi_rawData_results", "cvmanager_rawData_results", "megalsi_rawData_results",
   "fc_rawData_results",  "iscsi_rawData_results",     "emulex_rawData_results"};

constexpr std::string_view kFontBegin = "<font face=\"Courier\">";
constexpr std::string_view kFontEnd = "</font>";
constexpr std::string_view kLinkBegin = "<a href=\"";
constexpr std::string_view kLinkEnd = "\">View Results</a>";
constexpr std::string_view kLinkText = "View Results";
constexpr std::string_view kResultExtension = ".txt";

/// One fixed text; its missing semicolons are the library's.
constexpr std::string_view kAdapterCommands =
   "<font face=\"Courier\"> HBA commands:<br>&nbsp&nbspListHBAs/HBAAttrib/PortAttrib/PortStat/"
   "TargetMapping</font>";
constexpr std::string_view kAdapterCommandsText =
   "HBA commands:\n  ListHBAs/HBAAttrib/PortAttrib/PortStat/TargetMapping";

/// Takes what stands between the two texts. Missing: false where they don't enclose it.
bool Unwrap(std::string_view text, std::string_view begin, std::string_view end,
            std::string_view& inner)
{
   if (text.size() < begin.size() + end.size() || text.substr(0, begin.size()) != begin ||
       text.substr(text.size() - end.size()) != end)
      return false;
   inner = text.substr(begin.size(), text.size() - begin.size() - end.size());
   return true;
}

/// A stem of ours, a number and ".txt".
bool IsResultFile(std::string_view name)
{
   std::string_view number;
   for (const std::string_view stem : kResultFiles)
      if (Unwrap(name, stem, kResultExtension, number))
         return !number.empty() && std::all_of(number.begin(), number.end(),
                                               [](char c) { return c >= '0' && c <= '9'; });
   return false;
}

/// Reads the library's own markup; a cell of any other shape is text.
void ReadMarkup(TCell& cell)
{
   std::string_view inner;
   if (cell.fText == kAdapterCommands) {
      cell.fText = kAdapterCommandsText;
      cell.fMonospaced = true;
   } else if (Unwrap(cell.fText, kFontBegin, kFontEnd, inner)) {
      cell.fText = inner;
      cell.fMonospaced = true;
   } else if (Unwrap(cell.fText, kLinkBegin, kLinkEnd, inner) && IsResultFile(inner)) {
      cell.fText = kLinkText;
      cell.fSecondText = inner;
      cell.fKind = ECellKind::kResultFile;
   }
}

}  // namespace

bool IsRawDataPage(std::string_view linkName)
{
   return std::find(kRawDataPages.begin(), kRawDataPages.end(), linkName) != kRawDataPages.end();
}

TTableShape GetGridShape(const TTableGrid& grid)
{
   TTableShape shape;
   const bool isRowTable = grid.fFirstColumnIsHeader && !grid.fFirstRowIsHeader;
   shape.fKind = isRowTable ? ETableKind::kRows : ETableKind::kColumns;
   shape.fWidth = grid.fTableWidth;
   shape.fColumnWidths = grid.fColumnWidths;
   shape.fSortable = grid.fSortable;
   shape.fMarked = grid.fMarked;
   shape.fHasRowLabels = grid.fFirstColumnIsHeader;
   if (grid.fFirstRowIsHeader && grid.fCells.GetRows() > 0)
      for (std::size_t c = 0; c < grid.fCells.GetColumns(); ++c)
         shape.fLabels.push_back(grid.fCells(0, c).fText);
   return shape;
}

TGridRows::TGridRows(const TTableGrid& grid, bool hasMarkup)
   : fGrid(grid),
     fHasMarkup(hasMarkup),
     fFirstRow(grid.fFirstRowIsHeader ? 1 : 0),
     fRows(grid.fCells.GetRows() - std::min(fFirstRow, grid.fCells.GetRows())),
     fColumns(grid.fCells.GetColumns())
{
   const bool isRowTable = grid.fFirstColumnIsHeader && !grid.fFirstRowIsHeader;
   const std::size_t firstCell = grid.fFirstColumnIsHeader ? 1 : 0;
   if (isRowTable)
      while (fColumns > 2 && IsEmpty(0, fRows, fColumns - 1, fColumns))
         --fColumns;
   else
      while (fRows > 1 && IsEmpty(fRows - 1, fRows, firstCell, fColumns))
         --fRows;
}

bool TGridRows::IsEmpty(std::size_t firstRow, std::size_t endRow, std::size_t firstColumn,
                        std::size_t endColumn) const
{
   for (std::size_t r = firstRow; r < endRow; ++r)
      for (std::size_t c = firstColumn; c < endColumn; ++c)
         if (!fGrid.fCells(r + fFirstRow, c).fText.empty())
            return false;
   return true;
}

TCell TGridRows::GetCell(std::size_t row, std::size_t column) const
{
   const TTableCell& stored = fGrid.fCells(row + fFirstRow, column);
   TCell cell;
   cell.fText = stored.fText;
   cell.fIsLabel = column == 0 && fGrid.fFirstColumnIsHeader;
   cell.fMonospaced = stored.fMonospaced;
   cell.fSame = stored.fSame;
   cell.fSecondText = GetShownSecondText(stored.fText, stored.fSecondText);
   if (fHasMarkup)
      ReadMarkup(cell);
   return cell;
}
