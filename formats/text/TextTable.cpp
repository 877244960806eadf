#include "text/TextTable.h"

#include <algorithm>

#include "text/TextLines.h"

namespace {

constexpr std::size_t kGap = 2;
/// A longer word may be broken: a path, an identifier.
constexpr std::size_t kUnbrokenWord = 12;
constexpr std::size_t kWidestLabel = 32;
/// Rows beyond these are laid out by the widths of the others.
constexpr std::size_t kMeasuredRows = 2000;

/// The values of a common value, a line each, with how frequent it is behind it.
std::string JoinFrequencies(std::string_view values, std::string_view frequencies)
{
   std::string text;
   while (!values.empty()) {
      const std::string_view value = values.substr(0, values.find('\n'));
      const std::string_view frequency = frequencies.substr(0, frequencies.find('\n'));
      text += text.empty() ? "" : "\n";
      text += value;
      if (!frequency.empty()) {
         text += " (";
         text += frequency;
         text += ')';
      }
      values.remove_prefix(std::min(value.size() + 1, values.size()));
      frequencies.remove_prefix(std::min(frequency.size() + 1, frequencies.size()));
   }
   return text;
}

/// Cuts the widest columns until all fit, but none below its floor. Missing: false where that is
/// not enough.
bool FitWidths(std::vector<std::size_t>& widths, const std::vector<std::size_t>& floors)
{
   const std::size_t gaps = kGap * (widths.empty() ? 0 : widths.size() - 1);
   for (std::size_t cap = kLineWidth; cap > 0; --cap) {
      std::size_t sum = gaps;
      for (std::size_t column = 0; column < widths.size(); ++column)
         sum += std::max(std::min(widths[column], cap), floors[column]);
      if (sum > kLineWidth)
         continue;
      for (std::size_t column = 0; column < widths.size(); ++column)
         widths[column] = std::max(std::min(widths[column], cap), floors[column]);
      return true;
   }
   return false;
}

void TrimEnd(std::string& line)
{
   line.resize(line.find_last_not_of(' ') + 1);
}

}  // namespace

std::string MakeCellText(const TCell& cell)
{
   std::string text;
   if (cell.fKind == ECellKind::kFrequencies) {
      text = JoinFrequencies(cell.fText, cell.fSecondText);
   } else {
      text = cell.fText;
      if (!cell.fSecondText.empty())
         text += " [" + std::string(cell.fSecondText) + ']';
   }
   text = MakeShownText(text);
   if (cell.fState == EState::kFailed)
      text += " (!!)";
   else if (cell.fState == EState::kAttention)
      text += " (!)";
   return cell.fSame ? "= " + text : text;
}

void TTextTable::Write(const TTableRows& rows)
{
   if (!fIsSettled) {
      SettleWidths(rows);
      WriteHeader();
   }
   for (std::size_t row = 0; row < rows.GetRowCount(); ++row) {
      const TRow texts = ReadRow(rows, row);
      // A row with more cells than any that was measured has no columns to stand in.
      if (fHasBlocks || texts.size() > fWidths.size())
         WriteBlock(texts);
      else
         WriteLine(texts);
   }
}

void TTextTable::End()
{
   if (!fIsSettled) {
      SettleWidths(TCollectedRows());
      WriteHeader();
   }
   // A block has its blank line already.
   if (!fHasBlocks)
      fFile.Write("\n");
}

TTextTable::TRow TTextTable::ReadRow(const TTableRows& rows, std::size_t row)
{
   TRow texts;
   for (std::size_t column = 0; column < rows.GetCellCount(row); ++column)
      texts.push_back(MakeCellText(rows.GetCell(row, column)));
   return texts;
}

void TTextTable::SettleWidths(const TTableRows& rows)
{
   fIsSettled = true;
   std::vector<std::size_t> floors;
   const auto widen = [this, &floors](std::size_t column, std::size_t width, std::size_t word) {
      if (column >= fWidths.size()) {
         fWidths.resize(column + 1, 1);
         floors.resize(column + 1, 1);
      }
      fWidths[column] = std::max(fWidths[column], width);
      floors[column] = std::max(floors[column], std::min(word, kUnbrokenWord));
   };
   for (const std::string& label : fShape.fLabels) {
      fLabels.push_back(MakeShownText(label));
      const std::size_t word = MeasureText(fLabels.back()).fWord;
      widen(fLabels.size() - 1, word, word);
   }
   const std::size_t count = std::min(rows.GetRowCount(), kMeasuredRows);
   for (std::size_t row = 0; row < count; ++row) {
      const TRow texts = ReadRow(rows, row);
      for (std::size_t column = 0; column < texts.size(); ++column) {
         const TTextWidths measured = MeasureText(texts[column]);
         widen(column, measured.fLine, measured.fWord);
      }
   }
   fHasBlocks = !FitWidths(fWidths, floors);
}

void TTextTable::WriteHeader()
{
   const bool hasLabels = std::any_of(fLabels.begin(), fLabels.end(),
                                      [](const std::string& label) { return !label.empty(); });
   if (fHasBlocks || fShape.fKind == ETableKind::kRows || !hasLabels)
      return;
   WriteLine(fLabels);
   std::string line;
   for (std::size_t column = 0; column < fWidths.size(); ++column) {
      line += column > 0 ? std::string(kGap, ' ') : "";
      line.append(fWidths[column], '-');
   }
   fFile.Write(line + '\n');
}

/// As many lines as the highest cell needs.
void TTextTable::WriteLine(const TRow& row)
{
   std::vector<std::vector<std::string_view>> cells;
   std::size_t height = 1;
   for (std::size_t column = 0; column < row.size(); ++column) {
      cells.push_back(WrapText(row[column], fWidths[column]));
      height = std::max(height, cells.back().size());
   }
   for (std::size_t y = 0; y < height; ++y) {
      std::string line;
      for (std::size_t column = 0; column < cells.size(); ++column) {
         line += column > 0 ? std::string(kGap, ' ') : "";
         const bool hasText = y < cells[column].size();
         AppendPadded(line, hasText ? cells[column][y] : std::string_view(), fWidths[column]);
      }
      TrimEnd(line);
      fFile.Write(line + '\n');
   }
}

void TTextTable::WriteBlock(const TRow& row)
{
   std::size_t labelWidth = 1;
   for (const std::string& label : fLabels)
      labelWidth = std::max(labelWidth, std::min(MeasureText(label).fLine, kWidestLabel));
   const std::size_t textWidth = kLineWidth - kGap - labelWidth;
   for (std::size_t column = 0; column < row.size(); ++column) {
      if (row[column].empty())
         continue;
      const auto labels =
         WrapText(column < fLabels.size() ? std::string_view(fLabels[column]) : "", labelWidth);
      const auto texts = WrapText(row[column], textWidth);
      for (std::size_t y = 0; y < std::max(labels.size(), texts.size()); ++y) {
         std::string line;
         AppendPadded(line, y < labels.size() ? labels[y] : "", labelWidth);
         line.append(kGap, ' ');
         line += y < texts.size() ? texts[y] : "";
         TrimEnd(line);
         fFile.Write(line + '\n');
      }
   }
   fFile.Write("\n");
}
