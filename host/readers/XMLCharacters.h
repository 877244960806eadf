#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace NZANQSX20 {

/// What a byte may be in XML 1.0, as bits.
enum EXMLByte : std::uint8_t
{
   kXMLName = 1,
   kXMLNameStart = 2,
   kXMLBlank = 4,
   /// Stands for itself in a text: no markup, no line end, no "]" that may end a CDATA section.
   kXMLText = 8,
   /// Stands for itself in an attribute, whichever quotes are around it.
   kXMLAttribute = 16
};

namespace detail {

constexpr bool IsAsciiLetter(unsigned byte)
{
   return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
}

constexpr std::array<std::uint8_t, 256> MakeXMLBytes()
{
   std::array<std::uint8_t, 256> bytes = {};
   for (unsigned byte = 0; byte < 0x80; ++byte) {
      const bool startsName = IsAsciiLetter(byte) || byte == '_' || byte == ':';
      const bool isBlank = byte == ' ' || byte == '\t' || byte == '\n' || byte == '\r';
      unsigned bits = 0;
      if (isBlank)
         bits |= kXMLBlank;
      if (startsName)
         bits |= kXMLName | kXMLNameStart;
      if ((byte >= '0' && byte <= '9') || byte == '-' || byte == '.')
         bits |= kXMLName;
      if ((byte >= ' ' || byte == '\t') && byte != '<' && byte != '&' && byte != ']')
         bits |= kXMLText;
      if (byte >= ' ' && byte != '<' && byte != '&' && byte != '"' && byte != '\'')
         bits |= kXMLAttribute;
      bytes[byte] = static_cast<std::uint8_t>(bits);
   }
   return bytes;
}

}  // namespace detail

/// The bits of each ASCII byte; none for the bytes of other characters.
constexpr std::array<std::uint8_t, 256> kXMLBytes = detail::MakeXMLBytes();

constexpr bool IsXMLByte(char byte, EXMLByte kind)
{
   return (kXMLBytes[static_cast<unsigned char>(byte)] & kind) != 0;
}

inline bool StartsWith(std::string_view text, std::string_view start)
{
   return text.substr(0, start.size()) == start;
}

/// Whether a document may hold the character at all.
bool IsXMLCharacter(char32_t character);

/// Whether a character beyond ASCII may stand in a name, or begin one.
bool IsXMLNameCharacter(char32_t character, bool isFirst);

/// The bytes of the character beyond ASCII that the text starts with, and the character.
/// Missing: 0 where it is no UTF-8 or no character that a document may hold.
std::size_t TakeXMLCharacter(std::string_view text, char32_t& character);

}  // namespace NZANQSX20
