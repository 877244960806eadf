#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "TCIMDateTime.h"
#include "TCIMValue.h"
#include "readers/TObjectDraft.h"

namespace NZANQSX20 {

/// The type of that name, in any case ("uint8", "String"). Missing: false for any other name.
bool FindCIMType(std::string_view name, TCIMValue::ECIMType& type);

/// One value that has its type. A reference is its path text, in fText.
struct TTypedValue
{
   TCIMValue::ECIMType fType = TCIMValue::TCIMType::kNull;
   bool fIsNull = true;
   std::uint64_t fUnsigned = 0;
   std::int64_t fSigned = 0;
   double fReal = 0;
   std::string_view fText = {};
   TCIMDateTime fDateTime = {};
};

/// Reads what a file writes as a value of the type. Missing: false when it is none: another form, a
/// number outside the type, a time that does not exist. An alias is never one.
bool ReadTypedValue(const TValueDraft& draft, TCIMValue::ECIMType type, TTypedValue& value);

/// The type that a value shows by its form where no declaration tells it.
TCIMValue::ECIMType GuessCIMType(const TValueDraft& draft);

TCIMValue MakeCIMValue(const TTypedValue& value);

/// For messages: "a uint8 (0 to 255)"; "the number 300".
std::string DescribeType(TCIMValue::ECIMType type);
std::string DescribeValue(const TValueDraft& draft);

/// Leaves out blanks at both ends.
std::string_view TrimBlanks(std::string_view text);

}  // namespace NZANQSX20
