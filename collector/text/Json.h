#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include <rapidjson/document.h>

namespace NZANQSX20 {

/// What a tool printed as JSON, read without recursion.
/// Missing: null when it is none.
rapidjson::Document ParseJson(const std::string& text);

// Members of an object. Missing: an empty text, nothing, null when the value is no object or has
// no such member, or the member is of another kind.

std::string GetText(const rapidjson::Value& object, const char* name);
/// Also of a text that holds a number.
std::optional<std::uint64_t> GetNumber(const rapidjson::Value& object, const char* name);
std::optional<bool> GetBoolean(const rapidjson::Value& object, const char* name);
/// An object or an array, to go on with.
const rapidjson::Value& GetMember(const rapidjson::Value& object, const char* name);

/// The elements of an array. Missing: none when it is no array.
///
///    for (const rapidjson::Value& disk : GetElements(GetMember(json, "blockdevices")))
rapidjson::Value::ConstArray GetElements(const rapidjson::Value& array);

}  // namespace NZANQSX20
