#pragma once

#include <string>

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

/// Writes JSON without blanks outside strings.
using TJsonWriter = rapidjson::Writer<rapidjson::StringBuffer>;

/// Writes a text as a JSON string that is valid UTF-8 whatever the bytes: what is no character
/// becomes U+FFFD.
void WriteJsonText(TJsonWriter& json, const std::string& text);

/// Writes a member's name and its text.
void WriteJsonMember(TJsonWriter& json, const char* name, const std::string& text);
void WriteJsonMember(TJsonWriter& json, const char* name, bool flag);
void WriteJsonMember(TJsonWriter& json, const char* name, int number);
// A literal would otherwise choose the flag.
void WriteJsonMember(TJsonWriter& json, const char* name, const char* text) = delete;
