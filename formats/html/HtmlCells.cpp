#include "html/HtmlCells.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "html/HtmlState.h"

namespace {

constexpr std::size_t kLongestWord = 24;
constexpr std::size_t kLeastWidthOfLongWords = 24;
constexpr std::size_t kMeasuredRows = 50;
constexpr std::string_view kTimeShape = "0000-00-00 00:00:00";
constexpr std::size_t kDateLength = 10;
constexpr double kFullScore = 100;

bool IsDigit(char c)
{
   return c >= '0' && c <= '9';
}

/// Whether the text is a number and perhaps a unit behind a blank or a percent sign.
bool IsNumberWithUnit(std::string_view text, std::string_view& unit)
{
   std::size_t at = !text.empty() && (text[0] == '-' || text[0] == '+') ? 1 : 0;
   if (at == text.size() || !IsDigit(text[at]))
      return false;
   unsigned points = 0;
   for (; at < text.size() && (IsDigit(text[at]) || text[at] == ',' || text[at] == '.'); ++at)
      points += text[at] == '.';
   unit = text.substr(at);
   const bool isUnit = unit.empty() || unit[0] == ' ' || unit == "%";
   return points <= 1 && isUnit && std::none_of(unit.begin(), unit.end(), IsDigit);
}

/// A date, with a time behind it or without.
bool IsTime(std::string_view text)
{
   text = text.substr(0, text.find_last_not_of(' ') + 1);
   if (text.size() != kTimeShape.size() && text.size() != kDateLength)
      return false;
   for (std::size_t i = 0; i < text.size(); ++i)
      if (kTimeShape[i] == '0' ? !IsDigit(text[i]) : text[i] != kTimeShape[i])
         return false;
   return true;
}

bool EndsWord(char c)
{
   return c == ' ' || c == '\n' || c == '\t';
}

/// Looks backwards from where a word that begins here would be too long, so that most characters
/// are passed over.
bool HasLongWord(std::string_view text)
{
   std::size_t begin = 0;
   while (text.size() - begin > kLongestWord) {
      std::size_t blank = begin + kLongestWord;
      while (blank > begin && !EndsWord(text[blank]))
         --blank;
      if (blank == begin && !EndsWord(text[begin]))
         return true;
      begin = blank + 1;
   }
   return false;
}

std::size_t GetLongestWord(std::string_view text)
{
   std::size_t longest = 0;
   std::size_t begin = 0;
   for (std::size_t i = 0; i <= text.size(); ++i)
      if (i == text.size() || EndsWord(text[i])) {
         longest = std::max(longest, i - begin);
         begin = i + 1;
      }
   return longest;
}

/// The next line of a text, taken off its front.
std::string_view TakeLine(std::string_view& text)
{
   const std::size_t end = text.find('\n');
   const std::string_view line = text.substr(0, end);
   text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
   return line;
}

void WriteScore(THtmlSink& out, std::string_view score)
{
   const double value = std::strtod(std::string(score).c_str(), nullptr);
   // A score that is no number has an empty bar.
   const double percent = value > 0 ? std::min(100.0, value * 100 / kFullScore) : 0;
   char width[16];
   std::snprintf(width, sizeof width, "%.1f%%", percent);
   out << "<svg class=\"bar\" aria-hidden=\"true\"><rect class=\"f-track\" width=\"100%\" "
          "height=\"12\"/>"
          "<rect class=\"f-base\" width=\""_html
       << TText{width} << "\" height=\"12\"/></svg>"_html << TText{score};
}

void WriteFrequencies(THtmlSink& out, std::string_view values, std::string_view frequencies)
{
   out << "<ul class=\"freq\">"_html;
   while (!values.empty() || !frequencies.empty()) {
      out << "<li><span>"_html << TText{TakeLine(values)} << "</span> <span class=\"num\">"_html
          << TText{TakeLine(frequencies)} << "</span></li>"_html;
   }
   out << "</ul>"_html;
}

}  // namespace

