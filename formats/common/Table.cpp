#include "common/Table.h"

std::string_view GetShownSecondText(std::string_view text, std::string_view secondText)
{
   const bool isNothing = text.empty() || secondText == text || secondText == "N/A" ||
                          secondText.find_first_not_of(" ,;/") == std::string_view::npos;
   return isNothing ? std::string_view() : secondText;
}

ESeverity GetSeverity(const TTableRows& rows, std::size_t row, std::size_t column)
{
   return column < rows.GetCellCount(row) ? rows.GetCell(row, column).fSeverity
                                          : ESeverity::kNotTold;
}

void TCollectedRows::AddCell(const TCell& cell)
{
   TStoredCell stored{fTexts.size(), cell.fText.size(), cell.fSecondText.size(), cell};
   fTexts.append(cell.fText);
   fTexts.append(cell.fSecondText);
   fCells.push_back(stored);
}

void TCollectedRows::Append(const TTableRows& rows)
{
   for (std::size_t row = 0; row < rows.GetRowCount(); ++row) {
      BeginRow();
      const std::size_t cells = rows.GetCellCount(row);
      for (std::size_t column = 0; column < cells; ++column)
         AddCell(rows.GetCell(row, column));
   }
}

void TCollectedRows::DropRow()
{
   fCells.resize(fRowStarts.back());
   fRowStarts.pop_back();
}

void TCollectedRows::Clear()
{
   fTexts.clear();
   fCells.clear();
   fRowStarts.clear();
}

std::size_t TCollectedRows::GetCellCount(std::size_t row) const
{
   const std::size_t end = row + 1 < fRowStarts.size() ? fRowStarts[row + 1] : fCells.size();
   return end - fRowStarts[row];
}

TCell TCollectedRows::GetCell(std::size_t row, std::size_t column) const
{
   const TStoredCell& stored = fCells[fRowStarts[row] + column];
   const std::string_view texts = fTexts;
   TCell cell = stored.fLook;
   cell.fText = texts.substr(stored.fOffset, stored.fLength);
   cell.fSecondText = texts.substr(stored.fOffset + stored.fLength, stored.fSecondLength);
   return cell;
}
