#include "text/TextLines.h"

#include <algorithm>

#include <utf8proc.h>

#include "common/SafeText.h"

namespace {

constexpr TPlainBytes kPlain("\t");

std::string_view GetEscape(char c)
{
   return c == '\t' ? " " : std::string_view();
}

struct TTextAppender
{
   void Write(std::string_view bytes) { fText += bytes; }

   std::string& fText;
};

struct TGlyph
{
   std::size_t fBytes;
   std::size_t fWidth;
};

TGlyph ReadGlyph(std::string_view text)
{
   const auto byte = static_cast<unsigned char>(text[0]);
   if (byte < 0x80)
      return {1, 1};
   const TCharacter character = DecodeUtf8(text.data(), text.data() + text.size());
   const int width = utf8proc_charwidth(static_cast<utf8proc_int32_t>(character.fCodePoint));
   return {character.fLength, static_cast<std::size_t>(std::max(width, 0))};
}

/// How many bytes of the text fit into the width, one character at least.
std::size_t CountFitting(std::string_view text, std::size_t width)
{
   std::size_t at = 0;
   std::size_t used = 0;
   while (at < text.size()) {
      const TGlyph glyph = ReadGlyph(text.substr(at));
      if (at > 0 && used + glyph.fWidth > width)
         break;
      used += glyph.fWidth;
      at += glyph.fBytes;
   }
   return at;
}

void WrapLine(std::string_view line, std::size_t width, std::vector<std::string_view>& lines)
{
   while (true) {
      const std::size_t fitting = CountFitting(line, width);
      if (fitting == line.size()) {
         lines.push_back(line);
         return;
      }
      // The blank that ends a full line belongs to it.
      std::size_t end = line[fitting] == ' ' ? fitting : line.rfind(' ', fitting - 1);
      if (end == std::string_view::npos || line.find_first_not_of(' ') > end)
         end = fitting;
      lines.push_back(line.substr(0, end));
      line.remove_prefix(end);
      line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
      if (line.empty())
         return;
   }
}

}  // namespace

std::string MakeShownText(std::string_view text)
{
   std::string shown;
   TTextAppender appender{shown};
   WriteSafeText(appender, text, kPlain, GetEscape);
   return shown;
}

std::size_t GetWidth(std::string_view text)
{
   std::size_t width = 0;
   while (!text.empty()) {
      const TGlyph glyph = ReadGlyph(text);
      width += glyph.fWidth;
      text.remove_prefix(glyph.fBytes);
   }
   return width;
}

TTextWidths MeasureText(std::string_view text)
{
   TTextWidths widths;
   std::size_t line = 0;
   std::size_t word = 0;
   while (!text.empty()) {
      const TGlyph glyph = ReadGlyph(text);
      const bool isLineEnd = text[0] == '\n';
      line = isLineEnd ? 0 : line + glyph.fWidth;
      word = isLineEnd || text[0] == ' ' ? 0 : word + glyph.fWidth;
      widths.fLine = std::max(widths.fLine, line);
      widths.fWord = std::max(widths.fWord, word);
      text.remove_prefix(glyph.fBytes);
   }
   return widths;
}

std::vector<std::string_view> WrapText(std::string_view text, std::size_t width)
{
   std::vector<std::string_view> lines;
   while (true) {
      const std::size_t end = text.find('\n');
      WrapLine(text.substr(0, end), width, lines);
      if (end == std::string_view::npos)
         return lines;
      text.remove_prefix(end + 1);
   }
}

void AppendPadded(std::string& line, std::string_view text, std::size_t width)
{
   const std::size_t used = GetWidth(text);
   line += text;
   if (used < width)
      line.append(width - used, ' ');
}
