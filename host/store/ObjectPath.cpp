#include "store/ObjectPath.h"

#include <algorithm>
#include <charconv>
#include <cstdint>

#include "store/ValueText.h"

namespace NZANQSX20 {

using TType = TCIMValue::TCIMType;

namespace {

bool IsNameCharacter(char c, bool isFirst)
{
   const bool isLetter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' ||
                         static_cast<unsigned char>(c) >= 0x80;
   return isLetter || (!isFirst && c >= '0' && c <= '9');
}

/// Takes a name off the front of the text. Missing: empty when there is none.
std::string_view TakeName(std::string_view& text)
{
   std::size_t length = 0;
   while (length < text.size() && IsNameCharacter(text[length], length == 0))
      ++length;
   if (length == 0 && !text.empty() && text[0] == kNumberKey[0])
      length = 1;
   const std::string_view name = text.substr(0, length);
   text.remove_prefix(length);
   return name;
}

bool TakeCharacter(std::string_view& text, char expected)
{
   if (text.empty() || text[0] != expected)
      return false;
   text.remove_prefix(1);
   return true;
}

/// Takes the rest of a quoted text, its opening quote taken already.
bool TakeQuoted(std::string_view& text, char quote, std::string& content)
{
   while (!text.empty()) {
      const char c = text[0];
      text.remove_prefix(1);
      if (c == quote)
         return true;
      const bool isEscape = c == '\\' && !text.empty() && (text[0] == '\\' || text[0] == quote);
      content += isEscape ? text[0] : c;
      if (isEscape)
         text.remove_prefix(1);
   }
   return false;
}

template <typename T>
bool ReadWhole(std::string_view text, T& number)
{
   const char* end = text.data() + text.size();
   const auto read = std::from_chars(text.data(), end, number);
   return read.ec == std::errc() && read.ptr == end;
}

bool ReadHexadecimal(std::string_view text, std::uint64_t& number)
{
   const bool isHexadecimal =
      text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X');
   if (!isHexadecimal)
      return false;
   const char* end = text.data() + text.size();
   const auto read = std::from_chars(text.data() + 2, end, number, 16);
   return read.ec == std::errc() && read.ptr == end;
}

std::string ToUpper(std::string_view text)
{
   std::string upper(text);
   for (char& c : upper) {
      if (c >= 'a' && c <= 'z')
         c = static_cast<char>(c - 'a' + 'A');
   }
   return upper;
}

/// Brings an unquoted text into its one form. Missing: false when it is no value.
bool NormalizeUnquoted(std::string_view text, std::string& normal)
{
   const std::string word = ToUpper(text);
   if (word == "TRUE" || word == "FALSE" || word == "NULL") {
      normal = word;
      return true;
   }
   if (!text.empty() && text[0] == '+')
      text.remove_prefix(1);

   std::uint64_t natural = 0;
   std::int64_t integer = 0;
   double real = 0;
   if (ReadWhole(text, natural) || ReadHexadecimal(text, natural))
      AppendUnsigned(normal, natural);
   else if (ReadWhole(text, integer))
      AppendSigned(normal, integer);
   else if (ReadWhole(text, real))
      AppendReal(normal, real, TType::kReal64);
   else
      return false;
   return true;
}

bool TakeKeyBinding(std::string_view& text, TKeyBinding& key)
{
   key.fName = TakeName(text);
   if (key.fName.empty() || !TakeCharacter(text, '='))
      return false;
   for (const char quote : {'"', '\''}) {
      if (TakeCharacter(text, quote))
         return TakeQuoted(text, quote, key.fText);
   }
   key.fIsQuoted = false;
   const std::string_view unquoted = text.substr(0, text.find(','));
   text.remove_prefix(unquoted.size());
   return NormalizeUnquoted(unquoted, key.fText);
}

/// Drops "//host/namespace:" or "namespace:"; neither a class nor a key has a colon in its name.
std::string_view DropNamespace(std::string_view text)
{
   const std::size_t colon = text.substr(0, text.find('=')).rfind(':');
   return colon == std::string_view::npos ? text : text.substr(colon + 1);
}

}  // namespace

bool TObjectPath::Parse(std::string_view text, TObjectPath& path)
{
   TObjectPath read;
   text = DropNamespace(text);
   read.fClassName = TakeName(text);
   if (read.fClassName.empty() || !TakeCharacter(text, '.'))
      return false;
   do {
      TKeyBinding key;
      if (!TakeKeyBinding(text, key))
         return false;
      read.fKeys.push_back(std::move(key));
   } while (TakeCharacter(text, ','));
   if (!text.empty())
      return false;

   std::stable_sort(read.fKeys.begin(), read.fKeys.end(),
                    [](const TKeyBinding& a, const TKeyBinding& b) { return a.fName < b.fName; });
   path = std::move(read);
   return true;
}

std::string TObjectPath::ToText() const
{
   std::string text = fClassName;
   for (const TKeyBinding& key : fKeys)
      AppendKeyBinding(text, &key == &fKeys.front(), key.fName, key.fText, key.fIsQuoted);
   return text;
}

void AppendKeyBinding(std::string& path, bool isFirst, std::string_view name, std::string_view text,
                      bool isQuoted)
{
   path += isFirst ? '.' : ',';
   path += name;
   path += '=';
   if (!isQuoted) {
      // As an integer, a negative zero reads back without its sign.
      path += text == "-0" ? "0" : text;
      return;
   }
   path += '"';
   std::size_t copied = 0;
   for (std::size_t i = 0; i < text.size(); ++i) {
      if (text[i] != '"' && text[i] != '\\')
         continue;
      path.append(text, copied, i - copied);
      path += '\\';
      copied = i;
   }
   path.append(text, copied);
   path += '"';
}

bool IsQuotedType(TCIMValue::ECIMType type)
{
   return !IsIntegerType(type) && !IsRealType(type) && type != TType::kBoolean;
}

std::string GetKeyText(const TCIMValue& value, bool& isQuoted)
{
   isQuoted = !value.IsNull() && (value.IsArray() || IsQuotedType(value.GetType()));
   return value.IsNull() ? "NULL" : value.ToString(10);
}

TCIMValue GetKeyValue(const TKeyBinding& key)
{
   if (key.fIsQuoted)
      return TCIMValue(key.fText);
   if (key.fText == "NULL")
      return TCIMValue();
   if (key.fText == "TRUE" || key.fText == "FALSE")
      return TCIMValue::Boolean(key.fText == "TRUE");

   std::uint64_t natural = 0;
   std::int64_t integer = 0;
   double real = 0;
   if (ReadWhole(std::string_view(key.fText), natural))
      return TCIMValue::Unsigned(TType::kUInt64, natural);
   if (ReadWhole(std::string_view(key.fText), integer))
      return TCIMValue::Signed(TType::kSInt64, integer);
   ReadWhole(std::string_view(key.fText), real);
   return TCIMValue::Real(TType::kReal64, real);
}

}  // namespace NZANQSX20
