#pragma once

#include <cstdint>
#include <string_view>

#include "QSXExport.h"
#include "TCIMDateTime.h"
#include "TCIMValue.h"

namespace NZANQSX20 {

class TStoredInstance;

/// The number of a property within its class. It stays the same for the life of the store, also
/// when a declaration that was missing comes later.
using TSlot = std::uint32_t;

/// One value as the store keeps it: 16 bytes, no destructor.
///
/// Owner: text, date-time and elements lie in the store's arena or in a buffer that the store keeps
/// (TMemoryStore::Keep). The factories here take views and copy nothing; those of TMemoryStore
/// copy.
class QSX_API TStoredValue
{
public:
   using ECIMType = TCIMValue::ECIMType;

   /// A null without type.
   TStoredValue() = default;

   static TStoredValue Null(ECIMType type, bool isArray = false);
   static TStoredValue Boolean(bool value);
   /// type is kChar16 or one of the unsigned integers; the number is cut to its width.
   static TStoredValue Unsigned(ECIMType type, std::uint64_t number);
   /// type is one of the signed integers; the number is cut to its width.
   static TStoredValue Signed(ECIMType type, std::int64_t number);
   /// type is kReal32 or kReal64.
   static TStoredValue Real(ECIMType type, double number);
   /// A string over memory that outlives the store's use of it. Throws: status 1 over 4 GiB.
   static TStoredValue StringView(std::string_view text);

   ECIMType GetType() const { return static_cast<ECIMType>(fType); }

   bool IsNull() const { return (fFlags & kNullFlag) != 0; }

   bool IsArray() const { return (fFlags & kArrayFlag) != 0; }

   /// Units: elements; only of an array that is not null.
   std::uint32_t GetCount() const { return fLength; }

   const TStoredValue* GetElements() const { return fElements; }

   /// The text of a string, or of a reference that is kept as path text.
   std::string_view GetText() const { return {fText, fLength}; }

   std::uint64_t GetUnsigned() const { return fUnsigned; }

   std::int64_t GetSigned() const { return fSigned; }

   double GetReal() const { return fReal; }

   const TCIMDateTime& GetDateTime() const { return *fDateTime; }

   /// The instance that a reference was made from. Missing: null when it is kept as path text.
   const TStoredInstance* GetTarget() const
   {
      return (fFlags & kTargetFlag) != 0 ? fTarget : nullptr;
   }

private:
   friend class TMemoryStore;

   enum : std::uint8_t
   {
      kNullFlag = 1,
      kArrayFlag = 2,
      kTargetFlag = 4
   };

   TStoredValue(ECIMType type, int flags)
      : fType(type), fFlags(static_cast<std::uint8_t>(flags)), fUnsigned(0)
   {}

   std::uint8_t fType = TCIMValue::TCIMType::kNull;
   std::uint8_t fFlags = kNullFlag;
   std::uint32_t fLength = 0;

   union
   {
      std::uint64_t fUnsigned = 0;
      std::int64_t fSigned;
      double fReal;
      const char* fText;
      const TCIMDateTime* fDateTime;
      const TStoredValue* fElements;
      const TStoredInstance* fTarget;
   };
};

static_assert(sizeof(TStoredValue) == 16, "every value of every instance costs this much");

}  // namespace NZANQSX20
