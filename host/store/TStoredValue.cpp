#include "store/TStoredValue.h"

#include <limits>

#include "TQSXException.h"
#include "store/ValueText.h"

namespace NZANQSX20 {

using TType = TCIMValue::TCIMType;

TStoredValue TStoredValue::Null(ECIMType type, bool isArray)
{
   return TStoredValue(type, kNullFlag | (isArray ? kArrayFlag : 0));
}

TStoredValue TStoredValue::Boolean(bool value)
{
   return Unsigned(TType::kBoolean, value ? 1 : 0);
}

TStoredValue TStoredValue::Unsigned(ECIMType type, std::uint64_t number)
{
   TStoredValue value(type, 0);
   value.fUnsigned = CutUnsigned(type, number);
   return value;
}

TStoredValue TStoredValue::Signed(ECIMType type, std::int64_t number)
{
   TStoredValue value(type, 0);
   value.fSigned = CutSigned(type, number);
   return value;
}

TStoredValue TStoredValue::Real(ECIMType type, double number)
{
   TStoredValue value(type, 0);
   value.fReal = number;
   return value;
}

TStoredValue TStoredValue::StringView(std::string_view text)
{
   constexpr int kGeneralFailure = 1;
   if (text.size() > std::numeric_limits<std::uint32_t>::max())
      throw TQSXException(kGeneralFailure);
   TStoredValue value(TType::kString, 0);
   value.fText = text.data();
   value.fLength = static_cast<std::uint32_t>(text.size());
   return value;
}

}  // namespace NZANQSX20
