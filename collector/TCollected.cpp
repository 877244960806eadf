#include "TCollected.h"

#include <algorithm>
#include <limits>
#include <stdexcept>

#include "readers/CollectionLoader.h"
#include "schema/Schema.h"
#include "text/Text.h"

namespace NZANQSX20 {

using TType = TCIMValue::TCIMType;

namespace {

/// One text of a collection; longer ones are logs that belong into records.
constexpr std::size_t kTextCap = std::size_t{4} << 20;

[[noreturn]] void FailKind(const TStoredInstance& instance, const char* property, const char* kind)
{
   throw std::logic_error(instance.GetClass().GetName() + '.' + property + " is no " + kind);
}

bool IsUnsigned(TStoredValue::ECIMType type)
{
   return type == TType::kUInt8 || type == TType::kUInt16 || type == TType::kUInt32 ||
          type == TType::kUInt64;
}

bool IsSigned(TStoredValue::ECIMType type)
{
   return type == TType::kSInt8 || type == TType::kSInt16 || type == TType::kSInt32 ||
          type == TType::kSInt64;
}

/// Units: bits.
int GetWidth(TStoredValue::ECIMType type)
{
   switch (type) {
      case TType::kUInt8:
      case TType::kSInt8:
         return 8;
      case TType::kUInt16:
      case TType::kSInt16:
         return 16;
      case TType::kUInt32:
      case TType::kSInt32:
         return 32;
      default:
         return 64;
   }
}

bool FitsUnsigned(TStoredValue::ECIMType type, std::uint64_t number)
{
   const int width = GetWidth(type);
   return width == 64 || number >> width == 0;
}

bool FitsSigned(TStoredValue::ECIMType type, std::int64_t number)
{
   const std::int64_t greatest = std::numeric_limits<std::int64_t>::max() >> (64 - GetWidth(type));
   return number <= greatest && number >= -greatest - 1;
}

/// A key that the machine left empty is an empty text: a path needs a value.
void FillKeys(TMemoryStore& store, TStoredInstance& instance)
{
   const TStoredClass& storedClass = instance.GetClass();
   for (const TSlot slot : storedClass.GetKeySlots())
      if (instance.Find(slot) == nullptr &&
          storedClass.FindProperty(slot)->GetDeclaration().fType == TType::kString)
         store.Set(instance, slot, store.MakeString(""));
}

}  // namespace

struct TCollected::TGap
{
   std::string fSubject;
   std::string fSource;
   EReason fReason;
   std::string fDetail;
   std::vector<std::string> fClasses;
};

TSlot TEntry::GetSlot(const char* property, bool isArray) const
{
   const TStoredClass& storedClass = fInstance->GetClass();
   const TStoredProperty* const declared = storedClass.FindProperty(property);
   if (declared == nullptr)
      throw std::logic_error(storedClass.GetName() + " declares no " + property);
   if (declared->GetDeclaration().fIsArray != isArray)
      FailKind(*fInstance, property, isArray ? "array" : "single value");
   TSlot slot = 0;
   storedClass.FindSlot(property, slot);
   return slot;
}

TStoredValue::ECIMType TEntry::GetType(TSlot slot) const
{
   return fInstance->GetClass().FindProperty(slot)->GetDeclaration().fType;
}

void TEntry::SetValue(TSlot slot, const TStoredValue& value)
{
   fCollected->fStore->Set(*fInstance, slot, value);
}

TEntry& TEntry::Set(const char* property, std::string_view text)
{
   const TSlot slot = GetSlot(property, false);
   if (GetType(slot) != TType::kString)
      FailKind(*fInstance, property, "text");
   if (!text.empty())
      SetValue(slot, fCollected->fStore->MakeString(ToUtf8(text.substr(0, kTextCap))));
   return *this;
}

TEntry& TEntry::Set(const char* property, const TCIMDateTime& time)
{
   const TSlot slot = GetSlot(property, false);
   if (GetType(slot) != TType::kDateTime)
      FailKind(*fInstance, property, "date-time");
   SetValue(slot, fCollected->fStore->MakeDateTime(time));
   return *this;
}

TEntry& TEntry::Set(const char* property, const TEntry& target)
{
   const TSlot slot = GetSlot(property, false);
   if (GetType(slot) != TType::kReference)
      FailKind(*fInstance, property, "reference");
   SetValue(slot, fCollected->fStore->MakeReference(*target.fInstance));
   return *this;
}

TEntry& TEntry::Set(const char* property, const std::vector<std::string>& texts)
{
   const TSlot slot = GetSlot(property, true);
   if (GetType(slot) != TType::kString)
      FailKind(*fInstance, property, "list of texts");
   std::vector<TStoredValue> elements;
   for (const std::string& text : texts)
      elements.push_back(fCollected->fStore->MakeString(ToUtf8(text)));
   if (!elements.empty())
      SetValue(slot, fCollected->fStore->MakeArray(TType::kString, elements));
   return *this;
}

TEntry& TEntry::Set(const char* property, const std::vector<std::uint64_t>& numbers)
{
   const TSlot slot = GetSlot(property, true);
   const auto type = GetType(slot);
   if (!IsUnsigned(type))
      FailKind(*fInstance, property, "list of unsigned numbers");
   std::vector<TStoredValue> elements;
   for (const std::uint64_t number : numbers)
      if (FitsUnsigned(type, number))
         elements.push_back(TStoredValue::Unsigned(type, number));
   if (!elements.empty())
      SetValue(slot, fCollected->fStore->MakeArray(type, elements));
   return *this;
}

TEntry& TEntry::SetBoolean(const char* property, bool value)
{
   const TSlot slot = GetSlot(property, false);
   if (GetType(slot) != TType::kBoolean)
      FailKind(*fInstance, property, "boolean");
   SetValue(slot, TStoredValue::Boolean(value));
   return *this;
}

TEntry& TEntry::SetUnsigned(const char* property, std::uint64_t number)
{
   const TSlot slot = GetSlot(property, false);
   const auto type = GetType(slot);
   if (IsUnsigned(type)) {
      if (FitsUnsigned(type, number))
         SetValue(slot, TStoredValue::Unsigned(type, number));
      return *this;
   }
   if (!IsSigned(type))
      FailKind(*fInstance, property, "whole number");
   const auto asSigned = static_cast<std::int64_t>(number);
   if (asSigned >= 0 && FitsSigned(type, asSigned))
      SetValue(slot, TStoredValue::Signed(type, asSigned));
   return *this;
}

TEntry& TEntry::SetSigned(const char* property, std::int64_t number)
{
   if (number >= 0)
      return SetUnsigned(property, static_cast<std::uint64_t>(number));
   const TSlot slot = GetSlot(property, false);
   const auto type = GetType(slot);
   if (!IsSigned(type) && !IsUnsigned(type))
      FailKind(*fInstance, property, "whole number");
   if (IsSigned(type) && FitsSigned(type, number))
      SetValue(slot, TStoredValue::Signed(type, number));
   return *this;
}

TEntry& TEntry::SetReal(const char* property, double number)
{
   const TSlot slot = GetSlot(property, false);
   const auto type = GetType(slot);
   if (type != TType::kReal32 && type != TType::kReal64)
      FailKind(*fInstance, property, "real number");
   SetValue(slot, TStoredValue::Real(type, number));
   return *this;
}

TCollected::TCollected() : fStore(LoadCollectionText("schema", GetSchemaText()).fStore) {}

TCollected::~TCollected() = default;

TStoredClass& TCollected::FindClass(std::string_view className)
{
   TStoredClass* const storedClass = fStore->GetSchema().Find(className);
   if (storedClass == nullptr || storedClass->IsPlaceholder())
      throw std::logic_error("the schema declares no class " + std::string(className));
   return *storedClass;
}

TEntry TCollected::Add(std::string_view className)
{
   TStoredInstance& instance = fStore->Create(FindClass(className));
   fStore->List(instance);
   return {*this, instance};
}

TEntry TCollected::GetSingle(std::string_view className)
{
   const std::vector<TStoredInstance*>& instances = FindClass(className).GetInstances();
   return instances.empty() ? Add(className) : TEntry(*this, *instances.front());
}

std::optional<TEntry> TCollected::Find(std::string_view path)
{
   TStoredInstance* const instance = fStore->FindByPath(path);
   if (instance == nullptr)
      return std::nullopt;
   return TEntry(*this, *instance);
}

void TCollected::Associate(std::string_view className, const TEntry& first, const TEntry& second)
{
   TEntry association = Add(className);
   const TStoredClass& storedClass = FindClass(className);
   const std::vector<TSlot>& references = storedClass.GetReferenceSlots();
   if (references.size() != 2)
      throw std::logic_error(std::string(className) + " has not two references");
   association.Set(storedClass.GetSlotName(references[0]).c_str(), first);
   association.Set(storedClass.GetSlotName(references[1]).c_str(), second);
}

bool TCollected::Has(const TReading& reading, const TNeed& need)
{
   if (!reading)
      AddGap(need, reading.fSource, reading.fReason, reading.fDetail);
   return static_cast<bool>(reading);
}

bool TCollected::HasIfPresent(const TReading& reading, const TNeed& need)
{
   return reading.fReason != EReason::kNotPresent && Has(reading, need);
}

void TCollected::AddGap(const TNeed& need, const std::string& source, EReason reason,
                        const std::string& detail)
{
   auto place = std::find_if(fGaps.begin(), fGaps.end(), [&](const TGap& gap) {
      return gap.fSubject == need.fSubject && gap.fSource == source;
   });
   if (place == fGaps.end())
      place = fGaps.insert(place, {need.fSubject, source, reason, detail, {}});
   TGap& gap = *place;
   for (const char* className : need.fClasses)
      if (std::find(gap.fClasses.begin(), gap.fClasses.end(), className) == gap.fClasses.end())
         gap.fClasses.emplace_back(FindClass(className).GetName());
}

boost::shared_ptr<TMemoryStore> TCollected::Finish()
{
   for (const TGap& gap : fGaps)
      Add("QSX_NotCollected")
         .Set("Subject", gap.fSubject)
         .Set("Source", gap.fSource)
         .Set("Reason", static_cast<unsigned short>(gap.fReason))
         .Set("Detail", gap.fDetail)
         .Set("Classes", gap.fClasses);
   fGaps.clear();
   for (const TStoredClass* storedClass : fStore->GetSchema().GetClasses())
      for (TStoredInstance* instance : storedClass->GetInstances())
         FillKeys(*fStore, *instance);
   return fStore;
}

}  // namespace NZANQSX20
