#include "TCIMValue.h"

#include <atomic>
#include <cmath>
#include <utility>
#include <variant>

#include "TCIMDateTime.h"
#include "TCIMReference.h"
#include "TQSXException.h"
#include "store/ValueText.h"

namespace NZANQSX20 {

using TType = TCIMValue::TCIMType;

/// Shared by copies until one of them is written; elements handed out for writing are shared no
/// more.
struct TCIMValue::TPayload
{
   using TContent = std::variant<std::string, TCIMDateTime, TCIMReference, std::vector<TCIMValue>>;

   explicit TPayload(TContent content) : fContent(std::move(content)) {}

   std::atomic<int> fShares{1};
   bool fIsWritable = false;
   TContent fContent;
};

namespace {

[[noreturn]] void ThrowConversion(const TCIMValue& value)
{
   throw TQSXException(value.IsNull() ? kStatusNotFound : kStatusTypeMismatch);
}

}  // namespace

TCIMValue::TCIMValue(ECIMType type, bool isArray, TPayload* payload) noexcept
   : fType(type), fIsNull(false), fIsArray(isArray), fPayload(payload)
{}

TCIMValue::TCIMValue(const char* text)
   : TCIMValue(TType::kString, false, new TPayload(std::string(text)))
{}

TCIMValue::TCIMValue(const std::string& text) : TCIMValue(TType::kString, false, new TPayload(text))
{}

TCIMValue::TCIMValue(unsigned short number)
   : fType(TType::kUInt16), fIsNull(false), fUnsigned(number)
{}

TCIMValue::TCIMValue(const TCIMDateTime& dateTime)
   : TCIMValue(TType::kDateTime, false, new TPayload(dateTime))
{}

TCIMValue::TCIMValue(const TCIMReference& reference)
   : TCIMValue(TType::kReference, false, new TPayload(reference))
{}

TCIMValue TCIMValue::Null(ECIMType type, bool isArray)
{
   TCIMValue value;
   value.fType = type;
   value.fIsArray = isArray;
   return value;
}

TCIMValue TCIMValue::Boolean(bool boolean)
{
   return Unsigned(TType::kBoolean, boolean ? 1 : 0);
}

TCIMValue TCIMValue::Unsigned(ECIMType type, std::uint64_t number)
{
   TCIMValue value;
   value.fType = type;
   value.fIsNull = false;
   value.fUnsigned = CutUnsigned(type, number);
   return value;
}

TCIMValue TCIMValue::Signed(ECIMType type, std::int64_t number)
{
   TCIMValue value;
   value.fType = type;
   value.fIsNull = false;
   value.fSigned = CutSigned(type, number);
   return value;
}

TCIMValue TCIMValue::Real(ECIMType type, double number)
{
   TCIMValue value;
   value.fType = type;
   value.fIsNull = false;
   value.fReal = number;
   return value;
}

TCIMValue TCIMValue::Array(ECIMType type, std::vector<TCIMValue> elements)
{
   return TCIMValue(type, true, new TPayload(std::move(elements)));
}

TCIMValue::TCIMValue(const TCIMValue& other)
   : fType(other.fType),
     fIsNull(other.fIsNull),
     fIsArray(other.fIsArray),
     fUnsigned(other.fUnsigned)
{
   if (!HasPayload())
      return;
   if (other.fPayload->fIsWritable)
      fPayload = new TPayload(other.fPayload->fContent);
   else
      fPayload->fShares.fetch_add(1, std::memory_order_relaxed);
}

TCIMValue::TCIMValue(TCIMValue&& other) noexcept
   : fType(other.fType),
     fIsNull(other.fIsNull),
     fIsArray(other.fIsArray),
     fUnsigned(other.fUnsigned)
{
   other.fIsNull = true;
}

TCIMValue& TCIMValue::operator=(const TCIMValue& other)
{
   TCIMValue copy(other);
   return *this = std::move(copy);
}

TCIMValue& TCIMValue::operator=(TCIMValue&& other) noexcept
{
   if (this == &other)
      return *this;
   // What this value held goes last: the other may lie inside it.
   TCIMValue old(std::move(*this));
   fType = other.fType;
   fIsArray = other.fIsArray;
   fUnsigned = other.fUnsigned;
   fIsNull = std::exchange(other.fIsNull, true);
   return *this;
}

TCIMValue::~TCIMValue()
{
   Release();
}

bool TCIMValue::HasPayload() const noexcept
{
   const bool isLarge = fIsArray || fType == TType::kString || fType == TType::kDateTime ||
                        fType == TType::kReference;
   return isLarge && !fIsNull;
}

void TCIMValue::Release() noexcept
{
   if (HasPayload() && fPayload->fShares.fetch_sub(1, std::memory_order_acq_rel) == 1)
      delete fPayload;
}

std::string TCIMValue::ToString(unsigned char base) const
{
   if (fIsNull)
      return std::string();
   std::string text;
   if (fIsArray) {
      bool isFirst = true;
      for (const TCIMValue& element : std::get<std::vector<TCIMValue>>(fPayload->fContent)) {
         if (!isFirst)
            text += ',';
         text += element.ToString(base);
         isFirst = false;
      }
      return text;
   }
   switch (fType) {
      case TType::kNull:
         break;
      case TType::kBoolean:
         text = GetBooleanText(fUnsigned != 0);
         break;
      case TType::kChar16:
         AppendChar16(text, fUnsigned);
         break;
      case TType::kReal32:
      case TType::kReal64:
         AppendReal(text, fReal, fType);
         break;
      case TType::kString:
         text = std::get<std::string>(fPayload->fContent);
         break;
      case TType::kDateTime:
         text = std::get<TCIMDateTime>(fPayload->fContent).ToString();
         break;
      case TType::kReference:
         text = std::get<TCIMReference>(fPayload->fContent).GetPath();
         break;
      default: {
         const int digits = base >= 2 && base <= 16 ? base : 10;
         if (IsSignedType(fType))
            AppendSigned(text, fSigned, digits);
         else
            AppendUnsigned(text, fUnsigned, digits);
      }
   }
   return text;
}

namespace {

/// What compares with each other: all integers, and both reals; else only values of one type.
/// Ordered as the type numbers are.
int GetKind(TCIMValue::ECIMType type)
{
   if (IsIntegerType(type))
      return TType::kUInt8;
   return IsRealType(type) ? TType::kReal32 : type;
}

/// A real that is no number stands behind all others, so that the order stays an order.
bool IsRealLess(double a, double b)
{
   if (std::isnan(a) || std::isnan(b))
      return !std::isnan(a) && std::isnan(b);
   return a < b;
}

}  // namespace

bool TCIMValue::operator==(const TCIMValue& other) const
{
   return !(*this < other) && !(other < *this);
}

bool TCIMValue::operator<(const TCIMValue& other) const
{
   if (fIsNull || other.fIsNull)
      return fIsNull && !other.fIsNull;
   if (fIsArray != other.fIsArray)
      return other.fIsArray;
   if (fIsArray)
      return std::get<std::vector<TCIMValue>>(fPayload->fContent) <
             std::get<std::vector<TCIMValue>>(other.fPayload->fContent);

   const int kind = GetKind(fType);
   if (kind != GetKind(other.fType))
      return kind < GetKind(other.fType);
   switch (kind) {
      case TType::kNull:
         return false;
      case TType::kUInt8: {
         const bool isNegative = IsSignedType(fType) && fSigned < 0;
         const bool isOtherNegative = IsSignedType(other.fType) && other.fSigned < 0;
         if (isNegative != isOtherNegative)
            return isNegative;
         // Two's complement keeps the order among negative numbers.
         return fUnsigned < other.fUnsigned;
      }
      case TType::kReal32:
         return IsRealLess(fReal, other.fReal);
      case TType::kString:
         return std::get<std::string>(fPayload->fContent) <
                std::get<std::string>(other.fPayload->fContent);
      case TType::kDateTime:
         return std::get<TCIMDateTime>(fPayload->fContent) <
                std::get<TCIMDateTime>(other.fPayload->fContent);
      case TType::kReference:
         return ToString(10) < other.ToString(10);
      default:
         return fUnsigned < other.fUnsigned;
   }
}

std::uint64_t TCIMValue::GetInteger() const
{
   const bool isInteger =
      IsIntegerType(fType) || fType == TType::kBoolean || fType == TType::kChar16;
   if (fIsNull || fIsArray || !isInteger)
      ThrowConversion(*this);
   return fUnsigned;
}

TCIMValue::operator bool() const
{
   return GetInteger() != 0;
}

TCIMValue::operator unsigned char() const
{
   return static_cast<unsigned char>(GetInteger());
}

TCIMValue::operator unsigned short() const
{
   return static_cast<unsigned short>(GetInteger());
}

TCIMValue::operator int() const
{
   return static_cast<int>(GetInteger());
}

TCIMValue::operator unsigned int() const
{
   return static_cast<unsigned int>(GetInteger());
}

TCIMValue::operator std::uint64_t() const
{
   return GetInteger();
}

TCIMValue::operator std::int64_t() const
{
   return static_cast<std::int64_t>(GetInteger());
}

TCIMValue::operator double() const
{
   if (!fIsNull && !fIsArray && IsRealType(fType))
      return fReal;
   const std::uint64_t number = GetInteger();
   return IsSignedType(fType) ? static_cast<double>(fSigned) : static_cast<double>(number);
}

TCIMValue::operator std::string() const
{
   if (fIsNull)
      return {};
   if (fIsArray || fType != TType::kString)
      ThrowConversion(*this);
   return ToString(10);
}

TCIMValue::operator TCIMDateTime() const
{
   if (fIsNull || fIsArray)
      ThrowConversion(*this);
   if (fType == TType::kDateTime)
      return std::get<TCIMDateTime>(fPayload->fContent);
   TCIMDateTime dateTime;
   const bool isText = fType == TType::kString;
   if (!isText || !TCIMDateTime::Parse(std::get<std::string>(fPayload->fContent), dateTime))
      ThrowConversion(*this);
   return dateTime;
}

TCIMValue::operator TCIMReference() const
{
   if (fIsNull || fIsArray || fType != TType::kReference)
      ThrowConversion(*this);
   return std::get<TCIMReference>(fPayload->fContent);
}

TCIMValue::operator std::vector<TCIMValue>&()
{
   if (fIsNull || !fIsArray)
      ThrowConversion(*this);
   if (fPayload->fShares.load(std::memory_order_acquire) > 1) {
      TPayload* own = new TPayload(fPayload->fContent);
      Release();
      fPayload = own;
   }
   fPayload->fIsWritable = true;
   return std::get<std::vector<TCIMValue>>(fPayload->fContent);
}

TCIMValue::operator const std::vector<TCIMValue>&() const
{
   if (fIsNull || !fIsArray)
      ThrowConversion(*this);
   return std::get<std::vector<TCIMValue>>(fPayload->fContent);
}

}  // namespace NZANQSX20
