#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "TCIMValue.h"

namespace NZANQSX20 {

/// The texts of single values; TCIMValue and TStoredValue read alike because both come here.

inline bool IsUnsignedType(TCIMValue::ECIMType type)
{
   using T = TCIMValue::TCIMType;
   return type == T::kUInt8 || type == T::kUInt16 || type == T::kUInt32 || type == T::kUInt64;
}

inline bool IsSignedType(TCIMValue::ECIMType type)
{
   using T = TCIMValue::TCIMType;
   return type == T::kSInt8 || type == T::kSInt16 || type == T::kSInt32 || type == T::kSInt64;
}

inline bool IsIntegerType(TCIMValue::ECIMType type)
{
   return IsUnsignedType(type) || IsSignedType(type);
}

inline bool IsRealType(TCIMValue::ECIMType type)
{
   return type == TCIMValue::TCIMType::kReal32 || type == TCIMValue::TCIMType::kReal64;
}

/// The number cut to the width of an unsigned type, of kChar16 or of kBoolean.
std::uint64_t CutUnsigned(TCIMValue::ECIMType type, std::uint64_t number);

/// The number cut to the width of a signed type.
std::int64_t CutSigned(TCIMValue::ECIMType type, std::int64_t number);

void AppendUnsigned(std::string& text, std::uint64_t number, int base = 10);
void AppendSigned(std::string& text, std::int64_t number, int base = 10);

/// The shortest text that reads back as the same real of that width.
void AppendReal(std::string& text, double number, TCIMValue::ECIMType type);

/// The character in UTF-8; half of a surrogate pair is the replacement character, 0 is nothing.
void AppendChar16(std::string& text, std::uint64_t character);

inline const char* GetBooleanText(bool value)
{
   return value ? "TRUE" : "FALSE";
}

}  // namespace NZANQSX20
