#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include <boost/shared_ptr.hpp>

#include "TCIMDateTime.h"
#include "machine/TReading.h"
#include "store/TMemoryStore.h"

namespace NZANQSX20 {

class TCollected;

/// What a subject asks the machine for, so that the collection can say what it lacks.
struct TNeed
{
   /// Plain words: "Drive health".
   const char* fSubject;
   /// The classes that hold nothing or less without it.
   std::vector<const char*> fClasses;
};

/// One instance while it is being filled; a small value to pass around.
///
/// A property takes the type that its class declares. What is unknown is not set: an empty text,
/// an empty optional, an empty list and a number outside the declared type leave the property
/// alone.
/// Owner:  the instance is the collection's.
/// Throws: std::logic_error for a property that the class doesn't declare, or a value that is not
///         of its kind: a mistake in a subject.
class TEntry
{
public:
   TEntry(TCollected& collected, TStoredInstance& instance)
      : fCollected(&collected), fInstance(&instance)
   {}

   /// The text may hold any bytes, see ToUtf8.
   TEntry& Set(const char* property, std::string_view text);

   TEntry& Set(const char* property, const char* text)
   {
      return Set(property, std::string_view(text));
   }

   TEntry& Set(const char* property, const std::string& text)
   {
      return Set(property, std::string_view(text));
   }

   TEntry& Set(const char* property, const TCIMDateTime& time);
   TEntry& Set(const char* property, const TEntry& target);
   TEntry& Set(const char* property, const std::vector<std::string>& texts);
   TEntry& Set(const char* property, const std::vector<std::uint64_t>& numbers);

   template <typename Number, typename = std::enable_if_t<std::is_arithmetic_v<Number>>>
   TEntry& Set(const char* property, Number number)
   {
      if constexpr (std::is_same_v<Number, bool>)
         return SetBoolean(property, number);
      else if constexpr (std::is_floating_point_v<Number>)
         return SetReal(property, static_cast<double>(number));
      else if constexpr (std::is_signed_v<Number>)
         return SetSigned(property, static_cast<std::int64_t>(number));
      else
         return SetUnsigned(property, static_cast<std::uint64_t>(number));
   }

   template <typename Value>
   TEntry& Set(const char* property, const std::optional<Value>& value)
   {
      return value ? Set(property, *value) : *this;
   }

private:
   friend class TCollected;

   TEntry& SetBoolean(const char* property, bool value);
   TEntry& SetSigned(const char* property, std::int64_t number);
   TEntry& SetUnsigned(const char* property, std::uint64_t number);
   TEntry& SetReal(const char* property, double number);
   void SetValue(TSlot slot, const TStoredValue& value);
   TSlot GetSlot(const char* property, bool isArray) const;
   TStoredValue::ECIMType GetType(TSlot slot) const;

   TCollected* fCollected;
   TStoredInstance* fInstance;
};

/// A collection in the making: the declarations of schema/, and the instances that the subjects
/// add.
class TCollected
{
public:
   /// All declarations, no instance.
   TCollected();
   ~TCollected();
   TCollected(const TCollected&) = delete;
   TCollected& operator=(const TCollected&) = delete;

   /// A new instance. Throws: std::logic_error for a class that the schema doesn't declare.
   TEntry Add(std::string_view className);

   /// The first instance of the class, a new one when there is none: for what several subjects
   /// fill.
   TEntry GetSingle(std::string_view className);

   /// Missing: nothing when no instance has that path.
   std::optional<TEntry> Find(std::string_view path);

   /// An association with its two references in the order of their declaration.
   void Associate(std::string_view className, const TEntry& first, const TEntry& second);

   /// Whether it was read. If not, the collection says so, once for each subject and source.
   bool Has(const TReading& reading, const TNeed& need);
   /// The same, but a file that is not there is nothing to speak of.
   bool HasIfPresent(const TReading& reading, const TNeed& need);

   void AddGap(const TNeed& need, const std::string& source, EReason reason,
               const std::string& detail = {});

   /// Adds what could not be had. Nothing is added after it.
   boost::shared_ptr<TMemoryStore> Finish();

private:
   friend class TEntry;
   struct TGap;

   TStoredClass& FindClass(std::string_view className);

   boost::shared_ptr<TMemoryStore> fStore;
   std::vector<TGap> fGaps;
};

}  // namespace NZANQSX20
