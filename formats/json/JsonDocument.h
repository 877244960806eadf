#pragma once

#include <string>
#include <string_view>

#include "common/Json.h"
#include "common/OutputFile.h"

/// One JSON object that goes to a file as it grows.
///
/// Shape:  always valid UTF-8, without a control byte but line ends; what is no character becomes
///         U+FFFD.
/// Owner:  the file stays the caller's.
/// Throws: TOutputError.
class TJsonDocument
{
public:
   /// Begins the object.
   explicit TJsonDocument(TOutputFile& file);

   TJsonWriter& Get() { return fJson; }

   void Member(const char* name, std::string_view text);
   void Member(const char* name, bool flag);
   void Member(const char* name, std::uint64_t number);

   void Member(const char* name, const char* text) { Member(name, std::string_view(text)); }

   void Member(const char* name, const std::string& text) { Member(name, std::string_view(text)); }

   /// Nothing for an empty text.
   void MemberIfAny(const char* name, std::string_view text);
   /// Nothing for false.
   void MemberIfTrue(const char* name, bool flag);

   /// A blank line end between two values, for readers of the file.
   void BreakLine() { fBuffer.Put('\n'); }

   /// Hands on what has gathered, once it is much.
   void FlushIfLong();

   /// Ends the object and the line.
   void End();

private:
   void Flush();

   TOutputFile& fFile;
   rapidjson::StringBuffer fBuffer;
   TJsonWriter fJson;
   /// Used again and again.
   std::string fText;
};
