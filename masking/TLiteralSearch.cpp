#include "TLiteralSearch.h"

#include <algorithm>
#include <functional>

#include "IdentifierShapes.h"

namespace NZANQSX20 {

void TLiteralSearch::Add(std::string_view text, EWhere where, std::uint32_t number)
{
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
   const bool isWordStart = at == 0 || !IsWordByte(text[at - 1]) || !IsWordByte(text[at]);
   for (const std::size_t length : lengths->second) {
      const std::size_t end = at + length;
      if (end > text.size())
         continue;
      const auto found = fLiterals.find(text.substr(at, length));
      if (found == fLiterals.end())
         continue;
      const bool isWord = isWordStart && (end == text.size() || !IsWordByte(text[end]) ||
                                          !IsWordByte(text[end - 1]));
      const EWhere where = found->second.fWhere;
      if (where == EWhere::kAnywhere || (isWord && (where == EWhere::kWholeWords || isIdentifying)))
         return {found->second.fNumber, length};
   }
   return {};
}

}  // namespace NZANQSX20
