#include "html/HtmlTable.h"

#include <algorithm>

#include "html/HtmlDriveAttributes.h"

namespace {

// Units: characters, around the text of a cell.
constexpr std::size_t kPadding = 3;
// Units: bytes. A longer text stands in a file of its own, and the page has its begin.
constexpr std::uint64_t kBytesOfKilobyte = 1000;
constexpr std::size_t kLongestText = 100'000;
constexpr std::size_t kShownOfLongText = 20'000;

/// The begin of a text, up to the end of a line where there is one, else of a character.
std::string_view CutText(std::string_view text)
{
   const std::size_t lineEnd = text.rfind('\n', kShownOfLongText);
   if (lineEnd != std::string_view::npos && lineEnd > kShownOfLongText / 2)
      return text.substr(0, lineEnd);
   std::size_t end = kShownOfLongText;
   const auto isInside = [&](std::size_t at) { return (text[at] & 0xC0) == 0x80; };
   while (end > kShownOfLongText / 2 && isInside(end))
      --end;
   return text.substr(0, end);
}

}  // namespace

THtmlTable::THtmlTable(THtmlSink& out, TBodySpool& body, THtmlPage& page, TRowFiles& rowFiles,
                       const TTableShape& shape, THtmlHeading heading)
   : fOut(out),
     fBody(body),
     fPage(page),
     fRowFiles(rowFiles),
     fShape(shape),
     fHeading(std::move(heading)),
     fNumber(++page.fTableCount),
     fFile(body.GetFile()),
     fText(shape.fLabels)
{}

void THtmlTable::WriteRows(const TTableRows& rows)
{
   if (!fIsBegun)
      Begin(rows);
   for (std::size_t r = 0; r < rows.GetRowCount(); ++r) {
      ++fRow;
      const bool isFull = fRow > kRowsInPage || (fRow > 1 && fBody.GetFileBytes() >= kBytesPerFile);
      if (isFull && !IsLong())
         fText.Open(fRowFiles.GetPath(GetTextName()));
      if (!IsLong())
         WriteRow(rows, r);
      KeepRow(rows, r);
   }
}

void THtmlTable::End()
{
   if (!fIsBegun)
      return;
   fRowFiles.EndTable(fFile, fHeading.fName, fShape.fLabels);
   WriteTail();
   fBody.BeginFill();
   WriteHead();
   fBody.EndFill(fFile, fHeadPlace);
   fPage.fRows += GetInstanceCount();
   THtmlFile& file = fPage.fFiles[fFile];
   if (file.fFirstTitle.empty())
      file.fFirstTitle = fHeading.fName;
}

void THtmlTable::Begin(const TTableRows& rows)
{
   fIsBegun = true;
   fHeadPlace = fBody.Reserve();
   fRowFiles.BeginTable(fPage.fNumber, fNumber);
   const std::size_t endRow =
      std::min<std::size_t>(rows.GetRowCount(), static_cast<std::size_t>(kRowsInPage));
   const std::size_t columns = std::max(fShape.fLabels.size(), rows.GetCellCount(0));
   for (std::size_t c = 0; c < columns; ++c) {
      fLooks.push_back(IsColumnTable() && !IsDifference() ? JudgeColumn(rows, 0, endRow, c)
                                                          : EColumnLook::kText);
      const bool hasLabel = c < fShape.fLabels.size();
      const std::string_view label = hasLabel ? std::string_view(fShape.fLabels[c]) : "";
      fLeastWidth += kPadding + MeasureColumn(rows, 0, endRow, c, fLooks[c], label);
   }
}

void THtmlTable::WriteRow(const TTableRows& rows, std::size_t row)
{
   ++fRowsInPage;
   fOut << "<tr id=\"t"_html << TNumber{fNumber} << "-r"_html << TNumber{fRow} << "\">"_html;
   if (HasRowNumbers())
      WriteRowNumber();
   WriteCells(rows, row);
   fOut << "</tr>\n"_html;
}

/// For the row files and the text file.
void THtmlTable::KeepRow(const TTableRows& rows, std::size_t row)
{
   const std::size_t cells = rows.GetCellCount(row);
   for (std::size_t c = 0; c < cells; ++c) {
      const TCell cell = ReadCell(rows, row, c);
      fHasSecondTexts |= cell.fKind == ECellKind::kText && !cell.fSecondText.empty();
      fRowFiles.AddCell(cell, {IsHeaderCell(cell, c), IsChangedCell(cell, c)});
      fText.AddCell(cell);
   }
   fRowFiles.EndRow();
   fText.EndRow();
   if (fRow == 1)
      fFirstRowFile = fRowFiles.GetFileNumber();
}

TCell THtmlTable::ReadCell(const TTableRows& rows, std::size_t row, std::size_t column) const
{
   TCell cell = rows.GetCell(row, column);
   if (fShape.fDriveAttributes && column == fShape.fDriveAttributes->fName) {
      const auto attribute = ReadDriveAttribute(rows, row, *fShape.fDriveAttributes);
      if (attribute)
         cell.fState = attribute->GetState();
   }
   return cell;
}

