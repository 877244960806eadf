#include "trace/Json.h"

#include <boost/locale/utf.hpp>

namespace {

namespace utf = boost::locale::utf;

constexpr const char* kReplacement = "\xEF\xBF\xBD";

/// Moves past one character. Missing: false where there is none, and the position stays.
bool SkipCharacter(const char*& position, const char* end)
{
   const char* next = position;
   if (!utf::is_valid_codepoint(utf::utf_traits<char>::decode(next, end)))
      return false;
   position = next;
   return true;
}

bool IsValid(const std::string& text)
{
   const char* position = text.data();
   const char* end = position + text.size();
   while (position != end)
      if (!SkipCharacter(position, end))
         return false;
   return true;
}

std::string ReplaceInvalid(const std::string& text)
{
   std::string valid;
   const char* position = text.data();
   const char* end = position + text.size();
   while (position != end) {
      const char* start = position;
      if (SkipCharacter(position, end)) {
         valid.append(start, position);
      } else {
         // One byte only: what follows a broken sequence may be a character of its own.
         valid += kReplacement;
         ++position;
      }
   }
   return valid;
}

void WriteString(TJsonWriter& json, const std::string& text)
{
   json.String(text.data(), static_cast<rapidjson::SizeType>(text.size()));
}

}  // namespace

void WriteJsonText(TJsonWriter& json, const std::string& text)
{
   if (IsValid(text))
      WriteString(json, text);
   else
      WriteString(json, ReplaceInvalid(text));
}

void WriteJsonMember(TJsonWriter& json, const char* name, const std::string& text)
{
   json.Key(name);
   WriteJsonText(json, text);
}

void WriteJsonMember(TJsonWriter& json, const char* name, bool flag)
{
   json.Key(name);
   json.Bool(flag);
}

void WriteJsonMember(TJsonWriter& json, const char* name, int number)
{
   json.Key(name);
   json.Int(number);
}
