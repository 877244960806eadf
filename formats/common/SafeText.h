#pragma once

#include <array>
#include <string_view>

#include "common/Utf8.h"

/// Which bytes reach a file as they are, without a second look.
using TPlainBytes = std::array<bool, 256>;

constexpr TPlainBytes MakePlainBytes(std::string_view escaped)
{
   TPlainBytes plain{};
   for (std::size_t c = 0x20; c < 0x7F; ++c)
      plain[c] = true;
   plain['\t'] = plain['\n'] = true;
   for (const char c : escaped)
      plain[static_cast<unsigned char>(c)] = false;
   return plain;
}

/// Writes a text that anybody may have written: bytes that are no UTF-8 become U+FFFD, control
/// characters are shown by their pictures, characters that turn the direction of the text become
/// U+FFFD, and every line end is a line feed.
///
/// Shape: TFile has Write(std::string_view). getEscape tells what stands for a character that means
///        something in the format, empty for any other one; each of these is missing in "plain".
template <typename TFile, typename TGetEscape>
void WriteSafeText(TFile& file, std::string_view text, const TPlainBytes& plain,
                   TGetEscape getEscape)
{
   const char* at = text.data();
   const char* const end = at + text.size();
   while (at < end) {
      const char* const begin = at;
      while (at < end && plain[static_cast<unsigned char>(*at)])
         ++at;
      if (begin < at)
         file.Write({begin, static_cast<std::size_t>(at - begin)});
      if (at == end)
         return;

      // A line end of two characters is one; a carriage return alone is a line end, too.
      const bool isReturn = *at == '\r';
      if (isReturn && at + 1 < end && at[1] == '\n') {
         ++at;
         continue;
      }
      const char read = isReturn ? '\n' : *at;
      const std::string_view escape = getEscape(read);
      if (!escape.empty() || isReturn) {
         file.Write(escape.empty() ? std::string_view(&read, 1) : escape);
         ++at;
         continue;
      }
      const TCharacter character = DecodeUtf8(at, end);
      const std::string_view safe =
         character.fIsValid ? GetSafeForm(character.fCodePoint) : kReplacementCharacter;
      file.Write(safe.empty() ? std::string_view(at, character.fLength) : safe);
      at += character.fLength;
   }
}
