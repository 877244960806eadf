#include "common/health/Quantities.h"

#include <array>
#include <cmath>
#include <cstdlib>

#include <fmt/format.h>

#include "common/StateWords.h"

namespace {

constexpr const char* kHardSpace = "\xC2\xA0";

bool IsDigit(char c)
{
   return c >= '0' && c <= '9';
}

struct TUnitName
{
   std::string_view fUnit;
   std::string_view fShort;
};

constexpr TUnitName kShortUnits[] = {
   {"Degrees C", "°C"}, {"Degrees F", "°F"}, {"Degrees K", "K"}, {"Volts", "V"},
   {"Amps", "A"},       {"Watts", "W"},      {"Joules", "J"},    {"Hertz", "Hz"},
   {"Percentage", "%"}, {"Percent", "%"},
};

struct TSizeUnit
{
   std::string_view fUnit;
   int fPower;
};

constexpr TSizeUnit kSizeUnits[] = {
   {"", 0},          {"Bytes", 0}, {"Byte", 0}, {"B", 0},         {"KB", 1}, {"KiB", 1},
   {"KiloBytes", 1}, {"MB", 2},    {"MiB", 2},  {"MegaBytes", 2}, {"GB", 3}, {"GiB", 3},
   {"GigaBytes", 3}, {"TB", 4},    {"TiB", 4},  {"TeraBytes", 4},
};

std::string AddThousands(std::string digits)
{
   const std::size_t begin = digits[0] == '-' ? 1 : 0;
   std::size_t end = digits.find('.');
   end = end == std::string::npos ? digits.size() : end;
   while (end > begin + 3) {
      end -= 3;
      digits.insert(end, ",");
   }
   return digits;
}

}  // namespace

std::optional<TQuantity> ReadQuantity(std::string_view text)
{
   std::string number;
   std::size_t at = 0;
   if (!text.empty() && (text[0] == '-' || text[0] == '+'))
      number += text[at++];
   const std::size_t begin = at;
   bool hasPoint = false;
   for (; at < text.size(); ++at) {
      const bool isPoint = text[at] == '.' && !hasPoint;
      hasPoint = hasPoint || isPoint;
      if (IsDigit(text[at]) || isPoint)
         number += text[at];
      else if (text[at] != ',')
         break;
   }
   if (at == begin || !IsDigit(text[begin]))
      return std::nullopt;
   if (at < text.size() && text[at] != ' ' && text[at] != '%')
      return std::nullopt;
   TQuantity quantity;
   quantity.fNumber = std::strtod(number.c_str(), nullptr);
   const std::size_t unit = text.find_first_not_of(' ', at);
   quantity.fUnit = unit == std::string_view::npos ? std::string_view() : text.substr(unit);
   return quantity;
}

std::optional<double> ReadBytes(std::string_view text)
{
   const std::optional<TQuantity> quantity = ReadQuantity(text);
   if (!quantity)
      return std::nullopt;
   for (const TSizeUnit& known : kSizeUnits)
      if (IsSameWord(known.fUnit, quantity->fUnit))
         return std::ldexp(quantity->fNumber, 10 * known.fPower);
   return std::nullopt;
}

std::string_view GetShortUnit(std::string_view unit)
{
   for (const TUnitName& known : kShortUnits)
      if (IsSameWord(known.fUnit, unit))
         return known.fShort;
   return unit;
}

std::string MakeNumberText(double number)
{
   std::string text = fmt::format("{:.2f}", number);
   text.erase(text.find_last_not_of('0') + 1);
   if (text.back() == '.')
      text.pop_back();
   return AddThousands(text == "-0" ? "0" : text);
}

std::string MakeSizeText(double bytes)
{
   constexpr std::array<const char*, 6> kUnits = {"bytes", "KiB", "MiB", "GiB", "TiB", "PiB"};
   std::size_t unit = 0;
   while (bytes >= 1024 && unit + 1 < kUnits.size()) {
      bytes /= 1024;
      ++unit;
   }
   const int digits = unit == 0 || bytes >= 100 ? 0 : bytes >= 10 ? 1 : 2;
   return fmt::format("{:.{}f}{}{}", bytes, digits, kHardSpace, kUnits[unit]);
}

std::string MakeCountText(std::uint64_t count, std::string_view noun)
{
   const std::string number = AddThousands(std::to_string(count));
   if (count == 1)
      return fmt::format("{} {}", number, noun);
   const std::size_t last = noun.size() - 1;
   const bool endsInY = noun[last] == 'y' && noun[last - 1] != 'a' && noun[last - 1] != 'e';
   if (endsInY)
      return fmt::format("{} {}ies", number, noun.substr(0, last));
   return fmt::format("{} {}s", number, noun);
}
