#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <vector>

/// One cell of a grid.
struct TTableCell
{
   std::string fText;
   /// The untranslated value, where it differs from the text; "N/A" means that there is none.
   std::string fSecondText;
   bool fMonospaced = false;
   /// Set together, and only on a cell that repeats the baseline of a comparison ("--- SAME ---").
   bool fSame = false;
   bool fSameShade = false;
   bool fSameCentred = false;
};

/// A dense array of cells, row by row.
/// Throws: std::invalid_argument when a count is 0.
template <typename T>
class T2DArray
{
public:
   T2DArray() = default;

   T2DArray(std::size_t rows, std::size_t columns) : fRows(rows), fColumns(columns)
   {
      if (rows == 0 || columns == 0)
         throw std::invalid_argument("rows and cols must not be 0");
      fCells.resize(rows * columns);
   }

   T& operator()(std::size_t row, std::size_t column) { return fCells[row * fColumns + column]; }

   const T& operator()(std::size_t row, std::size_t column) const
   {
      return fCells[row * fColumns + column];
   }

   std::size_t GetRows() const { return fRows; }

   std::size_t GetColumns() const { return fColumns; }

private:
   std::size_t fRows = 0;
   std::size_t fColumns = 0;
   std::vector<T> fCells;
};

/// A table laid out in memory, the argument of WriteGrid.
///
/// Units: widths in percent, of the table for the columns and of the page for the table.
/// Owner: the operation that made it; a writer never keeps it.
struct TTableGrid
{
   std::vector<int> fColumnWidths;
   int fTableWidth = 100;
   /// The concrete writer offers sorting by column.
   bool fSortable = false;
   /// A column table.
   bool fFirstRowIsHeader = false;
   /// A row table.
   bool fFirstColumnIsHeader = false;
   T2DArray<TTableCell> fCells;
   /// Logical addressing is swapped; always false when a writer sees the grid.
   bool fTransposed = false;
   int fRows = 0;
   int fColumns = 0;
   /// The instance stands in some namespaces of a comparison only.
   bool fMarked = false;
};
