#include "readers/MOFText.h"

#include <cstdint>
#include <string>

#include <fmt/format.h>

namespace NZANQSX20 {

namespace {

bool IsHexDigit(char byte)
{
   return (byte >= '0' && byte <= '9') || (byte >= 'a' && byte <= 'f') ||
          (byte >= 'A' && byte <= 'F');
}

char32_t GetHexDigit(char byte)
{
   if (byte <= '9')
      return static_cast<char32_t>(byte - '0');
   return static_cast<char32_t>((byte | 0x20) - 'a' + 10);
}

bool IsHighSurrogate(char32_t unit)
{
   return unit >= 0xD800 && unit <= 0xDBFF;
}

bool IsLowSurrogate(char32_t unit)
{
   return unit >= 0xDC00 && unit <= 0xDFFF;
}

/// Walks over literals and blanks and comments between them.
class TLiteralReader
{
public:
   TLiteralReader(std::string_view literals, const TSource& source, std::size_t mark)
      : fLiterals(literals), fSource(source), fMark(mark)
   {}

   std::string Read()
   {
      while (fOffset < fLiterals.size()) {
         const char byte = fLiterals[fOffset];
         if (byte == '"' || byte == '\'')
            ReadLiteral(byte);
         else if (byte == '/')
            SkipComment();
         else
            ++fOffset;
      }
      return std::move(fText);
   }

private:
   void SkipComment()
   {
      const bool isLine = fLiterals[fOffset + 1] == '/';
      const std::size_t end = fLiterals.find(isLine ? "\n" : "*/", fOffset + 2);
      fOffset = end + (isLine ? 1 : 2);
   }

   void ReadLiteral(char quote)
   {
      ++fOffset;
      while (fLiterals[fOffset] != quote) {
         if (fLiterals[fOffset] == '\\')
            ReadEscape();
         else
            fText += fLiterals[fOffset++];
      }
      ++fOffset;
   }

   void ReadEscape()
   {
      const std::size_t start = fOffset;
      const char kind = fLiterals[start + 1];
      fOffset += 2;
      switch (kind) {
         case 'b':
            fText += '\b';
            break;
         case 't':
            fText += '\t';
            break;
         case 'n':
            fText += '\n';
            break;
         case 'f':
            fText += '\f';
            break;
         case 'r':
            fText += '\r';
            break;
         case 'x':
         case 'X':
            ReadCodePoint(start);
            break;
         default:
            fText += kind;
      }
   }

   /// The UTF-16 unit whose digits begin here.
   char32_t ReadUnit()
   {
      char32_t unit = 0;
      for (int digits = 0; digits < 4 && IsHexDigit(fLiterals[fOffset]); ++digits)
         unit = unit * 16 + GetHexDigit(fLiterals[fOffset++]);
      return unit;
   }

   void ReadCodePoint(std::size_t start)
   {
      char32_t unit = ReadUnit();
      if (IsHighSurrogate(unit) && fLiterals[fOffset] == '\\' &&
          (fLiterals[fOffset + 1] | 0x20) == 'x') {
         fOffset += 2;
         const char32_t low = ReadUnit();
         if (!IsLowSurrogate(low))
            FailAtSurrogate(start);
         unit = 0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00);
      }
      if (IsHighSurrogate(unit) || IsLowSurrogate(unit))
         FailAtSurrogate(start);
      AppendUtf8(fText, unit);
   }

   [[noreturn]] void FailAtSurrogate(std::size_t start) const
   {
      fSource.Fail(fMark + start, fmt::format("expected both halves of a surrogate pair, found {}",
                                              QuoteForMessage(fLiterals.substr(start, 6))));
   }

   std::string_view fLiterals;
   const TSource& fSource;
   std::size_t fMark;
   std::size_t fOffset = 0;
   std::string fText;
};

}  // namespace

std::string_view ReadMOFText(std::string_view literals, const TSource& source, std::size_t mark,
                             TObjectDraft& draft)
{
   const std::string_view content = literals.substr(1, literals.size() - 2);
   if (content.find('\\') == std::string_view::npos &&
       content.find(literals[0]) == std::string_view::npos)
      return content;
   return draft.Keep(TLiteralReader(literals, source, mark).Read());
}

}  // namespace NZANQSX20
