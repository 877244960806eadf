#include "html/HtmlTable.h"

#include <algorithm>

#include "html/HtmlDriveAttributes.h"

namespace {

constexpr std::uint64_t kRowsWorthSkipping = 20;
/// Up to so many columns a table doesn't grow with the window, so that numbers stay near names.
constexpr std::size_t kFewColumns = 3;
// Units: characters. A table whose least width is above these scrolls in its own box, in a window
// of usual width and in any.
constexpr std::size_t kWidestBesideSideBar = 120;
constexpr std::size_t kWidestOfAll = 210;
constexpr std::size_t kPadding = 3;
// Units: percent of the table.
constexpr int kFullWidth = 100;
constexpr int kWidthBesideRowNumbers = 96;

/// Writes "w-40" for a width of 40 percent.
void WriteWidthClass(THtmlSink& out, int percent)
{
   out << "w-"_html << TNumber{static_cast<std::uint64_t>(std::clamp(percent, 1, kFullWidth))};
}

/// Scales the widths so that they add up to the sum: browsers give what is left over to the row
/// numbers, and take what is too much from the last column. Where a width is missing, that column
/// takes the rest.
void FitWidths(std::vector<int>& widths, int sum)
{
   long total = 0;
   for (const int width : widths) {
      if (width <= 0)
         return;
      total += std::min(width, kFullWidth);
   }
   // Rounded sums, so that nothing is left over.
   long before = 0;
   long scaledBefore = 0;
   for (int& width : widths) {
      before += std::min(width, kFullWidth);
      const long scaled = (before * sum + total / 2) / total;
      width = static_cast<int>(std::max(1L, scaled - scaledBefore));
      scaledBefore = scaled;
   }
}

}  // namespace

THtmlTable::THtmlTable(THtmlSink& out, TBodySpool& body, THtmlPage& page, const TTableShape& shape,
                       THtmlHeading heading)
   : fOut(out),
     fBody(body),
     fPage(page),
     fShape(shape),
     fHeading(std::move(heading)),
     fNumber(++page.fTableCount)
{}

void THtmlTable::WriteRows(const TTableRows& rows)
{
   for (std::size_t r = 0; r < rows.GetRowCount(); ++r) {
      const bool isFull = fIsPartOpen && (fRow - fParts.back().fFirstRow + 1 >= kRowsPerFile ||
                                          fBody.GetFileBytes() >= kBytesPerFile);
      if (isFull) {
         EndPart();
         fOut << kGroupEnd;
         fBody.NextFile();
         fOut << kGroupBegin;
      }
      if (!fIsPartOpen)
         BeginPart(rows, r);
      WriteRow(rows, r);
   }
}

void THtmlTable::End()
{
   if (fIsPartOpen)
      EndPart();
   for (const TPart& part : fParts) {
      fBody.BeginFill();
      WritePartHead(part);
      fBody.EndFill(part.fFile, part.fHeadPlace);
   }
   fPage.fRows += GetInstanceCount();
}

void THtmlTable::BeginPart(const TTableRows& rows, std::size_t firstRow)
{
   TPart part;
   part.fFile = fBody.GetFile();
   part.fHeadPlace = fBody.Reserve();
   part.fFirstRow = fRow + 1;
   const std::size_t endRow = static_cast<std::size_t>(
      std::min<std::uint64_t>(rows.GetRowCount(), firstRow + kRowsPerFile));
   const std::size_t columns = std::max(fShape.fLabels.size(), rows.GetCellCount(firstRow));
   for (std::size_t c = 0; c < columns; ++c) {
      part.fLooks.push_back(IsColumnTable() && !IsDifference()
                               ? JudgeColumn(rows, firstRow, endRow, c)
                               : EColumnLook::kText);
      const bool hasLabel = c < fShape.fLabels.size();
      const std::string_view label = hasLabel ? std::string_view(fShape.fLabels[c]) : "";
      part.fLeastWidth +=
         kPadding + MeasureColumn(rows, firstRow, endRow, c, part.fLooks[c], label);
   }
   fParts.push_back(std::move(part));
   fIsPartOpen = true;
}

void THtmlTable::EndPart()
{
   TPart& part = fParts.back();
   part.fLastRow = fRow;
   fOut << "</tbody>\n</table>\n</div>\n"_html;
   if (fRow - part.fFirstRow >= kRowsWorthSkipping)
      fOut << "<span class=\"end\" id=\"t"_html << TNumber{fNumber}
           << "-end\" tabindex=\"-1\"></span>\n"_html;
   fOut << "</section>\n"_html;
   fIsPartOpen = false;

   THtmlFile& file = fPage.fFiles[part.fFile];
   const bool isFirst = file.fFirstRow == 0;
   file.fIsOneTable = isFirst;
   if (isFirst) {
      file.fFirstTitle = fHeading.fName;
      file.fFirstRow = part.fFirstRow;
      file.fLastRow = part.fLastRow;
   }
}

