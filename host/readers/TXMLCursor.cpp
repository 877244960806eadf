#include "readers/TXMLCursor.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include <fmt/format.h>

#include "readers/TSourceText.h"

namespace NZANQSX20 {

namespace {

constexpr std::size_t kMostWideBytes = 4;

bool IsDigit(char byte, bool isHex)
{
   const char lower = static_cast<char>(byte | 0x20);
   return (byte >= '0' && byte <= '9') || (isHex && lower >= 'a' && lower <= 'f');
}

unsigned GetDigit(char byte)
{
   return static_cast<unsigned>(byte <= '9' ? byte - '0' : (byte | 0x20) - 'a' + 10);
}

}  // namespace

TXMLCursor::TXMLCursor(TByteWindow& window, const std::string& name) : fWindow(window), fName(name)
{
   Look();
}

void TXMLCursor::Look()
{
   const std::string_view text = fWindow.GetText();
   fText = fCursor = text.data();
   fEnd = fCursor + text.size();
}

void TXMLCursor::Extend()
{
   if (fIsAtEnd)
      Fail(fEnd, "expected more XML, found the end of the file");
   TryExtend();
}

bool TXMLCursor::TryExtend()
{
   const auto passed = static_cast<std::size_t>(fCursor - fText);
   fPassed += passed;
   fWindow.Drop(passed);
   fIsAtEnd = !fWindow.Extend();
   Look();
   return !fIsAtEnd;
}

bool TXMLCursor::GoesOn(const char* cursor, std::string_view expected) const
{
   const std::size_t size = std::min(GetLeft(cursor), expected.size());
   if (std::memcmp(cursor, expected.data(), size) != 0)
      return false;
   if (size < expected.size())
      throw TNeedsMoreXML();
   return true;
}

const char* TXMLCursor::Find(const char* cursor, std::string_view what) const
{
   const std::string_view rest(cursor, GetLeft(cursor));
   const std::size_t found = rest.find(what);
   if (found == std::string_view::npos)
      throw TNeedsMoreXML();
   return cursor + found;
}

void TXMLCursor::Fail(const char* cursor, const std::string& text) const
{
   throw TReadError(fName, GetPlace(cursor), text);
}

void TXMLCursor::FailAt(const char* cursor, std::string_view expected) const
{
   const std::size_t left = GetLeft(cursor);
   const bool isWide = static_cast<unsigned char>(*cursor) >= 0x80;
   if (left == 0 || (isWide && left < kMostWideBytes && !fIsAtEnd))
      throw TNeedsMoreXML();
   const std::size_t length = isWide ? MatchUtf8Character({cursor, left}) : 1;
   if (length == 0)
      Fail(cursor, fmt::format("expected UTF-8, found the byte 0x{:02X}",
                               static_cast<unsigned char>(*cursor)));
   Fail(cursor, fmt::format("expected {}, found {}", expected, QuoteForMessage({cursor, length})));
}

void TXMLCursor::Pass(const char* end)
{
   const char* cursor = fCursor;
   while (cursor < end) {
      const bool isMarkup = *cursor == '<' || *cursor == '&' || *cursor == ']';
      if (isMarkup || IsXMLByte(*cursor, kXMLText))
         ++cursor;
      else if (IsXMLByte(*cursor, kXMLBlank))
         SkipBlank(cursor);
      else
         cursor = PassWide(cursor);
   }
   fCursor = cursor;
}

const char* TXMLCursor::PassWide(const char* cursor)
{
   char32_t character = 0;
   const bool isWide = static_cast<unsigned char>(*cursor) >= 0x80;
   const std::size_t length = isWide ? TakeXMLCharacter({cursor, GetLeft(cursor)}, character) : 0;
   if (length == 0)
      FailAt(cursor, "a character that XML allows");
   fLineStart += length - 1;
   return cursor + length;
}

/// A name with characters beyond ASCII, none at all, or the end of the window.
void TXMLCursor::ReadWideName(const char* start, const char*& cursor)
{
   while (static_cast<unsigned char>(*cursor) >= 0x80) {
      char32_t character = 0;
      const std::size_t length = TakeXMLCharacter({cursor, GetLeft(cursor)}, character);
      if (length == 0 || !IsXMLNameCharacter(character, cursor == start))
         FailAt(cursor, "a name");
      fLineStart += length - 1;
      cursor += length;
      while (IsXMLByte(*cursor, kXMLName))
         ++cursor;
   }
   if (cursor == start)
      FailAt(cursor, "a name");
   if (cursor == fEnd)
      throw TNeedsMoreXML();
}

std::string TXMLCursor::ReadReference(const char*& cursor)
{
   const char* const start = cursor++;
   std::string text;
   if (*cursor == '#') {
      ++cursor;
      AppendUtf8(text, ReadCharacterNumber(cursor));
   } else {
      text = FindEntity(start, ReadName(cursor));
   }
   if (*cursor != ';')
      FailAt(cursor, "';' behind a reference");
   ++cursor;
   return text;
}

char32_t TXMLCursor::ReadCharacterNumber(const char*& cursor) const
{
   constexpr char32_t kTooLarge = 0x110000;
   const bool isHex = *cursor == 'x';
   if (isHex)
      ++cursor;
   char32_t number = 0;
   const char* const start = cursor;
   for (; IsDigit(*cursor, isHex); ++cursor)
      number = std::min<char32_t>(number * (isHex ? 16 : 10) + GetDigit(*cursor), kTooLarge);
   if (cursor == start || *cursor != ';')
      FailAt(cursor, cursor == start ? "the number of a character" : "';' behind a reference");
   if (!IsXMLCharacter(number))
      Fail(start, "expected the number of a character that XML allows, found another one");
   return number;
}

std::string_view TXMLCursor::FindEntity(const char* start, std::string_view name) const
{
   constexpr std::pair<std::string_view, std::string_view> kEntities[] = {
      {"amp", "&"}, {"lt", "<"}, {"gt", ">"}, {"quot", "\""}, {"apos", "'"}};
   for (const auto& [entity, text] : kEntities)
      if (name == entity)
         return text;
   Fail(start, fmt::format("expected a predefined entity, found {}", QuoteForMessage(name)));
}

}  // namespace NZANQSX20
