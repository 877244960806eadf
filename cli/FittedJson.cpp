#include "FittedJson.h"

#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

namespace {

constexpr std::size_t kLineLength = 160;
constexpr std::size_t kIndent = 2;

std::string Compact(const rapidjson::Value& value)
{
   rapidjson::StringBuffer text;
   rapidjson::Writer<rapidjson::StringBuffer> writer(text);
   value.Accept(writer);
   return {text.GetString(), text.GetSize()};
}

void Append(std::string& text, const rapidjson::Value& value, std::size_t indent);

void AppendMembers(std::string& text, const rapidjson::Value& object, std::size_t indent)
{
   const char* separator = "";
   for (const auto& member : object.GetObject()) {
      text += separator + ('\n' + std::string(indent, ' ')) + Compact(member.name) + ": ";
      Append(text, member.value, indent);
      separator = ",";
   }
}

void AppendElements(std::string& text, const rapidjson::Value& array, std::size_t indent)
{
   const char* separator = "";
   for (const auto& element : array.GetArray()) {
      text += separator + ('\n' + std::string(indent, ' '));
      Append(text, element, indent);
      separator = ",";
   }
}

/// indent is that of the line on which the value begins.
void Append(std::string& text, const rapidjson::Value& value, std::size_t indent)
{
   const std::string compact = Compact(value);
   const bool isContainer = value.IsObject() || value.IsArray();
   if (!isContainer || (indent > 0 && indent + compact.size() <= kLineLength)) {
      text += compact;
      return;
   }
   const bool isObject = value.IsObject();
   text += isObject ? '{' : '[';
   if (isObject)
      AppendMembers(text, value, indent + kIndent);
   else
      AppendElements(text, value, indent + kIndent);
   text += '\n' + std::string(indent, ' ') + (isObject ? '}' : ']');
}

}  // namespace

std::string FitJson(const std::string& compact)
{
   rapidjson::Document document;
   document.Parse(compact.data(), compact.size());
   std::string text;
   Append(text, document, 0);
   return text + '\n';
}
