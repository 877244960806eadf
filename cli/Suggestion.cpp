#include "Suggestion.h"

#include <algorithm>
#include <numeric>

namespace {

/// Letters to insert, remove or replace to make one word the other.
std::size_t GetEditDistance(const std::string& a, const std::string& b)
{
   std::vector<std::size_t> row(b.size() + 1);
   std::iota(row.begin(), row.end(), std::size_t{0});
   for (std::size_t i = 1; i <= a.size(); ++i) {
      std::size_t diagonal = row[0];
      row[0] = i;
      for (std::size_t j = 1; j <= b.size(); ++j) {
         const std::size_t replaced = diagonal + (a[i - 1] == b[j - 1] ? 0 : 1);
         diagonal = row[j];
         row[j] = std::min({replaced, row[j] + 1, row[j - 1] + 1});
      }
   }
   return row.back();
}

}  // namespace

std::string FindSimilar(const std::string& word, const std::vector<std::string>& candidates)
{
   std::string best;
   // A third of the letters may be wrong; two may always.
   std::size_t bestDistance = std::max<std::size_t>(2, word.size() / 3) + 1;
   for (const std::string& candidate : candidates) {
      const std::size_t distance = GetEditDistance(word, candidate);
      if (distance < bestDistance) {
         best = candidate;
         bestDistance = distance;
      }
   }
   return best;
}