EColumnLook JudgeColumn(const TTableRows& rows, std::size_t firstRow, std::size_t endRow,
                        std::size_t column)
{
   bool isNumber = true;
   bool isTime = true;
   bool isEmpty = true;
   std::string_view commonUnit;
   for (std::size_t r = firstRow; r < endRow; ++r) {
      if (column >= rows.GetCellCount(r))
         continue;
      const TCell cell = rows.GetCell(r, column);
      if (cell.fText.empty())
         continue;
      if (cell.fKind != ECellKind::kText)
         return EColumnLook::kText;
      std::string_view unit;
      isNumber = isNumber && IsNumberWithUnit(cell.fText, unit) && (isEmpty || unit == commonUnit);
      isTime = isTime && IsTime(cell.fText);
      commonUnit = unit;
      isEmpty = false;
      if (cell.fText.size() > kLongestWord && HasLongWord(cell.fText))
         return EColumnLook::kLongWords;
   }
   if (isEmpty || (!isNumber && !isTime))
      return EColumnLook::kText;
   return isNumber ? EColumnLook::kNumber : EColumnLook::kTime;
}

std::size_t MeasureColumn(const TTableRows& rows, std::size_t firstRow, std::size_t endRow,
                          std::size_t column, EColumnLook look, std::string_view label)
{
   std::size_t width = GetLongestWord(label);
   if (look == EColumnLook::kLongWords)
      return std::max(width, kLeastWidthOfLongWords);
   const bool wraps = look == EColumnLook::kText;
   for (std::size_t r = firstRow; r < std::min(endRow, firstRow + kMeasuredRows); ++r) {
      if (column >= rows.GetCellCount(r))
         continue;
      const TCell cell = rows.GetCell(r, column);
      // Monospaced cells break anywhere.
      if (!cell.fMonospaced)
         width = std::max(width, wraps ? GetLongestWord(cell.fText) : cell.fText.size());
   }
   return width;
}

void WriteLook(THtmlSink& out, EColumnLook look)
{
   switch (look) {
      case EColumnLook::kText:
         return;
      case EColumnLook::kNumber:
         out << " class=\"num\""_html;
         return;
      case EColumnLook::kTime:
         out << " class=\"when\""_html;
         return;
      case EColumnLook::kLongWords:
         out << " class=\"brk\""_html;
         return;
   }
}

void WriteCellLook(THtmlSink& out, const TCell& cell, EColumnLook look)
{
   if (GetStateClass(cell.fState).Get().empty())
      return WriteLook(out, look);
   out << " class=\""_html << GetStateClass(cell.fState) << "\""_html;
}

void WriteValueCell(THtmlSink& out, const TCell& cell, EColumnLook look, bool isChanged)
{
   if (cell.fSame) {
      out << " class=\"same\">same"_html;
      return;
   }
   if (isChanged)
      out << (cell.fMonospaced ? " class=\"changed mono\""_html : " class=\"changed\""_html);
   else if (cell.fMonospaced)
      out << " class=\"mono\""_html;
   else if (cell.fKind == ECellKind::kScore)
      out << " class=\"score\""_html;
   else
      WriteCellLook(out, cell, look);
   out << ">"_html;
   WriteCellContent(out, cell);
}

void WriteCellContent(THtmlSink& out, const TCell& cell)
{
   switch (cell.fKind) {
      case ECellKind::kResultFile:
         out << "<a href=\""_html << TFileUrl{cell.fSecondText} << "\">"_html << TText{cell.fText}
             << "</a>"_html;
         return;
      case ECellKind::kScore:
         return WriteScore(out, cell.fText);
      case ECellKind::kFrequencies:
         return WriteFrequencies(out, cell.fText, cell.fSecondText);
      case ECellKind::kText:
         break;
   }
   WriteStateMark(out, cell.fState, cell.fText);
   out << TText{cell.fText};
   if (!cell.fSecondText.empty())
      out << "<span class=\"raw\">"_html << TText{cell.fSecondText} << "</span>"_html;
}
