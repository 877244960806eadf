#include "readers/XMLCharacters.h"

#include <algorithm>

#include "readers/TSourceText.h"

namespace NZANQSX20 {

namespace {

struct TRange
{
   char32_t fFirst;
   char32_t fLast;
};

/// Production [4] of XML 1.0, fifth edition, without ASCII.
constexpr TRange kNameStarts[] = {{0xC0, 0xD6},     {0xD8, 0xF6},     {0xF8, 0x2FF},
                                  {0x370, 0x37D},   {0x37F, 0x1FFF},  {0x200C, 0x200D},
                                  {0x2070, 0x218F}, {0x2C00, 0x2FEF}, {0x3001, 0xD7FF},
                                  {0xF900, 0xFDCF}, {0xFDF0, 0xFFFD}, {0x10000, 0xEFFFF}};

/// What production [4a] adds.
constexpr TRange kNameParts[] = {{0xB7, 0xB7}, {0x300, 0x36F}, {0x203F, 0x2040}};

template <std::size_t count>
bool LiesIn(const TRange (&ranges)[count], char32_t character)
{
   return std::any_of(std::begin(ranges), std::end(ranges), [character](const TRange& range) {
      return character >= range.fFirst && character <= range.fLast;
   });
}

char32_t Decode(std::string_view bytes)
{
   constexpr unsigned kLeadMasks[] = {0, 0, 0x1F, 0x0F, 0x07};
   char32_t character = static_cast<unsigned char>(bytes[0]) & kLeadMasks[bytes.size()];
   for (const char byte : bytes.substr(1))
      character = character << 6 | (static_cast<unsigned char>(byte) & 0x3FU);
   return character;
}

}  // namespace

bool IsXMLCharacter(char32_t character)
{
   if (character < 0x20)
      return character == '\t' || character == '\n' || character == '\r';
   return character <= 0xD7FF || (character >= 0xE000 && character <= 0xFFFD) ||
          (character >= 0x10000 && character <= 0x10FFFF);
}

bool IsXMLNameCharacter(char32_t character, bool isFirst)
{
   return LiesIn(kNameStarts, character) || (!isFirst && LiesIn(kNameParts, character));
}

std::size_t TakeXMLCharacter(std::string_view text, char32_t& character)
{
   const std::size_t length = MatchUtf8Character(text);
   if (length == 0)
      return 0;
   character = Decode(text.substr(0, length));
   return IsXMLCharacter(character) ? length : 0;
}

}  // namespace NZANQSX20
