#include "readers/TReadError.h"

#include <fmt/format.h>

namespace NZANQSX20 {

namespace {

constexpr std::size_t kShownBytes = 40;

bool IsContinuationByte(char byte)
{
   return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

}  // namespace

std::string FormatPlaced(const std::string& file, TPlace place, const std::string& text)
{
   if (place.fLine == 0)
      return fmt::format("{}: {}", file, text);
   return fmt::format("{}:{}:{}: {}", file, place.fLine, place.fColumn, text);
}

TReadError::TReadError(const std::string& file, TPlace place, const std::string& text)
   : std::runtime_error(FormatPlaced(file, place, text)), fFile(file), fPlace(place)
{}

std::string QuoteForMessage(std::string_view text)
{
   std::string_view shown = text.substr(0, kShownBytes);
   if (shown.size() < text.size())
      while (!shown.empty() && IsContinuationByte(text[shown.size()]))
         shown.remove_suffix(1);

   std::string quoted = "'";
   for (const char byte : shown) {
      if (static_cast<unsigned char>(byte) < 0x20 || byte == 0x7F)
         quoted += fmt::format("\\x{:02X}", static_cast<unsigned char>(byte));
      else
         quoted += byte;
   }
   quoted += shown.size() < text.size() ? "...'" : "'";
   return quoted;
}

}  // namespace NZANQSX20