void THtmlTable::WriteRow(const TTableRows& rows, std::size_t row)
{
   ++fRow;
   fOut << "<tr id=\"t"_html << TNumber{fNumber} << "-r"_html << TNumber{fRow} << "\">"_html;
   if (HasRowNumbers())
      WriteRowNumber();
   WriteCells(rows, row);
   fOut << "</tr>\n"_html;
}

void THtmlTable::WriteRowNumber()
{
   fOut << "<td class=\"n\"><a href=\"#t"_html << TNumber{fNumber} << "-r"_html << TNumber{fRow}
        << "\">"_html << TCount{fRow} << "</a></td>"_html;
}

void THtmlTable::WriteCells(const TTableRows& rows, std::size_t row)
{
   TPart& part = fParts.back();
   const std::size_t cells = rows.GetCellCount(row);
   const bool isDifference = IsDifference();
   std::uint64_t values = 0;
   std::optional<TDriveAttribute> attribute;
   if (fShape.fDriveAttributes)
      attribute = ReadDriveAttribute(rows, row, *fShape.fDriveAttributes);
   if (attribute)
      fAttributes.Add(*attribute);
   for (std::size_t c = 0; c < cells; ++c) {
      TCell cell = rows.GetCell(row, c);
      if (attribute && c == fShape.fDriveAttributes->fName)
         cell.fState = attribute->GetState();
      const bool isRowLabel = cell.fIsLabel || (IsColumnTable() && c == 0);
      const EColumnLook look = c < part.fLooks.size() ? part.fLooks[c] : EColumnLook::kText;
      part.fHasSecondTexts |= cell.fKind == ECellKind::kText && !cell.fSecondText.empty();
      if (isDifference && fRow == 1)
         fBaseline.emplace_back(cell.fText);
      if (isRowLabel && cell.fKind == ECellKind::kText && !cell.fMonospaced) {
         fOut << "<th scope=\"row\""_html;
         WriteCellLook(fOut, cell, look);
         fOut << ">"_html;
         if (!isDifference || !WriteSystemLabel(cell))
            WriteCellContent(fOut, cell);
         fOut << "</th>"_html;
         continue;
      }
      ++values;
      if (attribute && c == fShape.fDriveAttributes->fValue) {
         WriteAttributeCell(cell, *attribute);
         continue;
      }
      const bool isChanged = isDifference && c > 0 && fRow > 1 && !cell.fText.empty() &&
                             c < fBaseline.size() && cell.fText != fBaseline[c];
      WriteValueCell(fOut, cell, look, isChanged);
   }
   for (std::size_t c = cells; c < fShape.fLabels.size(); ++c)
      fOut << "<td></td>"_html;
   fInstances = std::max(fInstances, values);
}

void THtmlTable::WriteAttributeCell(const TCell& cell, const TDriveAttribute& attribute)
{
   fOut << "<td class=\"num meter\">"_html;
   WriteAttributeBar(fOut, attribute);
   fOut << "<span>"_html;
   WriteCellContent(fOut, cell);
   fOut << "</span></td>"_html;
}

/// Everything from the section's begin to the first row.
void THtmlTable::WritePartHead(const TPart& part)
{
   fOut << "<section class=\"block"_html;
   if (fHeading.fIsSubTable)
      fOut << " sub"_html;
   if (fHeading.fTitle.empty())
      fOut << " next"_html;
   if (IsColumnTable() && part.fLooks.size() <= kFewColumns)
      fOut << " few"_html;
   if (fShape.fWidth > 0) {
      fOut << " "_html;
      WriteWidthClass(fOut, fShape.fWidth);
   }
   fOut << "\" id=\"t"_html << TNumber{fNumber} << "\">\n"_html;
   WriteHeading(part);
   if (part.fFirstRow == 1)
      WriteAttributeFigure(fOut, fAttributes);

   const std::uint64_t rowCount = part.fLastRow - part.fFirstRow + 1;
   if (rowCount > kRowsWorthSkipping)
      fOut << "<a class=\"skip-rows\" href=\"#t"_html << TNumber{fNumber}
           << "-end\">Skip the rows of "_html << TText{fHeading.fName} << "</a>\n"_html;
   WriteTableTag(part);
   WriteColumns(part);
   if (!fShape.fLabels.empty())
      WriteHeaderRow(part);
   fOut << "<tbody>\n"_html;
}

