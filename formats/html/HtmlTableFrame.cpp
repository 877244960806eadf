// What stands around the rows of a THtmlTable.

#include "html/HtmlTable.h"

#include <algorithm>

#include "html/HtmlDriveAttributes.h"

namespace {

constexpr std::uint64_t kRowsWorthSkipping = 20;
/// From so many on a table is filtered and copied.
constexpr std::uint64_t kRowsWorthTools = 4;
constexpr std::uint64_t kBytesOfKilobyte = 1000;
/// Up to so many columns a table doesn't grow with the window, so that numbers stay near names.
constexpr std::size_t kFewColumns = 3;
// Units: characters. A table whose least width is above these scrolls in its own box, in a window
// of usual width and in any.
constexpr std::size_t kWidestBesideSideBar = 120;
constexpr std::size_t kWidestOfAll = 210;
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

/// Everything from the section's begin to the first row.
void THtmlTable::WriteHead()
{
   WriteSectionTag();
   WriteHeading();
   WriteAttributeFigure(fOut, fAttributes);
   if (fRowsInPage > kRowsWorthSkipping)
      fOut << "<a class=\"skip-rows\" href=\"#t"_html << TNumber{fNumber}
           << "-end\">Skip the rows of "_html << TText{fHeading.fName} << "</a>\n"_html;
   WriteTableTag();
   WriteColumns();
   if (!fShape.fLabels.empty())
      WriteHeaderRow();
   fOut << "<tbody>\n"_html;
}

void THtmlTable::WriteSectionTag()
{
   fOut << "<section class=\"block"_html;
   if (fHeading.fIsSubTable)
      fOut << " sub"_html;
   if (fHeading.fTitle.empty())
      fOut << " next"_html;
   if (IsColumnTable() && fLooks.size() <= kFewColumns)
      fOut << " few"_html;
   if (fShape.fWidth > 0) {
      fOut << " "_html;
      WriteWidthClass(fOut, fShape.fWidth);
   }
   fOut << "\" id=\"t"_html << TNumber{fNumber} << "\""_html;
   if (IsLong())
      fOut << " data-page=\""_html << TNumber{fPage.fNumber} << "\" data-rows=\""_html
           << TNumber{fRow} << "\" data-from=\""_html << TNumber{fFirstRowFile}
           << "\" data-to=\""_html << TNumber{fRowFiles.GetFileNumber()} << "\""_html;
   fOut << ">\n"_html;
}

/// The box that scrolls, the table's begin and its caption.
void THtmlTable::WriteTableTag()
{
   fOut << "<div class=\"scroll"_html;
   if (fLeastWidth > kWidestOfAll)
      fOut << " widest"_html;
   else if (fLeastWidth > kWidestBesideSideBar)
      fOut << " wide"_html;
   fOut << "\" role=\"group\" tabindex=\"0\" aria-label=\""_html << TText{fHeading.fName}
        << ", table "_html << TNumber{fNumber} << "\">\n"_html;
   fOut << "<table class=\"grid"_html << (IsColumnTable() ? " cols"_html : " rows"_html);
   if (!IsColumnTable() && fInstances > 1)
      fOut << " many"_html;
   if (fShape.fMarked)
      fOut << " marked"_html;
   fOut << "\">\n<caption class=\"vh\">"_html << TText{fHeading.fName} << "</caption>\n"_html;
}

void THtmlTable::WriteHeading()
{
   const bool hasTools = NeedsSwitch() || NeedsTools();
   const bool hasTitle = !fHeading.fTitle.empty();
   if (!hasTitle && !hasTools && !IsLong())
      return;

   fOut << "<div class=\"block-head\">\n"_html;
   if (hasTitle) {
      const bool isThird = fHeading.fLevel == 3;
      fOut << (isThird ? "<h3"_html : "<h2"_html);
      if (fHeading.fIsEmphasised)
         fOut << " class=\"emphasised\""_html;
      fOut << " id=\"t"_html << TNumber{fNumber} << "-h\">"_html;
      WriteTitle();
      fOut << " <a class=\"anchor\" href=\"#t"_html << TNumber{fNumber}
           << "\" aria-label=\"Link to "_html << TText{fHeading.fTitle} << "\">#</a>"_html
           << (isThird ? "</h3>\n"_html : "</h2>\n"_html);
   }
   WriteCount();
   if (hasTools)
      WriteTools();
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

void THtmlTable::WriteCount()
{
   // The columns of a row table are soon counted.
   if ((!IsColumnTable() || IsComparison()) && !IsLong())
      return;
   fOut << "<p class=\"count\"><output>"_html;
   if (IsLong())
      fOut << TCount{fRowsInPage} << " of "_html;
   fOut << TCount{fRow} << (fRow == 1 ? " row"_html : " rows"_html) << "</output></p>\n"_html;
}

bool THtmlTable::NeedsTools() const
{
   return HasRowNumbers() && (CanSort() || fRow >= kRowsWorthTools);
}

/// Filter and copy need the script, and are hidden without it.
void THtmlTable::WriteTools()
{
   fOut << "<div class=\"tools\">\n"_html;
   if (NeedsTools())
      fOut
         << "<label class=\"filter js-only\"><span class=\"vh\">Filter "_html
         << TText{fHeading.fName}
         << "</span><input type=\"search\" placeholder=\"Filter rows\" autocomplete=\"off\">"
            "</label>\n<button type=\"button\" class=\"copy js-only\">Copy as CSV</button>\n"_html;
   if (NeedsSwitch())
      fOut << "<label class=\"switch\"><input type=\"checkbox\" class=\"show-raw\"> "
              "Untranslated values</label>\n"_html;
   fOut << "</div>\n"_html;
}

std::size_t THtmlTable::GetColumnCount() const
{
   return std::max(fLooks.size(), fShape.fLabels.size());
}

void THtmlTable::WriteColumns()
{
   std::vector<int> widths = fShape.fColumnWidths;
   widths.resize(GetColumnCount());
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

void THtmlTable::WriteHeaderRow()
{
   fOut << "<thead>\n<tr>"_html;
   if (HasRowNumbers())
      fOut << "<th scope=\"col\" class=\"n\">Row</th>"_html;
   for (std::size_t c = 0; c < GetColumnCount(); ++c) {
      const std::string_view label =
         c < fShape.fLabels.size() ? std::string_view(fShape.fLabels[c]) : "";
      const bool canSort = CanSort() && !IsBlank(label);
      fOut << "<th scope=\"col\""_html;
      WriteLook(fOut, GetLook(c));
      fOut << (canSort ? " aria-sort=\"none\"><button type=\"button\" class=\"sort\">"_html
                       : ">"_html)
           << TText{label} << (canSort ? "</button></th>"_html : "</th>"_html);
   }
   fOut << "</tr>\n</thead>\n"_html;
}

void THtmlTable::WriteTail()
{
   fOut << "</tbody>\n</table>\n</div>\n"_html;
   if (IsLong())
      WriteLongTableNote(fText.Close());
   else if (fRowsInPage > kRowsWorthSkipping)
      fOut << "<span class=\"end\" id=\"t"_html << TNumber{fNumber}
           << "-end\" tabindex=\"-1\"></span>\n"_html;
   fOut << "</section>\n"_html;
}

/// The script changes the first sentence once it shows all rows.
void THtmlTable::WriteLongTableNote(std::uint64_t textBytes)
{
   const std::uint64_t kilobytes = (textBytes + kBytesOfKilobyte - 1) / kBytesOfKilobyte;
   fOut << "<p class=\"table-note\" id=\"t"_html << TNumber{fNumber}
        << "-end\" tabindex=\"-1\"><span class=\"held\">This page holds the first "_html
        << TCount{fRowsInPage} << " of "_html << TCount{fRow}
        << " rows.</span> All rows as text: <a href=\"rows/"_html << TFileUrl{GetTextName()}
        << "\">"_html << TText{GetTextName()} << "</a>, "_html << TCount{kilobytes}
        << " KB.</p>\n"_html;
}
