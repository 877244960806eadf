#include "store/ValueText.h"

#include <charconv>

namespace NZANQSX20 {

using TType = TCIMValue::TCIMType;

std::uint64_t CutUnsigned(TCIMValue::ECIMType type, std::uint64_t number)
{
   switch (type) {
      case TType::kBoolean:
         return number != 0 ? 1 : 0;
      case TType::kUInt8:
         return static_cast<std::uint8_t>(number);
      case TType::kChar16:
      case TType::kUInt16:
         return static_cast<std::uint16_t>(number);
      case TType::kUInt32:
         return static_cast<std::uint32_t>(number);
      default:
         return number;
   }
}

std::int64_t CutSigned(TCIMValue::ECIMType type, std::int64_t number)
{
   switch (type) {
      case TType::kSInt8:
         return static_cast<std::int8_t>(number);
      case TType::kSInt16:
         return static_cast<std::int16_t>(number);
      case TType::kSInt32:
         return static_cast<std::int32_t>(number);
      default:
         return number;
   }
}

namespace {

// As wide as 64 binary digits with a sign, and any shortest real.
constexpr int kNumberRoom = 72;

template <typename... TArguments>
void AppendNumber(std::string& text, TArguments... arguments)
{
   char room[kNumberRoom];
   const auto written = std::to_chars(room, room + kNumberRoom, arguments...);
   text.append(room, written.ptr);
}

}  // namespace

void AppendUnsigned(std::string& text, std::uint64_t number, int base)
{
   AppendNumber(text, number, base);
}

void AppendSigned(std::string& text, std::int64_t number, int base)
{
   AppendNumber(text, number, base);
}

void AppendReal(std::string& text, double number, TCIMValue::ECIMType type)
{
   if (type == TType::kReal32)
      AppendNumber(text, static_cast<float>(number));
   else
      AppendNumber(text, number);
}

void AppendChar16(std::string& text, std::uint64_t character)
{
   const auto append = [&text](std::uint64_t byte) { text += static_cast<char>(byte); };
   const bool isSurrogate = character >= 0xD800 && character <= 0xDFFF;
   if (isSurrogate)
      character = 0xFFFD;
   if (character == 0)
      return;
   if (character < 0x80) {
      append(character);
   } else if (character < 0x800) {
      append(0xC0 | (character >> 6));
      append(0x80 | (character & 0x3F));
   } else {
      append(0xE0 | (character >> 12));
      append(0x80 | ((character >> 6) & 0x3F));
      append(0x80 | (character & 0x3F));
   }
}

}  // namespace NZANQSX20
