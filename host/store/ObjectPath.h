#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "TCIMValue.h"

namespace NZANQSX20 {

/// The key of an instance whose class has no keys: `Class.@=N`, N its number within the class.
constexpr const char* kNumberKey = "@";

/// One `Key=value` of an object path.
struct TKeyBinding
{
   std::string fName;
   /// Without the quotes and the backslashes of the path. An unquoted text is a number, `TRUE`,
   /// `FALSE` or `NULL`.
   std::string fText;
   bool fIsQuoted = true;
};

/// An object path taken apart: `Class.Key1="text",Key2=5`.
struct TObjectPath
{
   std::string fClassName;
   /// In byte order of their names.
   std::vector<TKeyBinding> fKeys;

   /// Reads a path and brings it into the one form that equal paths have: the namespace in front is
   /// dropped, keys are sorted, numbers are decimal, booleans in capitals.
   /// Missing: false when the text is no object path with keys; the result then is left alone.
   static bool Parse(std::string_view text, TObjectPath& path);

   std::string ToText() const;
};

/// Appends one `Key=value`, with a comma before it unless it is the first.
void AppendKeyBinding(std::string& path, bool isFirst, std::string_view name, std::string_view text,
                      bool isQuoted);

/// Whether the keys of that type stand in quotes: all but numbers and booleans.
bool IsQuotedType(TCIMValue::ECIMType type);

/// What stands behind the `=` for a value, before it is quoted; isQuoted tells whether it will be.
std::string GetKeyText(const TCIMValue& value, bool& isQuoted);

/// The value of a key binding: a string, a number (kUInt64, kSInt64 or kReal64), a boolean or null.
TCIMValue GetKeyValue(const TKeyBinding& key);

}  // namespace NZANQSX20
