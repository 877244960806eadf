#pragma once

#include "readers/XMLCharacters.h"

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace NZANQSX20 {

/// How many bytes behind the cursor SkipPlainText may look at, whatever they are.
constexpr int kTextStep = 16;

/// Moves over bytes that stand for themselves in a text, to the first one that does not.
inline const char* SkipPlainText(const char* cursor)
{
#ifdef __SSE2__
   while (true) {
      const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(cursor));
      const auto is = [bytes](char byte) { return _mm_cmpeq_epi8(bytes, _mm_set1_epi8(byte)); };
      // Bytes from 0x80 on are negative here, so that one comparison finds both ends.
      const __m128i isControl = _mm_cmplt_epi8(bytes, _mm_set1_epi8(' '));
      const __m128i isMarkup = _mm_or_si128(is('<'), _mm_or_si128(is('&'), is(']')));
      const int found = _mm_movemask_epi8(_mm_or_si128(isControl, isMarkup));
      if (found == 0) {
         cursor += kTextStep;
         continue;
      }
      cursor += __builtin_ctz(static_cast<unsigned>(found));
      if (*cursor != '\t')
         return cursor;
      ++cursor;
   }
#else
   while (IsXMLByte(*cursor, kXMLText))
      ++cursor;
   return cursor;
#endif
}

/// The first quote or backslash, or the end.
inline const char* FindQuoteOrBackslash(const char* cursor, const char* end)
{
#ifdef __SSE2__
   for (; end - cursor >= kTextStep; cursor += kTextStep) {
      const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(cursor));
      const __m128i isFound = _mm_or_si128(_mm_cmpeq_epi8(bytes, _mm_set1_epi8('"')),
                                           _mm_cmpeq_epi8(bytes, _mm_set1_epi8('\\')));
      const int found = _mm_movemask_epi8(isFound);
      if (found != 0)
         return cursor + __builtin_ctz(static_cast<unsigned>(found));
   }
#endif
   while (cursor < end && *cursor != '"' && *cursor != '\\')
      ++cursor;
   return cursor;
}

}  // namespace NZANQSX20
