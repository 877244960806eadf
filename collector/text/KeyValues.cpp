#include "text/KeyValues.h"

#include <algorithm>

#include "text/Text.h"

namespace NZANQSX20 {

TKeyValues::TKeyValues(std::string_view text, char separator)
{
   for (const std::string_view line : SplitLines(text))
      if (line.find(separator) != std::string_view::npos && line.front() != ' ' &&
          line.front() != '\t')
         fPairs.push_back(Cut(line, separator));
}

std::string_view TKeyValues::Get(std::string_view name) const
{
   const auto found = std::find_if(fPairs.begin(), fPairs.end(),
                                   [&](const auto& pair) { return pair.first == name; });
   return found == fPairs.end() ? std::string_view() : found->second;
}

std::optional<std::uint64_t> TKeyValues::GetNumber(std::string_view name) const
{
   const std::string_view value = Get(name);
   return ToNumber(value.substr(0, value.find(' ')));
}

std::string_view TKeyValues::GetUnquoted(std::string_view name) const
{
   std::string_view value = Get(name);
   if (value.size() >= 2 && (value.front() == '"' || value.front() == '\'') &&
       value.back() == value.front())
      value = value.substr(1, value.size() - 2);
   return value;
}

std::vector<std::string_view> SplitBlocks(std::string_view text)
{
   std::vector<std::string_view> blocks;
   std::size_t start = 0;
   while (start < text.size()) {
      const std::size_t end = std::min(text.find("\n\n", start), text.size());
      if (end > start)
         blocks.push_back(text.substr(start, end - start));
      start = end + 2;
   }
   return blocks;
}

}  // namespace NZANQSX20
