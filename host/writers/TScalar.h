#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "store/TStoredClass.h"
#include "store/TStoredValue.h"

namespace NZANQSX20 {

/// One value as a writer sees it, whether it comes from an instance or from a declaration.
struct TScalar
{
   TCIMValue::ECIMType fType = TCIMValue::TCIMType::kNull;
   bool fIsNull = true;
   /// Of kBoolean, kChar16 and the unsigned integers.
   std::uint64_t fUnsigned = 0;
   std::int64_t fSigned = 0;
   double fReal = 0;
   /// Of a string, a date-time (the 25 characters) and a reference (the path).
   std::string_view fText;
   /// The instance that a reference was made from. Missing: null for one that is kept as a path.
   const TStoredInstance* fTarget = nullptr;
};

/// The text of the scalar may lie in the room; it holds until the room changes.
TScalar MakeScalar(const TStoredValue& value, std::string& room);
TScalar MakeScalar(const TCIMValue& value, std::string& room);

/// Calls back for each element of an array, or for the one value.
template <typename TCallback>
void ForEachScalar(const TStoredValue& value, TCallback callback)
{
   std::string room;
   if (!value.IsArray())
      return callback(MakeScalar(value, room));
   for (std::uint32_t i = 0; !value.IsNull() && i < value.GetCount(); ++i)
      callback(MakeScalar(value.GetElements()[i], room));
}

template <typename TCallback>
void ForEachScalar(const TCIMValue& value, TCallback callback)
{
   std::string room;
   if (!value.IsArray())
      return callback(MakeScalar(value, room));
   if (value.IsNull())
      return;
   for (const TCIMValue& element : static_cast<const std::vector<TCIMValue>&>(value))
      callback(MakeScalar(element, room));
}

/// Appends a number that is no reference, text or date-time: an integer, or a real by the shortest
/// text that reads back as the same double.
void AppendNumber(std::string& text, const TScalar& scalar);

/// The name of a type as both forms write it. Missing: "string" for kNull.
const char* GetTypeName(TCIMValue::ECIMType type);

/// The text, or a copy in the room with U+FFFD for each byte that is no UTF-8.
std::string_view MakeUtf8(std::string_view text, std::string& room);

/// Throws: TWriteError for a value that would be read as another type than it has.
void RequireDeclaredType(const TStoredClass& storedClass, const TPropertyDecl& declaration,
                         const TStoredValue& value);

}  // namespace NZANQSX20
