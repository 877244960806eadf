#include "readers/TSourceText.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <memory>

#include <fmt/format.h>
#include <iconv.h>

namespace NZANQSX20 {

namespace {

/// How many bytes of pure ASCII the text starts with, counted in whole words.
std::size_t SkipAsciiWords(const char* text, std::size_t size)
{
   std::size_t offset = 0;
   while (offset + sizeof(std::uint64_t) <= size) {
      std::uint64_t word;
      std::memcpy(&word, text + offset, sizeof word);
      if ((word & 0x8080808080808080ULL) != 0)
         break;
      offset += sizeof word;
   }
   return offset;
}

struct TLead
{
   std::size_t fLength;
   unsigned char fSecondLow;
   unsigned char fSecondHigh;
};

/// The length of the character that the byte leads and the range of its second byte (which shuts
/// out overlong forms, surrogates and what lies beyond Unicode). Missing: length 0.
TLead ReadLead(unsigned char lead)
{
   if (lead >= 0xC2 && lead <= 0xDF)
      return {2, 0x80, 0xBF};
   if (lead == 0xE0)
      return {3, 0xA0, 0xBF};
   if (lead == 0xED)
      return {3, 0x80, 0x9F};
   if (lead >= 0xE1 && lead <= 0xEF)
      return {3, 0x80, 0xBF};
   if (lead == 0xF0)
      return {4, 0x90, 0xBF};
   if (lead >= 0xF1 && lead <= 0xF3)
      return {4, 0x80, 0xBF};
   if (lead == 0xF4)
      return {4, 0x80, 0x8F};
   return {0, 0, 0};
}

}  // namespace

std::size_t MatchUtf8Character(std::string_view text)
{
   const auto* const bytes = reinterpret_cast<const unsigned char*>(text.data());
   const TLead lead = ReadLead(bytes[0]);
   if (lead.fLength == 0 || lead.fLength > text.size())
      return 0;
   if (bytes[1] < lead.fSecondLow || bytes[1] > lead.fSecondHigh)
      return 0;
   for (std::size_t index = 2; index < lead.fLength; ++index)
      if (bytes[index] < 0x80 || bytes[index] > 0xBF)
         return 0;
   return lead.fLength;
}

std::size_t FindInvalidUtf8(std::string_view text)
{
   std::size_t offset = 0;
   while (offset < text.size()) {
      offset += SkipAsciiWords(text.data() + offset, text.size() - offset);
      if (offset == text.size())
         break;
      if (static_cast<unsigned char>(text[offset]) < 0x80) {
         ++offset;
         continue;
      }
      const std::size_t length = MatchUtf8Character(text.substr(offset));
      if (length == 0)
         return offset;
      offset += length;
   }
   return std::string_view::npos;
}

std::string ConvertToUtf8(const std::string& name, std::string text)
{
   const std::string_view mark = std::string_view(text).substr(0, 2);
   if (mark != "\xFF\xFE" && mark != "\xFE\xFF")
      return text;
   const auto close = [](void* converter) { iconv_close(converter); };
   const std::unique_ptr<void, decltype(close)> converter(iconv_open("UTF-8", "UTF-16"), close);

   // A unit of two bytes becomes three at most.
   std::string converted(text.size() / 2 * 3 + 4, '\0');
   char* input = text.data();
   std::size_t inputLeft = text.size();
   char* output = converted.data();
   std::size_t outputLeft = converted.size();
   if (iconv(converter.get(), &input, &inputLeft, &output, &outputLeft) ==
       static_cast<std::size_t>(-1))
      throw TReadError(
         name, {}, fmt::format("expected UTF-16, found none at byte {}", text.size() - inputLeft));
   converted.resize(converted.size() - outputLeft);
   return converted;
}

void AppendUtf8(std::string& text, char32_t codePoint)
{
   const auto put = [&text](char32_t byte) { text += static_cast<char>(byte); };
   if (codePoint < 0x80) {
      put(codePoint);
      return;
   }
   if (codePoint < 0x800)
      put(0xC0 | (codePoint >> 6));
   else {
      if (codePoint < 0x10000)
         put(0xE0 | (codePoint >> 12));
      else {
         put(0xF0 | (codePoint >> 18));
         put(0x80 | ((codePoint >> 12) & 0x3F));
      }
      put(0x80 | ((codePoint >> 6) & 0x3F));
   }
   put(0x80 | (codePoint & 0x3F));
}

TPlace TSourceText::Locate(std::size_t mark) const
{
   if (mark < fLocatedMark) {
      fLocatedMark = 0;
      fLocatedPlace = {1, 1};
   }
   std::string_view passed = std::string_view(fText).substr(fLocatedMark, mark - fLocatedMark);
   if (fLocatedMark == 0 && passed.substr(0, kByteOrderMark.size()) == kByteOrderMark)
      passed.remove_prefix(kByteOrderMark.size());

   const std::size_t lastLineEnd = passed.rfind('\n');
   if (lastLineEnd != std::string_view::npos) {
      const auto lines = std::count(passed.begin(), passed.end(), '\n');
      fLocatedPlace.fLine += static_cast<std::size_t>(lines);
      fLocatedPlace.fColumn = 1;
      passed.remove_prefix(lastLineEnd + 1);
   }
   const auto isCharacterStart = [](char byte) {
      return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
   };
   const auto characters = std::count_if(passed.begin(), passed.end(), isCharacterStart);
   fLocatedPlace.fColumn += static_cast<std::size_t>(characters);
   fLocatedMark = mark;
   return fLocatedPlace;
}

void TSourceText::RequireUtf8() const
{
   const std::size_t offset = FindInvalidUtf8(fText);
   if (offset != std::string_view::npos)
      Fail(offset, fmt::format("expected UTF-8, found the byte 0x{:02X}",
                               static_cast<unsigned char>(fText[offset])));
}

}  // namespace NZANQSX20
