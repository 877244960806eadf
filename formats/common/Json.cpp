#include "common/Json.h"

#include "common/Utf8.h"

namespace {

bool IsValid(const std::string& text)
{
   const char* const end = text.data() + text.size();
   for (const char* at = text.data(); at != end;) {
      const TCharacter character = DecodeUtf8(at, end);
      if (!character.fIsValid)
         return false;
      at += character.fLength;
   }
   return true;
}

std::string ReplaceInvalid(const std::string& text)
{
   std::string valid;
   const char* const end = text.data() + text.size();
   for (const char* at = text.data(); at != end;) {
      const TCharacter character = DecodeUtf8(at, end);
      if (character.fIsValid)
         valid.append(at, character.fLength);
      else
         valid += kReplacementCharacter;
      at += character.fLength;
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
