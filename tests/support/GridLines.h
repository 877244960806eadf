#pragma once

#include <string>
#include <vector>

#include "writer/TTableGrid.h"

/// Appends a line a row: `| Name | Fan 1 (raw: 17) |`.
inline void AddGridLines(const TTableGrid& grid, std::vector<std::string>& lines)
{
   for (std::size_t row = 0; row < grid.fCells.GetRows(); ++row) {
      std::string line = "|";
      for (std::size_t column = 0; column < grid.fCells.GetColumns(); ++column) {
         const TTableCell& cell = grid.fCells(row, column);
         const std::string raw = cell.fSecondText.empty() ? "" : " (raw: " + cell.fSecondText + ")";
         line += " " + cell.fText + raw + " |";
      }
      lines.push_back(line);
   }
}
