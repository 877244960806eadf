#include "json/JsonDocument.h"

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
   fFile.Write({fBuffer.GetString(), fBuffer.GetSize()});
   fBuffer.Clear();
}
