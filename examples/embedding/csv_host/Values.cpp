// The values of a store whose every value is a text or null. A host with more types fills TPayload
// with them.
#include <algorithm>
#include <tuple>

#include "CIMStore.h"

namespace NZANQSX20 {

struct TCIMValue::TPayload
{
   std::string fText;
   std::vector<TCIMValue> fElements;
};

TCIMValue::TCIMValue(const char* text) : TCIMValue(std::string(text)) {}

TCIMValue::TCIMValue(const std::string& text)
   : fType(TCIMType::kString), fIsNull(false), fPayload(new TPayload{text, {}})
{}

TCIMValue::TCIMValue(unsigned short number) : fType(TCIMType::kUInt16), fIsNull(false)
{
   fUnsigned = number;
}

TCIMValue::TCIMValue(const TCIMDateTime& dateTime) : TCIMValue(dateTime.ToUIString()) {}

TCIMValue::TCIMValue(const TCIMValue& other)
   : fType(other.fType), fIsNull(other.fIsNull), fIsArray(other.fIsArray)
{
   fUnsigned = other.fUnsigned;
   if (other.HasPayload())
      fPayload = new TPayload(*other.fPayload);
}

TCIMValue::TCIMValue(TCIMValue&& other) noexcept
{
   *this = std::move(other);
}

TCIMValue& TCIMValue::operator=(const TCIMValue& other)
{
   return *this = TCIMValue(other);
}

TCIMValue& TCIMValue::operator=(TCIMValue&& other) noexcept
{
   std::swap(fType, other.fType);
   std::swap(fIsNull, other.fIsNull);
   std::swap(fIsArray, other.fIsArray);
   std::swap(fUnsigned, other.fUnsigned);
   return *this;
}

TCIMValue::~TCIMValue()
{
   if (HasPayload())
      delete fPayload;
}

bool TCIMValue::HasPayload() const noexcept
{
   return !fIsNull && fType == TCIMType::kString;
}

std::string TCIMValue::ToString(unsigned char) const
{
   if (fIsNull)
      return "";
   return fType == TCIMType::kString ? fPayload->fText : std::to_string(fUnsigned);
}

bool TCIMValue::operator<(const TCIMValue& other) const
{
   return std::make_tuple(!fIsNull, ToString(10)) <
          std::make_tuple(!other.fIsNull, other.ToString(10));
}

// A text that is a number converts to it; the contract leaves to the host what makes sense.
std::uint64_t TCIMValue::GetInteger() const
{
   if (fIsNull)
      throw TQSXException(kStatusNotFound);
   if (fType != TCIMType::kString)
      return fUnsigned;
   try {
      return std::stoull(fPayload->fText);
   } catch (const std::exception&) {
      throw TQSXException(kStatusTypeMismatch);
   }
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

TCIMValue::operator std::int64_t() const
{
   return static_cast<std::int64_t>(GetInteger());
}

TCIMValue::operator std::string() const
{
   return ToString(10);
}

TCIMValue::operator TCIMDateTime() const
{
   throw TQSXException(kStatusTypeMismatch);
}

TCIMValue::operator TCIMReference() const
{
   throw TQSXException(kStatusTypeMismatch);
}

TCIMValue::operator const std::vector<TCIMValue>&() const
{
   if (!HasPayload())
      throw TQSXException(kStatusTypeMismatch);
   return fPayload->fElements;
}

TCIMDateTime::TCIMDateTime(unsigned short year, unsigned short month, unsigned int day,
                           unsigned short hours, unsigned short minutes, unsigned short seconds,
                           unsigned int microseconds, short utcOffset)
   : fDay(day),
     fMicroseconds(microseconds),
     fYear(year),
     fMonth(month),
     fHours(hours),
     fMinutes(minutes),
     fSeconds(seconds),
     fUtcOffset(utcOffset)
{}

std::string TCIMDateTime::ToUIString() const
{
   const auto two = [](unsigned number) {
      return (number < 10 ? "0" : "") + std::to_string(number);
   };
   return std::to_string(fYear) + '-' + two(fMonth) + '-' + two(fDay) + ' ' + two(fHours) + ':' +
          two(fMinutes) + ':' + two(fSeconds);
}

bool TCIMDateTime::operator<(const TCIMDateTime& other) const
{
   return ToUIString() < other.ToUIString();
}

TCIMReference::TCIMReference(boost::shared_ptr<ICIMNamespace> cimNamespace,
                             const std::string& classNameOrPath, std::map<std::string, TCIMValue>)
   : fNamespace(std::move(cimNamespace)), fClassName(classNameOrPath)
{}

void TCIMReference::EnumerateKeyBindings(
   const boost::function<bool(std::pair<std::string, TCIMValue>)>& callback) const
{
   for (const auto& binding : fKeyBindings)
      callback(binding);
}

std::string TCIMReference::GetPath() const
{
   return fClassName;
}

boost::shared_ptr<ICIMClass> TCIMReference::GetClass() const
{
   return fNamespace->GetClass(fClassName.substr(0, fClassName.find('.')), {});
}

boost::shared_ptr<ICIMElement> TCIMReference::GetCIMElement(bool) const
{
   return fNamespace->GetInstance(*this, {});
}

const std::string& TQSXStatusCode::TranslateStatusCode() const
{
   static const std::string notFound = "Not found";
   static const std::string failure = "General failure";
   return fStatusCode == kStatusNotFound ? notFound : failure;
}

const char* TQSXException::what() const noexcept
{
   return fStatusCode.TranslateStatusCode().c_str();
}

}  // namespace NZANQSX20
