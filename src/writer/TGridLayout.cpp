#include "writer/TGridLayout.h"

#include <algorithm>
#include <numeric>

namespace {

std::unique_ptr<TTableGrid> MakeEmptyGrid(int rows, int columns)
{
   auto grid = std::make_unique<TTableGrid>();
   grid->fRows = rows;
   grid->fColumns = columns;
   grid->fCells =
      T2DArray<TTableCell>(static_cast<std::size_t>(rows), static_cast<std::size_t>(columns));
   grid->fColumnWidths.resize(static_cast<std::size_t>(columns));
   return grid;
}

}  // namespace

TGridLayout::TGridLayout(const TReportClass& reportClass, const TInstances& instances,
                         bool expandAssociations, bool marked)
   : fReportClass(reportClass),
     fInstances(instances),
     fExpands(reportClass.HasAssociatedClass() && expandAssociations),
     fMarked(marked),
     fMaximum(std::max(reportClass.GetMaxInstancesPerTable(), 1)),
     fPerGrid(fExpands ? 1 : std::min(static_cast<int>(instances.size()), fMaximum))
{}

void TGridLayout::Write()
{
   int remaining = static_cast<int>(fInstances.size());
   for (const auto& instance : fInstances) {
      if (!fGrid)
         MakeGrid();
      if (fRow == 1)
         FillLabels(*fGrid);
      FillRow(*fGrid, fRow, instance);
      if (fExpands || fRow == fMaximum) {
         DeliverGrid();
         if (fExpands)
            WriteAssociatedTables(instance);
         PrepareNextGrid(remaining);
      } else {
         ++fRow;
      }
      --remaining;
   }
   if (fRow != 1)
      DeliverGrid();
}

TTableCell& TGridLayout::GetCell(TTableGrid& grid, int row, std::size_t property)
{
   const auto instance = static_cast<std::size_t>(row);
   return grid.fTransposed ? grid.fCells(property, instance) : grid.fCells(instance, property);
}

void TGridLayout::SetSecondText(TTableCell& cell, std::string raw, bool isFirstColumn,
                                bool& rowIsNA)
{
   if (isFirstColumn) {
      if (!cell.fText.empty() && cell.fText == raw) {
         cell.fText = "N/A";
         rowIsNA = true;
      } else if (raw.empty()) {
         raw = "N/A";
      }
   } else if (rowIsNA) {
      raw.clear();
   }
   if (cell.fText == raw)
      raw.clear();
   cell.fSecondText = std::move(raw);
}

void TGridLayout::MakeGrid()
{
   fRow = 1;
   if (IsRowTable())
      MakeRowGrid(fPerGrid);
   else
      MakeColumnGrid(fPerGrid);
   fGrid->fTableWidth = TReportParameters::ConvertPercent(fReportClass.GetTableWidth());
   fGrid->fSortable = fReportClass.IsTableSortable();
   fGrid->fMarked = fMarked;
}

void TGridLayout::MakeRowGrid(int instances)
{
   fGrid = MakeEmptyGrid(static_cast<int>(fReportClass.GetProperties().size()), instances + 1);
   fGrid->fFirstColumnIsHeader = true;
   fGrid->fTransposed = true;
   std::vector<int>& widths = fGrid->fColumnWidths;
   widths[0] = TReportParameters::ConvertPercent(fReportClass.GetRowReportHeaderWidth());
   std::fill(widths.begin() + 1, widths.end(), (100 - widths[0]) / instances);
}

void TGridLayout::MakeColumnGrid(int instances)
{
   const auto& properties = fReportClass.GetProperties();
   fGrid = MakeEmptyGrid(instances + 1, static_cast<int>(properties.size()));
   fGrid->fFirstRowIsHeader = true;
   for (std::size_t i = 0; i < properties.size(); ++i)
      fGrid->fColumnWidths[i] = TReportParameters::ConvertPercent(properties[i].GetColumnWidth());
}

void TGridLayout::DeliverGrid()
{
   const bool transposed = fGrid->fTransposed;
   fGrid->fTransposed = false;
   WriteGrid(*fGrid);
   fGrid->fTransposed = transposed;
}

/// Decides what the instances get that come after the one just delivered; remaining counts that one
/// too.
void TGridLayout::PrepareNextGrid(int remaining)
{
   fRow = 1;
   if (remaining == 1 || remaining - 1 >= fMaximum)
      return;
   fPerGrid = remaining - 1;
   if (IsRowTable())
      ShrinkRowGrid(remaining);
   else
      fGrid.reset();
}

/// Makes the last grid of a row table: it keeps the proportions of the columns that it keeps, and
/// the table shrinks with them. It isn't marked, even where the grids before are; that is meant.
void TGridLayout::ShrinkRowGrid(int columns)
{
   const std::unique_ptr<TTableGrid> old = std::move(fGrid);
   fGrid = MakeEmptyGrid(old->fRows, columns);
   fGrid->fFirstColumnIsHeader = true;
   fGrid->fTransposed = true;
   fGrid->fSortable = old->fSortable;

   // A grid of one instance ahead of its sub-tables has fewer columns than the one that follows;
   // the columns that it lacks are as wide as nothing.
   std::vector<int>& widths = old->fColumnWidths;
   widths.resize(static_cast<std::size_t>(columns));
   const int sum = std::accumulate(widths.begin(), widths.end(), 0);
   fGrid->fTableWidth = sum * old->fTableWidth / 100;
   if (sum != 0)
      std::transform(widths.begin(), widths.end(), fGrid->fColumnWidths.begin(),
                     [sum](int width) { return width * 100 / sum; });
}
