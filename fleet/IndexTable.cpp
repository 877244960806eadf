#include "IndexTable.h"

#include "html/HtmlState.h"

TIndexTable::TIndexTable(THtmlSink& out, TRowFiles& rowFiles, EFleetPage page, std::size_t first,
                         std::size_t count, const std::vector<TIndexColumn>& columns)
   : fOut(out),
     fRowFiles(rowFiles),
     fFile(first / kRowsPerFile),
     fColumns(columns),
     fFirst(first),
     fCount(count)
{
   fRowFiles.BeginTable(static_cast<std::size_t>(page), static_cast<unsigned>(fFile + 1));
   const bool isFirmware = page == EFleetPage::kFirmware;
   const TMarkup name = isFirmware ? "Firmware levels"_html : "Machines"_html;
   fOut << "<section class=\"block\" id=\"t"_html << TNumber{fFile + 1}
        << "\">\n<div class=\"block-head\">\n<h2>"_html << name
        << "</h2>\n<p class=\"count\"><output>"_html << TCount{fCount}
        << (fCount == 1 ? " row"_html : " rows"_html)
        << "</output></p>\n<div class=\"tools\">\n<label class=\"filter js-only\"><span "
           "class=\"vh\">Filter the rows of this page</span><input type=\"search\" "
           "placeholder=\"Filter this page\" autocomplete=\"off\"></label>\n<button "
           "type=\"button\" class=\"copy js-only\">Copy as CSV</button>\n</div>\n</div>\n"
           "<div class=\"scroll wide\" role=\"group\" tabindex=\"0\" aria-label=\""_html
        << name << ", table\">\n<table class=\"grid cols fleet\">\n<caption class=\"vh\">"_html
        << name << "</caption>\n"_html;
   WriteColumns();
}

void TIndexTable::WriteColumns()
{
   fOut << "<colgroup>"_html;
   for (const TIndexColumn& column : fColumns)
      fOut << "<col class=\"w-"_html << TNumber{column.fWidth} << "\">"_html;
   fOut << "</colgroup>\n<thead>\n<tr>"_html;
   for (const TIndexColumn& column : fColumns)
      fOut << (column.fSorts ? "<th scope=\"col\" aria-sort=\"none\"><button type=\"button\" "
                               "class=\"sort\">"_html
                             : "<th scope=\"col\">"_html)
           << TText{column.fLabel} << (column.fSorts ? "</button></th>"_html : "</th>"_html);
   fOut << "</tr>\n</thead>\n<tbody>\n"_html;
}

void TIndexTable::BeginRow()
{
   fOut << "<tr id=\"t"_html << TNumber{fFile + 1} << "-r"_html << TNumber{++fRow} << "\">"_html;
}

void TIndexTable::AddText(std::string_view text, TMarkup cellClass)
{
   fOut << "<td"_html;
   if (!cellClass.Get().empty())
      fOut << " class=\""_html << cellClass << "\""_html;
   fOut << ">"_html << TText{text} << "</td>"_html;
   KeepText(text, false);
}

void TIndexTable::AddState(EState state)
{
   fOut << "<td class=\""_html << GetStateClass(state) << "\"><span class=\"told "_html
        << GetStateColour(state) << "\">"_html;
   WriteStateShape(fOut, state);
   fOut << TText{GetStateWord(state)} << "</span></td>"_html;
   KeepText(GetStateWord(state), false);
}

void TIndexTable::AddCell(std::string_view text, const std::function<void()>& write)
{
   fOut << "<td>"_html;
   write();
   fOut << "</td>"_html;
   KeepText(text, false);
}

void TIndexTable::AddHeading(std::string_view text, const std::function<void()>& write)
{
   fOut << "<th scope=\"row\">"_html;
   write();
   fOut << "</th>"_html;
   KeepText(text, true);
}

void TIndexTable::KeepText(std::string_view text, bool isHeading)
{
   TCell cell;
   cell.fText = text;
   fRowFiles.AddCell(cell, {isHeading, false});
}

void TIndexTable::EndRow()
{
   fOut << "</tr>\n"_html;
   fRowFiles.EndRow();
}

void TIndexTable::End(const std::string& name)
{
   fOut << "</tbody>\n</table>\n</div>\n</section>\n"_html;
   std::vector<std::string> labels;
   for (const TIndexColumn& column : fColumns)
      labels.emplace_back(column.fLabel);
   fRowFiles.EndTable(
      fFile, name + ' ' + std::to_string(fFirst + 1) + " to " + std::to_string(fFirst + fCount),
      labels);
}
