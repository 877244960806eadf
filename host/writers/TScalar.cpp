#include "writers/TScalar.h"

#include <charconv>
#include <cmath>

#include <fmt/format.h>

#include "readers/TSourceText.h"
#include "store/StoredPath.h"
#include "store/ValueText.h"
#include "writers/TWriteError.h"

namespace NZANQSX20 {

using TType = TCIMValue::TCIMType;

namespace {

/// A real32 may have been read from more digits than a real32 needs.
void AppendExactReal(std::string& text, double number, TCIMValue::ECIMType type)
{
   const std::size_t start = text.size();
   AppendReal(text, number, type);
   if (type == TType::kReal64 || !std::isfinite(number))
      return;
   double read = 0;
   std::from_chars(text.data() + start, text.data() + text.size(), read);
   if (read == number)
      return;
   text.resize(start);
   AppendReal(text, number, TType::kReal64);
}

}  // namespace

TScalar MakeScalar(const TStoredValue& value, std::string& room)
{
   TScalar scalar;
   scalar.fType = value.GetType();
   scalar.fIsNull = value.IsNull();
   if (scalar.fIsNull)
      return scalar;
   scalar.fTarget = value.GetTarget();
   if (scalar.fType == TType::kString ||
       (scalar.fType == TType::kReference && scalar.fTarget == nullptr)) {
      scalar.fText = value.GetText();
   } else if (scalar.fType == TType::kDateTime || scalar.fType == TType::kReference) {
      room.clear();
      AppendText(room, value);
      scalar.fText = room;
   } else if (IsRealType(scalar.fType)) {
      scalar.fReal = value.GetReal();
   } else if (IsSignedType(scalar.fType)) {
      scalar.fSigned = value.GetSigned();
   } else {
      scalar.fUnsigned = value.GetUnsigned();
   }
   return scalar;
}

TScalar MakeScalar(const TCIMValue& value, std::string& room)
{
   TScalar scalar;
   scalar.fType = value.GetType();
   scalar.fIsNull = value.IsNull();
   if (scalar.fIsNull)
      return scalar;
   if (scalar.fType >= TType::kString) {
      room = value.ToString(10);
      scalar.fText = room;
   } else if (IsRealType(scalar.fType)) {
      scalar.fReal = static_cast<double>(value);
   } else if (IsSignedType(scalar.fType)) {
      scalar.fSigned = static_cast<std::int64_t>(value);
   } else {
      scalar.fUnsigned = static_cast<std::uint64_t>(value);
   }
   return scalar;
}

void AppendNumber(std::string& text, const TScalar& scalar)
{
   if (IsRealType(scalar.fType))
      AppendExactReal(text, scalar.fReal, scalar.fType);
   else if (IsSignedType(scalar.fType))
      AppendSigned(text, scalar.fSigned);
   else
      AppendUnsigned(text, scalar.fUnsigned);
}

const char* GetTypeName(TCIMValue::ECIMType type)
{
   static constexpr const char* kNames[] = {
      "string", "boolean", "char16", "uint8",  "sint8",  "uint16", "sint16",   "uint32",
      "sint32", "uint64",  "sint64", "real32", "real64", "string", "datetime", "reference"};
   return kNames[type];
}

std::string_view MakeUtf8(std::string_view text, std::string& room)
{
   std::size_t invalid = FindInvalidUtf8(text);
   if (invalid == std::string_view::npos)
      return text;
   constexpr std::string_view kReplacement = "\xEF\xBF\xBD";
   room.clear();
   while (invalid != std::string_view::npos) {
      room += text.substr(0, invalid);
      room += kReplacement;
      text.remove_prefix(invalid + 1);
      invalid = FindInvalidUtf8(text);
   }
   room += text;
   return room;
}

void RequireDeclaredType(const TStoredClass& storedClass, const TPropertyDecl& declaration,
                         const TStoredValue& value)
{
   const bool isDeclared =
      value.GetType() == declaration.fType && value.IsArray() == declaration.fIsArray;
   if (!value.IsNull() && !isDeclared)
      throw TWriteError(fmt::format(
         "{}.{} has a value of type {}{}, its class declares {}{}", storedClass.GetName(),
         declaration.fName, GetTypeName(value.GetType()), value.IsArray() ? "[]" : "",
         GetTypeName(declaration.fType), declaration.fIsArray ? "[]" : ""));
}

}  // namespace NZANQSX20
