#include "text/Json.h"

#include "text/Text.h"

namespace NZANQSX20 {

rapidjson::Document ParseJson(const std::string& text)
{
   rapidjson::Document document;
   document.Parse<rapidjson::kParseIterativeFlag>(text.data(), text.size());
   if (document.HasParseError())
      document.SetNull();
   return document;
}

const rapidjson::Value& GetMember(const rapidjson::Value& object, const char* name)
{
   static const rapidjson::Value null;
   if (!object.IsObject())
      return null;
   const auto member = object.FindMember(name);
   return member == object.MemberEnd() ? null : member->value;
}

std::string GetText(const rapidjson::Value& object, const char* name)
{
   const rapidjson::Value& member = GetMember(object, name);
   return member.IsString() ? std::string(member.GetString(), member.GetStringLength())
                            : std::string();
}

std::optional<std::uint64_t> GetNumber(const rapidjson::Value& object, const char* name)
{
   const rapidjson::Value& member = GetMember(object, name);
   if (member.IsUint64())
      return member.GetUint64();
   return ToNumber(GetText(object, name));
}

std::optional<bool> GetBoolean(const rapidjson::Value& object, const char* name)
{
   const rapidjson::Value& member = GetMember(object, name);
   if (!member.IsBool())
      return std::nullopt;
   return member.GetBool();
}

rapidjson::Value::ConstArray GetElements(const rapidjson::Value& array)
{
   static const rapidjson::Value none(rapidjson::kArrayType);
   return array.IsArray() ? array.GetArray() : none.GetArray();
}

}  // namespace NZANQSX20