/// The box that scrolls, the table's begin and its caption.
void THtmlTable::WriteTableTag(const TPart& part)
{
   fOut << "<div class=\"scroll"_html;
   if (part.fLeastWidth > kWidestOfAll)
      fOut << " widest"_html;
   else if (part.fLeastWidth > kWidestBesideSideBar)
      fOut << " wide"_html;
   fOut << "\" role=\"group\" tabindex=\"0\" aria-label=\""_html << TText{fHeading.fName}
        << ", table "_html << TNumber{fNumber} << "\">\n"_html;
   fOut << "<table class=\"grid"_html << (IsColumnTable() ? " cols"_html : " rows"_html);
   if (!IsColumnTable() && fInstances > 1)
      fOut << " many"_html;
   if (fShape.fMarked)
      fOut << " marked"_html;
   fOut << "\">\n<caption class=\"vh\">"_html << TText{fHeading.fName};
   if (IsSplit())
      fOut << ", rows "_html << TCount{part.fFirstRow} << " to "_html << TCount{part.fLastRow}
           << " of "_html << TCount{fRow};
   fOut << "</caption>\n"_html;
}

void THtmlTable::WriteHeading(const TPart& part)
{
   const bool hasTools = NeedsSwitch(part);
   const bool isFirst = part.fFirstRow == 1;
   const bool hasTitle = !fHeading.fTitle.empty();
   if (!hasTitle && !hasTools && !IsSplit())
      return;

   fOut << "<div class=\"block-head\">\n"_html;
   if (hasTitle) {
      // Where a table goes on in the next file, its title is the first below that of the page.
      const bool isThird = fHeading.fLevel == 3 && isFirst;
      fOut << (isThird ? "<h3"_html : "<h2"_html);
      if (fHeading.fIsEmphasised)
         fOut << " class=\"emphasised\""_html;
      fOut << " id=\"t"_html << TNumber{fNumber} << "-h\">"_html;
      WriteTitle();
      fOut << " <a class=\"anchor\" href=\"#t"_html << TNumber{fNumber}
           << "\" aria-label=\"Link to "_html << TText{fHeading.fTitle} << "\">#</a>"_html
           << (isThird ? "</h3>\n"_html : "</h2>\n"_html);
   }
   if (hasTitle || IsSplit())
      WriteCount(part);
   if (hasTools)
      fOut << "<div class=\"tools\"><label class=\"switch\"><input type=\"checkbox\" "
              "class=\"show-raw\"> Untranslated values</label></div>\n"_html;
   fOut << "</div>\n"_html;
}

/// In a comparison the title may name systems: each has its letter.
void THtmlTable::WriteTitle()
{
   if (IsComparison() && fHeading.fIsEmphasised) {
      const TComparedHeading heading(fHeading.fTitle, *fHeading.fSystems);
      TMarkup before =
         heading.fKind == TComparedHeading::kMissing ? "Missing from "_html : "Unique to "_html;
      for (const std::size_t system : heading.fSystems) {
         fOut << before;
         fHeading.fSystems->Write(fOut, system);
         before = ", "_html;
      }
      if (!heading.fSystems.empty())
         return;
   }
   fOut << TText{fHeading.fTitle};
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

void THtmlTable::WriteCount(const TPart& part)
{
   // The columns of a row table are soon counted.
   if ((!IsColumnTable() || IsComparison()) && !IsSplit())
      return;
   fOut << "<p class=\"count\">"_html;
   if (IsSplit())
      fOut << "Rows "_html << TCount{part.fFirstRow} << " to "_html << TCount{part.fLastRow}
           << " of "_html << TCount{fRow};
   else
      fOut << TCount{fRow} << (fRow == 1 ? " row"_html : " rows"_html);
   fOut << "</p>\n"_html;
}

void THtmlTable::WriteColumns(const TPart& part)
{
   const std::size_t columns = std::max(part.fLooks.size(), fShape.fLabels.size());
   std::vector<int> widths = fShape.fColumnWidths;
   widths.resize(columns);
   FitWidths(widths, HasRowNumbers() ? kWidthBesideRowNumbers : kFullWidth);
   fOut << "<colgroup>"_html;
   if (HasRowNumbers())
      fOut << "<col class=\"n\">"_html;
   for (const int width : widths) {
      fOut << "<col"_html;
      if (width > 0) {
         fOut << " class=\""_html;
         WriteWidthClass(fOut, width);
         fOut << "\""_html;
      }
      fOut << ">"_html;
   }
   fOut << "</colgroup>\n"_html;
}

void THtmlTable::WriteHeaderRow(const TPart& part)
{
   fOut << "<thead>\n<tr>"_html;
   if (HasRowNumbers())
      fOut << "<th scope=\"col\" class=\"n\">Row</th>"_html;
   const std::size_t columns = std::max(part.fLooks.size(), fShape.fLabels.size());
   for (std::size_t c = 0; c < columns; ++c) {
      fOut << "<th scope=\"col\""_html;
      if (c < part.fLooks.size())
         WriteLook(fOut, part.fLooks[c]);
      fOut << ">"_html;
      if (c < fShape.fLabels.size())
         fOut << TText{fShape.fLabels[c]};
      fOut << "</th>"_html;
   }
   fOut << "</tr>\n</thead>\n"_html;
}