bool THtmlTable::IsHeaderCell(const TCell& cell, std::size_t column) const
{
   const bool isLabel = cell.fIsLabel || (IsColumnTable() && column == 0);
   return isLabel && cell.fKind == ECellKind::kText && !cell.fMonospaced;
}

bool THtmlTable::IsChangedCell(const TCell& cell, std::size_t column) const
{
   return IsDifference() && column > 0 && fRow > 1 && !cell.fText.empty() &&
          column < fBaseline.size() && cell.fText != fBaseline[column];
}

void THtmlTable::WriteRowNumber()
{
   fOut << "<td class=\"n\"><a href=\"#t"_html << TNumber{fNumber} << "-r"_html << TNumber{fRow}
        << "\">"_html << TCount{fRow} << "</a></td>"_html;
}

void THtmlTable::WriteCells(const TTableRows& rows, std::size_t row)
{
   const std::size_t cells = rows.GetCellCount(row);
   std::uint64_t values = 0;
   std::optional<TDriveAttribute> attribute;
   if (fShape.fDriveAttributes)
      attribute = ReadDriveAttribute(rows, row, *fShape.fDriveAttributes);
   if (attribute)
      fAttributes.Add(*attribute);
   for (std::size_t c = 0; c < cells; ++c) {
      const TCell cell = ReadCell(rows, row, c);
      if (IsDifference() && fRow == 1)
         fBaseline.emplace_back(cell.fText);
      const bool isHeader = IsHeaderCell(cell, c);
      values += isHeader ? 0 : 1;
      if (!isHeader && attribute && c == fShape.fDriveAttributes->fValue)
         WriteAttributeCell(cell, *attribute);
      else
         WriteCell(cell, c, isHeader, IsChangedCell(cell, c));
   }
   for (std::size_t c = cells; c < fShape.fLabels.size(); ++c)
      fOut << "<td></td>"_html;
   fInstances = std::max(fInstances, values);
}

/// What tells a state has an address, for the findings that rest on it.
void THtmlTable::WriteAddress(const TCell& cell, std::size_t column)
{
   if (cell.fState != EState::kNone)
      fOut << " id=\"t"_html << TNumber{fNumber} << "-r"_html << TNumber{fRow} << "-c"_html
           << TNumber{column + 1} << "\""_html;
}

void THtmlTable::WriteCell(TCell cell, std::size_t column, bool isHeader, bool isChanged)
{
   const std::string_view whole = cell.fText;
   if (cell.fKind == ECellKind::kText && whole.size() > kLongestText)
      cell.fText = CutText(whole);
   fOut << (isHeader ? "<th scope=\"row\""_html : "<td"_html);
   WriteAddress(cell, column);
   if (!isHeader)
      WriteValueCell(fOut, cell, GetLook(column), isChanged);
   else {
      WriteCellLook(fOut, cell, GetLook(column));
      fOut << ">"_html;
      if (!IsDifference() || !WriteSystemLabel(cell))
         WriteCellContent(fOut, cell);
   }
   if (cell.fText.size() < whole.size())
      WriteWholeText(whole, column);
   fOut << (isHeader ? "</th>"_html : "</td>"_html);
}

/// The rest of a text that is too long for the page.
void THtmlTable::WriteWholeText(std::string_view text, std::size_t column)
{
   const std::string name = fPage.fFileStem + "~" + std::to_string(fNumber) + "-r" +
                            std::to_string(fRow) + "-c" + std::to_string(column + 1) + ".txt";
   const std::uint64_t bytes = WriteTextFile(fRowFiles.GetPath(name), text);
   fOut << "<span class=\"whole\">The begin of "_html << TCount{bytes / kBytesOfKilobyte}
        << " KB: <a href=\"rows/"_html << TFileUrl{name} << "\">all of it as text</a></span>"_html;
}

/// The name of the attribute has the mark of its state; the value has its address.
void THtmlTable::WriteAttributeCell(TCell cell, const TDriveAttribute& attribute)
{
   fOut << "<td class=\"num meter\""_html;
   WriteAddress(cell, fShape.fDriveAttributes->fValue);
   cell.fState = EState::kNone;
   fOut << ">"_html;
   WriteAttributeBar(fOut, attribute);
   fOut << "<span>"_html;
   WriteCellContent(fOut, cell);
   fOut << "</span></td>"_html;
}

/// Missing: false where the cell names no system; nothing is written then.
bool THtmlTable::WriteSystemLabel(const TCell& cell)
{
   const std::size_t system =
      IsComparison() ? fHeading.fSystems->Find(cell.fText) : THtmlSystems::kNone;
   if (system == THtmlSystems::kNone)
      return false;
   fHeading.fSystems->Write(fOut, system);
   return true;
}

/// In the folder of the row files.
std::string THtmlTable::GetTextName() const
{
   return fPage.fFileStem + "~" + std::to_string(fNumber) + ".txt";
}
