#include "text/Text.h"

#include <algorithm>
#include <charconv>

namespace NZANQSX20 {

namespace {

constexpr std::string_view kBlanks(" \t\r\n\v\f\0", 7);

template <typename Number>
std::optional<Number> Convert(std::string_view text, int base)
{
   Number number = 0;
   const char* const end = text.data() + text.size();
   const auto result = std::from_chars(text.data(), end, number, base);
   if (result.ec != std::errc() || result.ptr != end || text.empty())
      return std::nullopt;
   return number;
}

bool IsDigit(char character)
{
   return character >= '0' && character <= '9';
}

unsigned char ToByte(char character)
{
   return static_cast<unsigned char>(character);
}

/// The length of the UTF-8 character at the start. Missing: 0 when there is none.
std::size_t MeasureCharacter(std::string_view text)
{
   const unsigned lead = ToByte(text.front());
   if (lead < 0x80)
      return 1;
   const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
   if (lead < 0xC2 || lead > 0xF4 || text.size() < length)
      return 0;
   for (std::size_t i = 1; i < length; ++i)
      if ((ToByte(text[i]) & 0xC0) != 0x80)
         return 0;
   // Longer than needed, a surrogate, or beyond the last character.
   const unsigned second = ToByte(text[1]);
   if ((lead == 0xE0 && second < 0xA0) || (lead == 0xED && second > 0x9F) ||
       (lead == 0xF0 && second < 0x90) || (lead == 0xF4 && second > 0x8F))
      return 0;
   // U+FFFE and U+FFFF, which XML has no place for.
   if (lead == 0xEF && second == 0xBF && ToByte(text[2]) >= 0xBE)
      return 0;
   return length;
}

bool IsControl(char character)
{
   const unsigned char byte = ToByte(character);
   return (byte < 0x20 && byte != '\t' && byte != '\n') || byte == 0x7F;
}

/// The number of digits at the start, and the digits without leading zeros.
std::pair<std::size_t, std::string_view> TakeDigits(std::string_view text)
{
   const std::size_t count =
      static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), IsDigit) - text.begin());
   std::string_view digits = text.substr(0, count);
   digits.remove_prefix(std::min(digits.find_first_not_of('0'), digits.size()));
   return {count, digits};
}

}  // namespace

bool StartsWith(std::string_view text, std::string_view start)
{
   return text.substr(0, start.size()) == start;
}

bool EndsWith(std::string_view text, std::string_view end)
{
   return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

bool Contains(std::string_view text, std::string_view part)
{
   return text.find(part) != std::string_view::npos;
}

std::string_view Trim(std::string_view text)
{
   const std::size_t first = text.find_first_not_of(kBlanks);
   if (first == std::string_view::npos)
      return {};
   return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::vector<std::string_view> Split(std::string_view text, char separator)
{
   std::vector<std::string_view> parts;
   if (text.empty())
      return parts;
   while (true) {
      const std::size_t at = text.find(separator);
      parts.push_back(text.substr(0, at));
      if (at == std::string_view::npos)
         return parts;
      text.remove_prefix(at + 1);
   }
}

std::vector<std::string_view> SplitLines(std::string_view text)
{
   std::vector<std::string_view> lines = Split(text, '\n');
   if (!lines.empty() && lines.back().empty())
      lines.pop_back();
   return lines;
}

std::vector<std::string_view> SplitWords(std::string_view text)
{
   std::vector<std::string_view> words;
   while (true) {
      const std::size_t first = text.find_first_not_of(kBlanks);
      if (first == std::string_view::npos)
         return words;
      text.remove_prefix(first);
      const std::size_t length = std::min(text.find_first_of(kBlanks), text.size());
      words.push_back(text.substr(0, length));
      text.remove_prefix(length);
   }
}

std::pair<std::string_view, std::string_view> Cut(std::string_view text, char separator)
{
   const std::size_t at = text.find(separator);
   if (at == std::string_view::npos)
      return {Trim(text), {}};
   return {Trim(text.substr(0, at)), Trim(text.substr(at + 1))};
}

std::optional<std::uint64_t> ToNumber(std::string_view text)
{
   if (StartsWith(text, "0x") || StartsWith(text, "0X"))
      return HexToNumber(text.substr(2));
   return Convert<std::uint64_t>(text, 10);
}

std::optional<std::uint64_t> HexToNumber(std::string_view text)
{
   return Convert<std::uint64_t>(text, 16);
}

std::optional<std::int64_t> ToSignedNumber(std::string_view text)
{
   return Convert<std::int64_t>(text, 10);
}

std::string ToUtf8(std::string_view text)
{
   constexpr char kDigits[] = "0123456789ABCDEF";
   std::string result;
   result.reserve(text.size());
   while (!text.empty()) {
      // A line end of two bytes is a line end.
      if (StartsWith(text, "\r\n"))
         text.remove_prefix(1);
      const std::size_t length = IsControl(text.front()) ? 0 : MeasureCharacter(text);
      if (length > 0) {
         result.append(text.substr(0, length));
         text.remove_prefix(length);
         continue;
      }
      const unsigned char byte = ToByte(text.front());
      result += "\\x";
      result += kDigits[byte >> 4];
      result += kDigits[byte & 15];
      text.remove_prefix(1);
   }
   return result;
}

bool IsBeforeByNumbers(std::string_view left, std::string_view right)
{
   while (!left.empty() && !right.empty()) {
      if (IsDigit(left.front()) && IsDigit(right.front())) {
         const auto [leftCount, leftDigits] = TakeDigits(left);
         const auto [rightCount, rightDigits] = TakeDigits(right);
         if (leftDigits != rightDigits)
            return leftDigits.size() != rightDigits.size() ? leftDigits.size() < rightDigits.size()
                                                           : leftDigits < rightDigits;
         left.remove_prefix(leftCount);
         right.remove_prefix(rightCount);
         continue;
      }
      if (left.front() != right.front())
         return ToByte(left.front()) < ToByte(right.front());
      left.remove_prefix(1);
      right.remove_prefix(1);
   }
   return left.empty() && !right.empty();
}

}  // namespace NZANQSX20
