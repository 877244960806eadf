#pragma once

#include <string_view>

#include "common/Table.h"
#include "writer/TTableGrid.h"

/// Whether a page with this link name lists the commands of an adapter tool: the one place where
/// the library hands over cells with markup of its own.
bool IsRawDataPage(std::string_view linkName);

TTableShape GetGridShape(const TTableGrid& grid);

/// The rows of a grid without its header row.
///
/// Missing: rows at the end, and columns at the end of a row table, in which no cell has a text:
/// the
///          layout leaves them over where the instances of a table get a grid each.
/// Owner:   the grid stays the caller's and outlives this view.
class TGridRows final : public TTableRows
{
public:
   /// hasMarkup: the cells are those of a raw-data page.
   TGridRows(const TTableGrid& grid, bool hasMarkup);

   std::size_t GetRowCount() const override { return fRows; }

   std::size_t GetCellCount(std::size_t) const override { return fColumns; }

   TCell GetCell(std::size_t row, std::size_t column) const override;

private:
   bool IsEmpty(std::size_t firstRow, std::size_t endRow, std::size_t firstColumn,
                std::size_t endColumn) const;

   const TTableGrid& fGrid;
   bool fHasMarkup;
   std::size_t fFirstRow;
   std::size_t fRows;
   std::size_t fColumns;
};
