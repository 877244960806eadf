#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "common/Utf8.h"

#ifdef __SSE2__
#include <emmintrin.h>
#endif

/// Which bytes reach a file as they are, without a second look: ASCII, tabs and line ends without
/// the few that the format escapes.
class TPlainBytes
{
public:
   constexpr explicit TPlainBytes(std::string_view escaped)
   {
      for (std::size_t c = 0x20; c < kDelete; ++c)
         fIsPlain[c] = true;
      fIsPlain['\t'] = fIsPlain['\n'] = true;
      for (std::size_t i = 0; i < kMostEscaped; ++i)
         fEscaped[i] = i < escaped.size() ? escaped[i] : kDelete;
      for (const char c : escaped)
         fIsPlain[static_cast<unsigned char>(c)] = false;
   }

   /// The first byte that is not plain, or the end.
   const char* Skip(const char* at, const char* end) const
   {
#ifdef __SSE2__
      while (end - at >= kStep) {
         const unsigned odd = FindOdd(at);
         if (odd == 0) {
            at += kStep;
            continue;
         }
         at += __builtin_ctz(odd);
         if (!IsPlain(*at))
            return at;
         ++at;
      }
#endif
      while (at < end && IsPlain(*at))
         ++at;
      return at;
   }

private:
   static constexpr char kDelete = 0x7F;
   static constexpr std::size_t kMostEscaped = 5;

   bool IsPlain(char c) const
   {
      return fIsPlain[static_cast<unsigned char>(c)];
   }

#ifdef __SSE2__
   static constexpr std::ptrdiff_t kStep = 16;

   /// A bit for each of the next bytes that may not be plain: tabs and line ends are among them.
   unsigned FindOdd(const char* at) const
   {
      const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
      // Bytes from 0x80 on are negative here, so that one comparison finds both ends.
      __m128i odd = _mm_or_si128(_mm_cmplt_epi8(bytes, _mm_set1_epi8(' ')),
                                 _mm_cmpeq_epi8(bytes, _mm_set1_epi8(kDelete)));
      for (const char escaped : fEscaped)
         odd = _mm_or_si128(odd, _mm_cmpeq_epi8(bytes, _mm_set1_epi8(escaped)));
      return static_cast<unsigned>(_mm_movemask_epi8(odd));
   }
#endif

   std::array<bool, 256> fIsPlain{};
   std::array<char, kMostEscaped> fEscaped{};
};

/// Writes a text that anybody may have written: bytes that are no UTF-8 become U+FFFD, control
/// characters are shown by their pictures, characters that turn the direction of the text become
/// U+FFFD, and every line end is a line feed.
///
/// Shape: TFile has Write(std::string_view). getEscape tells what stands for a character that means
///        something in the format, empty for any other one; none of these is plain.
template <typename TFile, typename TGetEscape>
void WriteSafeText(TFile& file, std::string_view text, const TPlainBytes& plain,
                   TGetEscape getEscape)
{
   const char* at = text.data();
   const char* const end = at + text.size();
   while (at < end) {
      const char* const begin = at;
      at = plain.Skip(at, end);
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
