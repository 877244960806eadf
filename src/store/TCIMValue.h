#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "QSXExport.h"

namespace NZANQSX20 {

class TCIMDateTime;
class TCIMReference;

/// One value of the store: nothing (null), a scalar, or an array of scalars.
///
/// Shape:   a null still knows its type where the store gave one; the default value is null of
///          type 0.
/// Owner:   a plain value. Copying is cheap; copies never share later changes.
/// Throws:  a conversion throws TQSXException, status 15 for a null and 13 for a type that cannot
///          be converted. Integer conversions truncate like a C++ cast.
class QSX_API TCIMValue
{
public:
   class TCIMType
   {
   public:
      enum ECIMType : std::uint8_t
      {
         kNull = 0,
         kBoolean = 1,
         kChar16 = 2,
         kUInt8 = 3,
         kSInt8 = 4,
         kUInt16 = 5,
         kSInt16 = 6,
         kUInt32 = 7,
         kSInt32 = 8,
         kUInt64 = 9,
         kSInt64 = 10,
         kReal32 = 11,
         kReal64 = 12,
         kString = 13,
         kDateTime = 14,
         kReference = 15
      };

      TCIMType(ECIMType type = kNull) : fType(type) {}

      operator ECIMType() const { return fType; }

   private:
      ECIMType fType;
   };

   using ECIMType = TCIMType::ECIMType;

   TCIMValue() noexcept = default;
   TCIMValue(const char* text);
   TCIMValue(const std::string& text);
   TCIMValue(unsigned short number);
   TCIMValue(const TCIMDateTime& dateTime);
   TCIMValue(const TCIMReference& reference);
   TCIMValue(const TCIMValue& other);
   TCIMValue(TCIMValue&& other) noexcept;
   TCIMValue& operator=(const TCIMValue& other);
   TCIMValue& operator=(TCIMValue&& other) noexcept;
   ~TCIMValue();

   /// A null that keeps its declared type.
   static TCIMValue Null(ECIMType type, bool isArray = false);
   static TCIMValue Boolean(bool value);
   /// type is kChar16 or one of the unsigned integers; the number is cut to its width.
   static TCIMValue Unsigned(ECIMType type, std::uint64_t number);
   /// type is one of the signed integers; the number is cut to its width.
   static TCIMValue Signed(ECIMType type, std::int64_t number);
   /// type is kReal32 or kReal64.
   static TCIMValue Real(ECIMType type, double number);
   /// An array of elements of one type, none of them an array itself.
   static TCIMValue Array(ECIMType type, std::vector<TCIMValue> elements);

   bool IsNull() const { return fIsNull; }

   bool IsArray() const { return fIsArray; }

   TCIMType GetType() const { return fType; }

   /// The text of the value; integers in the given number base (2 to 16), everything else as in
   /// base 10. A char16 is its character in UTF-8. Array elements are joined by ",".
   /// Missing: a null gives the empty text.
   std::string ToString(unsigned char base) const;

   bool operator==(const TCIMValue& other) const;

   bool operator!=(const TCIMValue& other) const { return !(*this == other); }

   /// A strict order over all values: nulls, single values, arrays. Integers and reals compare by
   /// value whatever their width, arrays element by element, unlike types by type number.
   bool operator<(const TCIMValue& other) const;

   // Explicit: the caller names the type that it knows the property to have. The integers are of an
   // integer, a char16 or a boolean.
   explicit operator bool() const;
   explicit operator unsigned char() const;
   explicit operator unsigned short() const;
   explicit operator int() const;
   explicit operator unsigned int() const;
   explicit operator std::uint64_t() const;
   explicit operator std::int64_t() const;
   /// Of a real or an integer.
   explicit operator double() const;
   /// Of a single value of any type, as ToString(10) gives it. Missing: a null is the empty text.
   explicit operator std::string() const;
   /// Also of a string in the 25-character form.
   explicit operator TCIMDateTime() const;
   explicit operator TCIMReference() const;
   /// The elements of an array, to read or to change in place. Owner: valid as long as this value
   /// is.
   explicit operator std::vector<TCIMValue>&();
   explicit operator const std::vector<TCIMValue>&() const;

private:
   /// What does not fit beside the type: text, date-time, path or elements. The host defines it.
   struct TPayload;

   TCIMValue(ECIMType type, bool isArray, TPayload* payload) noexcept;

   bool HasPayload() const noexcept;
   void Release() noexcept;
   std::uint64_t GetInteger() const;

   ECIMType fType = TCIMType::kNull;
   bool fIsNull = true;
   bool fIsArray = false;

   union
   {
      std::uint64_t fUnsigned = 0;
      std::int64_t fSigned;
      double fReal;
      TPayload* fPayload;
   };
};

/// The trailing argument of nearly every store call, usually empty. A store ignores keys that it
/// does not know; "nsIndex" (unsigned short) selects the collected namespace of a delta repository.
using TContext = std::map<std::string, TCIMValue>;

/// The one key of a context that the library sets.
constexpr const char* kNamespaceIndexKey = "nsIndex";

}  // namespace NZANQSX20
