#include "common/health/LabelledTable.h"

#include <algorithm>

TLabelledTable::TLabelledTable(const TTableShape& shape, const TTableRows& rows)
   : fShape(shape), fRows(rows), fIsUpright(shape.fKind == ETableKind::kColumns)
{
   if (fIsUpright) {
      fInstances = rows.GetRowCount();
      return;
   }
   for (std::size_t row = 0; row < rows.GetRowCount(); ++row)
      fInstances = std::max(fInstances, rows.GetCellCount(row));
   fInstances -= std::min<std::size_t>(fInstances, 1);
}

std::size_t TLabelledTable::GetLabelCount() const
{
   return fIsUpright ? fShape.fLabels.size() : fRows.GetRowCount();
}

std::string_view TLabelledTable::GetLabel(std::size_t label) const
{
   if (fIsUpright)
      return fShape.fLabels[label];
   return fRows.GetCellCount(label) > 0 ? fRows.GetCell(label, 0).fText : std::string_view();
}

std::vector<std::size_t> TLabelledTable::FindLabels(std::string_view label) const
{
   std::vector<std::size_t> found;
   for (std::size_t i = 0; i < GetLabelCount() && !label.empty(); ++i)
      if (GetLabel(i) == label)
         found.push_back(i);
   return found;
}

TCell TLabelledTable::GetValue(TPosition position) const
{
   const std::size_t row = GetRow(position);
   const std::size_t column = GetColumn(position);
   return column < fRows.GetCellCount(row) ? fRows.GetCell(row, column) : TCell();
}
