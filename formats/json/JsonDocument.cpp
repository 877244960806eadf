#include "json/JsonDocument.h"

#include <algorithm>

#include <fmt/format.h>

namespace {

/// The first character that a terminal obeys and JSON allows: DEL, or one of U+0080 to U+009F,
/// which begin with the byte C2. Missing: the end of the text.
const char* FindControl(const char* begin, const char* end)
{
   constexpr unsigned char kDelete = 0x7F;
   constexpr unsigned char kLead = 0xC2;
   return std::find_if(begin, end, [end](const char& character) {
      const auto byte = static_cast<unsigned char>(character);
      return byte == kDelete || (byte == kLead && &character + 1 != end &&
                                 static_cast<unsigned char>((&character)[1]) < 0xA0);
   });
}

}  // namespace

TJsonDocument::TJsonDocument(TOutputFile& file) : fFile(file), fJson(fBuffer)
{
   fJson.StartObject();
}

void TJsonDocument::Member(const char* name, std::string_view text)
{
   fText = text;
   WriteJsonMember(fJson, name, fText);
}

void TJsonDocument::Member(const char* name, bool flag)
{
   WriteJsonMember(fJson, name, flag);
}

void TJsonDocument::Member(const char* name, std::uint64_t number)
{
   fJson.Key(name);
   fJson.Uint64(number);
}

void TJsonDocument::MemberIfAny(const char* name, std::string_view text)
{
   if (!text.empty())
      Member(name, text);
}

void TJsonDocument::MemberIfTrue(const char* name, bool flag)
{
   if (flag)
      Member(name, flag);
}

void TJsonDocument::FlushIfLong()
{
   constexpr std::size_t kLong = 128 * 1024;
   if (fBuffer.GetSize() >= kLong)
      Flush();
}

void TJsonDocument::End()
{
   fJson.EndObject();
   fBuffer.Put('\n');
   Flush();
}

void TJsonDocument::Flush()
{
   const char* begin = fBuffer.GetString();
   const char* const end = begin + fBuffer.GetSize();
   while (begin != end) {
      const char* control = FindControl(begin, end);
      fFile.Write({begin, static_cast<std::size_t>(control - begin)});
      if (control != end) {
         // The number of such a character is its last byte.
         control += *control == '\x7F' ? 0 : 1;
         fFile.Write(fmt::format("\\u{:04x}", static_cast<unsigned char>(*control)));
         ++control;
      }
      begin = control;
   }
   fBuffer.Clear();
}
