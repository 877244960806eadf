#include "common/Utf8.h"

#include <array>

namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsContinuation(unsigned char byte)
{
   return (byte & 0xC0) == 0x80;
}

/// Length by the first byte, with the bounds of the second that keep out overlong forms, surrogates
/// and what lies past U+10FFFF.
struct TLead
{
   unsigned fLength;
   unsigned char fLowest;
   unsigned char fHighest;
};

TLead GetLead(unsigned char byte)
{
   if (byte >= 0xC2 && byte <= 0xDF)
      return {2, 0x80, 0xBF};
   if (byte == 0xE0)
      return {3, 0xA0, 0xBF};
   if (byte == 0xED)
      return {3, 0x80, 0x9F};
   if (byte >= 0xE1 && byte <= 0xEF)
      return {3, 0x80, 0xBF};
   if (byte == 0xF0)
      return {4, 0x90, 0xBF};
   if (byte == 0xF4)
      return {4, 0x80, 0x8F};
   if (byte >= 0xF1 && byte <= 0xF3)
      return {4, 0x80, 0xBF};
   return {0, 0, 0};
}

/// The pictures of the C0 controls, U+2400 to U+241F, three bytes each.
struct TControlPictures
{
   std::array<char, 32 * 3> fBytes{};

   constexpr TControlPictures()
   {
      for (std::size_t i = 0; i < 32; ++i) {
         fBytes[3 * i] = '\xE2';
         fBytes[3 * i + 1] = '\x90';
         fBytes[3 * i + 2] = static_cast<char>(0x80 + i);
      }
   }
};

constexpr TControlPictures kControlPictures;

bool TurnsDirection(char32_t codePoint)
{
   return (codePoint >= 0x202A && codePoint <= 0x202E) ||
          (codePoint >= 0x2066 && codePoint <= 0x2069);
}

bool IsNoCharacter(char32_t codePoint)
{
   return (codePoint & 0xFFFE) == 0xFFFE || (codePoint >= 0xFDD0 && codePoint <= 0xFDEF);
}

}  // namespace

TCharacter DecodeUtf8(const char* begin, const char* end)
{
   const auto byteAt = [begin](unsigned i) { return static_cast<unsigned char>(begin[i]); };
   const unsigned char first = byteAt(0);
   if (first < 0x80)
      return {first, 1, true};

   const TLead lead = GetLead(first);
   if (lead.fLength == 0 || end - begin < 2 || byteAt(1) < lead.fLowest ||
       byteAt(1) > lead.fHighest)
      return {kReplacement, 1, false};

   char32_t codePoint = first & (0x7Fu >> lead.fLength);
   for (unsigned i = 1; i < lead.fLength; ++i) {
      if (end - begin <= static_cast<long>(i) || !IsContinuation(byteAt(i)))
         return {kReplacement, i, false};
      codePoint = (codePoint << 6) | (byteAt(i) & 0x3F);
   }
   return {codePoint, lead.fLength, true};
}

std::string_view GetSafeForm(char32_t codePoint)
{
   if (codePoint < 0x20 && codePoint != '\t' && codePoint != '\n')
      return std::string_view(kControlPictures.fBytes.data() + 3 * codePoint, 3);
   if (codePoint == 0x7F)
      return "\xE2\x90\xA1";
   const bool isC1Control = codePoint >= 0x80 && codePoint < 0xA0;
   if (isC1Control || TurnsDirection(codePoint) || IsNoCharacter(codePoint))
      return kReplacementCharacter;
   return {};
}
