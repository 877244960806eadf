#pragma once

#include <string_view>

/// One character of a text that may be no valid UTF-8.
struct TCharacter
{
   /// U+FFFD for bytes that are no character.
   char32_t fCodePoint;
   /// Bytes of the text that it takes up, at least 1.
   unsigned fLength;
   bool fIsValid;
};

/// The character at begin; begin is before end.
TCharacter DecodeUtf8(const char* begin, const char* end);

/// What stands in a page for a character that must not reach it as it is: the picture of a control
/// character, and U+FFFD for one that turns the direction of the text around it.
/// Missing: empty for every other character; tab and line feed are text.
std::string_view GetSafeForm(char32_t codePoint);

constexpr std::string_view kReplacementCharacter = "\xEF\xBF\xBD";
