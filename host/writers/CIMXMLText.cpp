#include "writers/CIMXMLText.h"

#include <fmt/format.h>

#include "readers/CIMXMLReader.h"
#include "store/ObjectPath.h"
#include "store/TSchema.h"
#include "store/ValueText.h"
#include "writers/TWriteError.h"

namespace NZANQSX20 {

using TType = TCIMValue::TCIMType;

namespace {

void AppendInstruction(std::string& xml, std::uint64_t character)
{
   xml += fmt::format("<?{} {:X}?>", kCharacterInstruction, character);
}

/// The two characters of the basic plane that are none: U+FFFE and U+FFFF.
bool IsNoCharacter(std::string_view text, std::size_t at)
{
   return text.compare(at, 2, "\xEF\xBF") == 0 && at + 2 < text.size() &&
          (text[at + 2] == '\xBE' || text[at + 2] == '\xBF');
}

bool IsPlain(unsigned char byte)
{
   return byte >= 0x20 && byte != '&' && byte != '<' && byte != '>' && byte != 0xEF;
}

/// Appends the character at that place in a form of its own. Missing: 0 when it has none; else its
/// length in bytes.
std::size_t AppendSpecial(std::string& xml, std::string_view text, std::size_t at)
{
   const auto byte = static_cast<unsigned char>(text[at]);
   switch (byte) {
      case '&':
         xml += "&amp;";
         return 1;
      case '<':
         xml += "&lt;";
         return 1;
      case '>':
         xml += "&gt;";
         return 1;
      case '\r':
         // A bare one is read as the end of a line.
         xml += "&#13;";
         return 1;
      case '\t':
      case '\n':
         return 0;
      default:
         break;
   }
   if (byte < 0x20) {
      AppendInstruction(xml, byte);
      return 1;
   }
   if (!IsNoCharacter(text, at))
      return 0;
   AppendInstruction(xml, text[at + 2] == '\xBE' ? 0xFFFE : 0xFFFF);
   return 3;
}

/// Nested names are read to this depth.
constexpr int kMostNamesInside = 3;

bool IsReferenceKey(const TSchema& schema, const std::string& className, const std::string& key)
{
   const TStoredClass* const storedClass = schema.Find(className);
   const TStoredProperty* const property =
      storedClass != nullptr ? storedClass->FindProperty(key) : nullptr;
   return property != nullptr && property->GetDeclaration().fType == TType::kReference;
}

bool IsBoolean(const TKeyBinding& key)
{
   return key.fText == "TRUE" || key.fText == "FALSE";
}

void AppendName(std::string& xml, const TObjectPath& path, const TSchema& schema, int depth);

void AppendKey(std::string& xml, const std::string& className, const TKeyBinding& key,
               const TSchema& schema, int depth)
{
   xml += "<KEYBINDING";
   AppendXMLAttribute(xml, "NAME", key.fName);
   xml += '>';
   TObjectPath nested;
   const bool isName = key.fIsQuoted && depth < kMostNamesInside &&
                       IsReferenceKey(schema, className, key.fName) &&
                       TObjectPath::Parse(key.fText, nested) && nested.ToText() == key.fText;
   if (isName) {
      xml += "<VALUE.REFERENCE>";
      AppendName(xml, nested, schema, depth + 1);
      xml += "</VALUE.REFERENCE>";
   } else {
      const char* const form = key.fIsQuoted ? "string" : IsBoolean(key) ? "boolean" : "numeric";
      xml += "<KEYVALUE";
      AppendXMLAttribute(xml, "VALUETYPE", form);
      xml += '>';
      AppendXMLText(xml, key.fText);
      xml += "</KEYVALUE>";
   }
   xml += "</KEYBINDING>";
}

void AppendName(std::string& xml, const TObjectPath& path, const TSchema& schema, int depth)
{
   xml += "<INSTANCENAME";
   AppendXMLAttribute(xml, "CLASSNAME", path.fClassName);
   xml += '>';
   for (const TKeyBinding& key : path.fKeys)
      AppendKey(xml, path.fClassName, key, schema, depth);
   xml += "</INSTANCENAME>";
}

}  // namespace

void AppendXMLText(std::string& xml, std::string_view text)
{
   std::string room;
   text = MakeUtf8(text, room);
   std::size_t start = 0;
   std::size_t at = 0;
   while (at < text.size()) {
      if (IsPlain(static_cast<unsigned char>(text[at]))) {
         ++at;
         continue;
      }
      xml += text.substr(start, at - start);
      start = at;
      const std::size_t length = AppendSpecial(xml, text, at);
      start += length;
      at += length > 0 ? length : 1;
   }
   xml += text.substr(start);
}

void AppendXMLAttribute(std::string& xml, const char* name, std::string_view value)
{
   xml += ' ';
   xml += name;
   xml += "=\"";
   for (std::size_t i = 0; i < value.size(); ++i) {
      const auto byte = static_cast<unsigned char>(value[i]);
      if (byte == '"')
         xml += "&quot;";
      else if (byte == '\t' || byte == '\n' || byte == '\r')
         // Bare ones are read as blanks.
         xml += fmt::format("&#{};", byte);
      else if (byte < 0x20 || IsNoCharacter(value, i))
         throw TWriteError(
            fmt::format("CIM-XML has no form for the name \"{}\"; MOF may have", value));
      else if (IsPlain(byte) || AppendSpecial(xml, value, i) == 0)
         xml += value[i];
   }
   xml += '"';
}

void AppendXMLCharacter(std::string& xml, std::uint64_t character)
{
   const bool isSurrogate = character >= 0xD800 && character <= 0xDFFF;
   if (character < 0x20 || isSurrogate || character >= 0xFFFE) {
      xml += fmt::format("\\x{:04X}", character);
      return;
   }
   std::string text;
   AppendChar16(text, character);
   AppendXMLText(xml, text);
}

void AppendInstanceName(std::string& xml, std::string_view path, const TSchema& schema)
{
   TObjectPath read;
   if (TObjectPath::Parse(path, read))
      return AppendName(xml, read, schema, 0);
   xml += "<CLASSNAME";
   AppendXMLAttribute(xml, "NAME", path);
   xml += "/>";
}

}  // namespace NZANQSX20
