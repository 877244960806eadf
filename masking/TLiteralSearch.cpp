#include "TLiteralSearch.h"

#include <algorithm>
#include <functional>

#include "IdentifierShapes.h"

namespace NZANQSX20 {

namespace {

bool IsWordStart(std::string_view text, std::size_t at)
{
   return at == 0 || !IsWordByte(text[at - 1]) || !IsWordByte(text[at]);
}

bool IsWordEnd(std::string_view text, std::size_t end)
{
   return end == text.size() || !IsWordByte(text[end]) || !IsWordByte(text[end - 1]);
}

}  // namespace

void TLiteralSearch::Add(std::string_view text, EWhere where, std::uint32_t number)
{
   if (text.size() < kPrefix) {
      fShort.emplace(text, TLiteral{where, number});
      return;
   }
   fLiterals.emplace(text, TLiteral{where, number});
   const std::uint32_t prefix = GetPrefix(text.data());
   fMayBegin[prefix % kBits / 64] |= std::uint64_t{1} << prefix % 64;
   std::vector<std::size_t>& lengths = fLengths[prefix];
   const auto place =
      std::lower_bound(lengths.begin(), lengths.end(), text.size(), std::greater<>());
   if (place == lengths.end() || *place != text.size())
      lengths.insert(place, text.size());
}

TLiteralSearch::TFound TLiteralSearch::MatchPrefix(std::string_view text, std::size_t at,
                                                   std::uint32_t prefix, bool isIdentifying) const
{
   const auto lengths = fLengths.find(prefix);
   if (lengths == fLengths.end())
      return {};
   const bool isWordStart = IsWordStart(text, at);
   for (const std::size_t length : lengths->second) {
      const std::size_t end = at + length;
      if (end > text.size())
         continue;
      const auto found = fLiterals.find(text.substr(at, length));
      if (found == fLiterals.end())
         continue;
      const bool isWord = isWordStart && IsWordEnd(text, end);
      const EWhere where = found->second.fWhere;
      if (where == EWhere::kAnywhere || (isWord && (where == EWhere::kWholeWords || isIdentifying)))
         return {found->second.fNumber, length};
   }
   return {};
}

TLiteralSearch::TFound TLiteralSearch::MatchShort(std::string_view text, std::size_t at,
                                                  bool isIdentifying) const
{
   if (!IsWordStart(text, at))
      return {};
   for (std::size_t length = std::min(kPrefix - 1, text.size() - at); length > 0; --length) {
      if (!IsWordEnd(text, at + length))
         continue;
      const auto found = fShort.find(text.substr(at, length));
      if (found != fShort.end() &&
          (isIdentifying || found->second.fWhere != EWhere::kIdentifyingOnly))
         return {found->second.fNumber, length};
   }
   return {};
}

}  // namespace NZANQSX20
