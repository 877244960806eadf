#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace NZANQSX20 {

/// Where a text of the user's may be found inside other texts.
enum class EWhere
{
   /// Anywhere, also as a part of a longer word.
   kAnywhere,
   kWholeWords,
   /// As a whole word, and only in properties that identify something: too short to mean the same
   /// elsewhere.
   kIdentifyingOnly
};

/// Finds many texts at once. The time for a text does not grow with the number of those.
class TLiteralSearch
{
public:
   /// Units: bytes; shorter texts are found as whole words only, whatever is asked for.
   static constexpr std::size_t kPrefix = 3;

   /// The text, of a byte at least, stays the caller's. number is what Match gives back.
   void Add(std::string_view text, EWhere where, std::uint32_t number);

   struct TFound
   {
      std::uint32_t fNumber = 0;
      /// Units: bytes. Missing: 0 where nothing was found.
      std::size_t fSize = 0;
   };

   /// The longest of the texts that stands at that place.
   TFound Match(std::string_view text, std::size_t at, bool isIdentifying) const
   {
      TFound found;
      if (at + kPrefix <= text.size()) {
         const std::uint32_t prefix = GetPrefix(text.data() + at);
         if ((fMayBegin[prefix % kBits / 64] >> prefix % 64 & 1) != 0)
            found = MatchPrefix(text, at, prefix, isIdentifying);
      }
      return found.fSize > 0 || fShort.empty() ? found : MatchShort(text, at, isIdentifying);
   }

private:
   struct TLiteral
   {
      EWhere fWhere;
      std::uint32_t fNumber;
   };

   static constexpr std::uint32_t kBits = 1U << 18;

   static std::uint32_t GetPrefix(const char* bytes)
   {
      const auto get = [bytes](int i) {
         return static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[i]));
      };
      return (get(0) | get(1) << 8 | get(2) << 16) * 2654435761U >> 8;
   }

   TFound MatchPrefix(std::string_view text, std::size_t at, std::uint32_t prefix,
                      bool isIdentifying) const;
   TFound MatchShort(std::string_view text, std::size_t at, bool isIdentifying) const;

   using TLiterals = std::unordered_map<std::string_view, TLiteral>;
   TLiterals fLiterals;
   /// Those of fewer than kPrefix bytes.
   TLiterals fShort;
   /// The lengths of those that begin so, the longest first.
   std::unordered_map<std::uint32_t, std::vector<std::size_t>> fLengths;
   std::vector<std::uint64_t> fMayBegin = std::vector<std::uint64_t>(kBits / 64);
};

}  // namespace NZANQSX20
