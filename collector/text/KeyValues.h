#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace NZANQSX20 {

/// The lines "Name: value" of a text, as most files of /proc have them.
///
/// Shape: lines without the separator, and lines that begin with a blank, which continue another,
///        are passed over; the names keep their order.
/// Owner: views of the text.
class TKeyValues
{
public:
   explicit TKeyValues(std::string_view text, char separator = ':');

   /// The first value of that name. Missing: empty.
   std::string_view Get(std::string_view name) const;
   /// The value, or its first word, as a number: "16384 kB".
   std::optional<std::uint64_t> GetNumber(std::string_view name) const;
   /// The same as text, without the quotes around it.
   std::string_view GetUnquoted(std::string_view name) const;

   const std::vector<std::pair<std::string_view, std::string_view>>& GetPairs() const
   {
      return fPairs;
   }

private:
   std::vector<std::pair<std::string_view, std::string_view>> fPairs;
};

/// The parts of a text between empty lines.
std::vector<std::string_view> SplitBlocks(std::string_view text);

}  // namespace NZANQSX20
