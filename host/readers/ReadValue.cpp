#include "readers/ReadValue.h"

#include <array>
#include <cfloat>
#include <charconv>
#include <cmath>
#include <cstdlib>

#include <fmt/format.h>

#include "TCIMReference.h"
#include "readers/TReadError.h"

namespace NZANQSX20 {

namespace {

using TType = TCIMValue::TCIMType;
using ECIMType = TCIMValue::ECIMType;

struct TTypeName
{
   ECIMType fType;
   std::string_view fName;
   const char* fDescription;
};

constexpr std::array<TTypeName, 15> kTypes = {{
   {TType::kBoolean, "boolean", "a boolean (true or false)"},
   {TType::kChar16, "char16", "a char16 (one character)"},
   {TType::kUInt8, "uint8", "a uint8 (0 to 255)"},
   {TType::kSInt8, "sint8", "a sint8 (-128 to 127)"},
   {TType::kUInt16, "uint16", "a uint16 (0 to 65535)"},
   {TType::kSInt16, "sint16", "a sint16 (-32768 to 32767)"},
   {TType::kUInt32, "uint32", "a uint32 (0 to 4294967295)"},
   {TType::kSInt32, "sint32", "a sint32 (-2147483648 to 2147483647)"},
   {TType::kUInt64, "uint64", "a uint64 (0 to 18446744073709551615)"},
   {TType::kSInt64, "sint64", "a sint64 (-9223372036854775808 to 9223372036854775807)"},
   {TType::kReal32, "real32", "a real32"},
   {TType::kReal64, "real64", "a real64"},
   {TType::kString, "string", "a text"},
   {TType::kDateTime, "datetime",
    "a datetime (yyyymmddHHMMSS.mmmmmm+UUU or ddddddddHHMMSS.mmmmmm:000)"},
   {TType::kReference, "reference", "a reference (an alias or an object path)"},
}};

char ToLower(char letter)
{
   return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

bool EqualsIgnoringCase(std::string_view text, std::string_view lower)
{
   if (text.size() != lower.size() || ToLower(text.back()) != lower.back())
      return false;
   for (std::size_t index = 0; index < text.size(); ++index)
      if (ToLower(text[index]) != lower[index])
         return false;
   return true;
}

bool TakeSign(std::string_view& text)
{
   const bool isNegative = !text.empty() && text[0] == '-';
   if (isNegative || (!text.empty() && text[0] == '+'))
      text.remove_prefix(1);
   return isNegative;
}

/// Takes the base that the digits are written in, and leaves the digits. Only MOF has octal and
/// binary numbers.
int TakeBase(std::string_view& digits, bool isMOF)
{
   if (digits.size() > 2 && digits[0] == '0' && ToLower(digits[1]) == 'x') {
      digits.remove_prefix(2);
      return 16;
   }
   if (!isMOF || digits.empty())
      return 10;
   if (ToLower(digits.back()) == 'b') {
      digits.remove_suffix(1);
      return 2;
   }
   return digits[0] == '0' ? 8 : 10;
}

bool ReadMagnitude(std::string_view digits, int base, std::uint64_t& magnitude)
{
   const char* const end = digits.data() + digits.size();
   const auto result = std::from_chars(digits.data(), end, magnitude, base);
   return result.ec == std::errc() && result.ptr == end && !digits.empty();
}

unsigned GetBits(ECIMType type)
{
   switch (type) {
      case TType::kUInt8:
      case TType::kSInt8:
         return 8;
      case TType::kChar16:
      case TType::kUInt16:
      case TType::kSInt16:
         return 16;
      case TType::kUInt32:
      case TType::kSInt32:
         return 32;
      default:
         return 64;
   }
}

bool IsSigned(ECIMType type)
{
   return type == TType::kSInt8 || type == TType::kSInt16 || type == TType::kSInt32 ||
          type == TType::kSInt64;
}

bool ReadInteger(std::string_view text, bool isMOF, TTypedValue& value)
{
   const bool isNegative = TakeSign(text);
   const int base = TakeBase(text, isMOF);
   std::uint64_t magnitude = 0;
   if (!ReadMagnitude(text, base, magnitude))
      return false;

   const unsigned bits = GetBits(value.fType);
   if (!IsSigned(value.fType)) {
      value.fUnsigned = magnitude;
      return (!isNegative || magnitude == 0) && (bits == 64 || (magnitude >> bits) == 0);
   }
   const std::uint64_t largest = (std::uint64_t{1} << (bits - 1)) - 1;
   if (magnitude > largest + (isNegative ? 1 : 0))
      return false;
   value.fSigned = static_cast<std::int64_t>(isNegative ? 0 - magnitude : magnitude);
   return true;
}

bool ReadReal(std::string_view text, TTypedValue& value)
{
   const bool isNegative = TakeSign(text);
   const char* const end = text.data() + text.size();
   if (text.empty() || text[0] == '-')
      return false;
   const auto result = std::from_chars(text.data(), end, value.fReal);
   if (result.ec != std::errc() || result.ptr != end)
      return false;
   if (isNegative)
      value.fReal = -value.fReal;
   return value.fType != TType::kReal32 || !std::isfinite(value.fReal) ||
          std::fabs(value.fReal) <= static_cast<double>(FLT_MAX);
}

bool ReadBoolean(std::string_view text, TTypedValue& value)
{
   value.fUnsigned = EqualsIgnoringCase(text, "true") ? 1 : 0;
   return value.fUnsigned != 0 || EqualsIgnoringCase(text, "false");
}

/// One character of the basic plane, as UTF-8.
bool ReadCharacter(std::string_view text, TTypedValue& value)
{
   const auto byte = [&text](std::size_t index) {
      return static_cast<std::uint64_t>(static_cast<unsigned char>(text[index]));
   };
   if (text.size() == 1 && byte(0) < 0x80)
      value.fUnsigned = byte(0);
   else if (text.size() == 2 && byte(0) >= 0xC0)
      value.fUnsigned = (byte(0) & 0x1F) << 6 | (byte(1) & 0x3F);
   else if (text.size() == 3 && byte(0) >= 0xE0)
      value.fUnsigned = (byte(0) & 0x0F) << 12 | (byte(1) & 0x3F) << 6 | (byte(2) & 0x3F);
   else
      return false;
   return true;
}

/// A character that XML has no form for, or half of a surrogate pair: "\\xD800".
bool ReadEscapedCharacter(std::string_view text, TTypedValue& value)
{
   constexpr std::size_t kLength = 6;
   return text.size() == kLength && text.substr(0, 2) == "\\x" &&
          ReadMagnitude(text.substr(2), 16, value.fUnsigned);
}

bool ReadDateTime(std::string_view text, TTypedValue& value)
{
   return TCIMDateTime::Parse(std::string(text), value.fDateTime);
}

/// Whether the form of the value may be of the type at all.
bool FormFits(TValueDraft::EForm form, ECIMType type)
{
   switch (form) {
      case TValueDraft::kNull:
      case TValueDraft::kUntyped:
         return true;
      case TValueDraft::kBoolean:
         return type == TType::kBoolean;
      case TValueDraft::kInteger:
         return type >= TType::kChar16 && type <= TType::kReal64;
      case TValueDraft::kReal:
         return type == TType::kReal32 || type == TType::kReal64;
      case TValueDraft::kText:
         return type >= TType::kString && type <= TType::kReference;
      case TValueDraft::kCharacter:
         return type == TType::kChar16;
      case TValueDraft::kAlias:
         return false;
   }
   return false;
}

/// A whole number that a real property is given; reals themselves know no other base than ten.
bool ReadWholeReal(std::string_view text, bool isMOF, TTypedValue& value)
{
   const bool isNegative = TakeSign(text);
   const int base = TakeBase(text, isMOF);
   if (base == 10)
      return ReadReal(text, value) && (value.fReal = isNegative ? -value.fReal : value.fReal, true);
   std::uint64_t magnitude = 0;
   if (!ReadMagnitude(text, base, magnitude))
      return false;
   value.fReal = isNegative ? -static_cast<double>(magnitude) : static_cast<double>(magnitude);
   return true;
}

}  // namespace

std::string_view TrimBlanks(std::string_view text)
{
   constexpr std::string_view kBlanks = " \t\r\n";
   const std::size_t first = text.find_first_not_of(kBlanks);
   if (first == std::string_view::npos)
      return {};
   return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

bool FindCIMType(std::string_view name, ECIMType& type)
{
   // As it is nearly always written.
   for (const TTypeName& entry : kTypes) {
      if (name == entry.fName) {
         type = entry.fType;
         return true;
      }
   }
   for (const TTypeName& entry : kTypes) {
      if (EqualsIgnoringCase(name, entry.fName)) {
         type = entry.fType;
         return true;
      }
   }
   return false;
}

bool ReadTypedValue(const TValueDraft& draft, ECIMType type, TTypedValue& value)
{
   value.fType = type;
   value.fIsNull = draft.fForm == TValueDraft::kNull;
   if (value.fIsNull)
      return true;
   if (!FormFits(draft.fForm, type))
      return false;

   if (type == TType::kString || type == TType::kReference) {
      value.fText = draft.fText;
      return true;
   }
   const bool isMOF = draft.fForm != TValueDraft::kUntyped;
   const std::string_view text = isMOF ? draft.fText : TrimBlanks(draft.fText);
   switch (type) {
      case TType::kBoolean:
         return ReadBoolean(text, value);
      case TType::kChar16:
         if (draft.fForm == TValueDraft::kInteger)
            return ReadInteger(text, isMOF, value);
         return ReadCharacter(draft.fText, value) ||
                (!isMOF && ReadEscapedCharacter(draft.fText, value));
      case TType::kReal32:
      case TType::kReal64:
         return draft.fForm == TValueDraft::kInteger ? ReadWholeReal(text, isMOF, value)
                                                     : ReadReal(text, value);
      case TType::kDateTime:
         return ReadDateTime(text, value);
      default:
         return ReadInteger(text, isMOF, value);
   }
}

ECIMType GuessCIMType(const TValueDraft& draft)
{
   TTypedValue value;
   switch (draft.fForm) {
      case TValueDraft::kBoolean:
         return TType::kBoolean;
      case TValueDraft::kInteger:
         return ReadTypedValue(draft, TType::kSInt64, value) ? TType::kSInt64 : TType::kUInt64;
      case TValueDraft::kReal:
         return TType::kReal64;
      case TValueDraft::kCharacter:
         return TType::kChar16;
      default:
         return TType::kString;
   }
}

TCIMValue MakeCIMValue(const TTypedValue& value)
{
   if (value.fIsNull)
      return TCIMValue::Null(value.fType);
   switch (value.fType) {
      case TType::kBoolean:
         return TCIMValue::Boolean(value.fUnsigned != 0);
      case TType::kReal32:
      case TType::kReal64:
         return TCIMValue::Real(value.fType, value.fReal);
      case TType::kString:
         return TCIMValue(std::string(value.fText));
      case TType::kDateTime:
         return TCIMValue(value.fDateTime);
      case TType::kReference:
         return TCIMValue(TCIMReference(nullptr, std::string(value.fText), {}));
      default:
         return IsSigned(value.fType) ? TCIMValue::Signed(value.fType, value.fSigned)
                                      : TCIMValue::Unsigned(value.fType, value.fUnsigned);
   }
}

std::string DescribeType(ECIMType type)
{
   for (const TTypeName& entry : kTypes)
      if (entry.fType == type)
         return entry.fDescription;
   return "a value";
}

std::string DescribeValue(const TValueDraft& draft)
{
   switch (draft.fForm) {
      case TValueDraft::kNull:
         return "null";
      case TValueDraft::kBoolean:
         return fmt::format("the boolean {}", draft.fText);
      case TValueDraft::kInteger:
      case TValueDraft::kReal:
         return fmt::format("the number {}", QuoteForMessage(draft.fText));
      case TValueDraft::kCharacter:
         return fmt::format("the character {}", QuoteForMessage(draft.fText));
      case TValueDraft::kAlias:
         return fmt::format("the alias {}", QuoteForMessage(draft.fText));
      default:
         return fmt::format("the text {}", QuoteForMessage(draft.fText));
   }
}

}  // namespace NZANQSX20
