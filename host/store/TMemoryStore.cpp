#include "store/TMemoryStore.h"

#include <algorithm>
#include <new>

#include "TCIMReference.h"
#include "TQSXException.h"
#include "store/ObjectPath.h"
#include "store/StoredPath.h"
#include "store/TInstanceIndex.h"
#include "store/ValueText.h"

namespace NZANQSX20 {

using TType = TCIMValue::TCIMType;

TMemoryStore::TMemoryStore() : fIndex(std::make_unique<TInstanceIndex>(fSchema)) {}

TMemoryStore::~TMemoryStore() = default;

TStoredValue TMemoryStore::MakeString(std::string_view text)
{
   return TStoredValue::StringView(fArena.Copy(text));
}

TStoredValue TMemoryStore::MakeDateTime(const TCIMDateTime& dateTime)
{
   TStoredValue value(TType::kDateTime, 0);
   value.fDateTime = fArena.Copy(&dateTime, 1);
   return value;
}

TStoredValue TMemoryStore::MakeArray(TCIMValue::ECIMType type,
                                     const std::vector<TStoredValue>& elements)
{
   const auto isArray = [](const TStoredValue& element) { return element.IsArray(); };
   if (std::any_of(elements.begin(), elements.end(), isArray))
      throw TQSXException(kStatusTypeMismatch);
   TStoredValue value(type, TStoredValue::kArrayFlag);
   value.fElements = fArena.Copy(elements.data(), elements.size());
   value.fLength = static_cast<std::uint32_t>(elements.size());
   return value;
}

TStoredValue TMemoryStore::MakeReference(const TStoredInstance& target)
{
   TStoredValue value(TType::kReference, TStoredValue::kTargetFlag);
   value.fTarget = &target;
   return value;
}

bool TMemoryStore::MakeReference(std::string_view text, TStoredValue& value)
{
   TObjectPath path;
   if (!TObjectPath::Parse(text, path))
      return false;
   value = MakeReferenceText(path.ToText());
   return true;
}

TStoredValue TMemoryStore::MakeReferenceText(std::string_view text)
{
   TStoredValue value = MakeString(text);
   value.fType = TType::kReference;
   return value;
}

TStoredValue TMemoryStore::MakeValue(const TCIMValue& value)
{
   const TCIMValue::ECIMType type = value.GetType();
   if (value.IsNull())
      return TStoredValue::Null(type, value.IsArray());
   if (value.IsArray()) {
      std::vector<TStoredValue> elements;
      for (const TCIMValue& element : static_cast<const std::vector<TCIMValue>&>(value)) {
         if (element.IsArray())
            throw TQSXException(kStatusTypeMismatch);
         elements.push_back(MakeValue(element));
      }
      return MakeArray(type, elements);
   }
   if (type == TType::kString)
      return MakeString(static_cast<std::string>(value));
   if (type == TType::kDateTime)
      return MakeDateTime(static_cast<TCIMDateTime>(value));
   if (type == TType::kReference)
      return MakeReferenceText(static_cast<TCIMReference>(value).GetPath());
   if (IsRealType(type))
      return TStoredValue::Real(type, static_cast<double>(value));
   if (IsSignedType(type))
      return TStoredValue::Signed(type, static_cast<std::int64_t>(value));
   return TStoredValue::Unsigned(type, static_cast<std::uint64_t>(value));
}

void TMemoryStore::Keep(boost::shared_ptr<const void> buffer)
{
   fBuffers.push_back(std::move(buffer));
}

TStoredInstance& TMemoryStore::Add(const TInstanceDraft& draft)
{
   TStoredInstance& instance = Create(draft.GetClass());
   const std::vector<TSlot>& slots = draft.GetSlots();
   instance.fShape = &draft.GetClass().fShapes.Get(slots.data(), slots.size(), fArena);
   instance.fValues = fArena.Copy(draft.GetValues().data(), slots.size());
   instance.fCapacity = instance.fShape->fCount;
   List(instance);
   return instance;
}

TStoredInstance& TMemoryStore::Create(TStoredClass& storedClass)
{
   TStoredInstance& instance = *new (fArena.Allocate(sizeof(TStoredInstance))) TStoredInstance;
   instance.fClass = &storedClass;
   instance.fShape = &storedClass.fShapes.Get(nullptr, 0, fArena);
   // Until it is listed, the path of an instance without keys has the number that is next.
   instance.fNumber = static_cast<std::uint32_t>(storedClass.fInstances.size());
   return instance;
}

void TMemoryStore::List(TStoredInstance& instance)
{
   if (instance.fIsListed)
      return;
   instance.fIsListed = true;
   ++fCount;
   if (fIsRecording)
      fChanges.push_back({TChange::kListed, &instance, 0, {}});
   if (instance.fWasListed) {
      fIndex->Clear();
      return;
   }
   instance.fWasListed = true;
   instance.fNumber = static_cast<std::uint32_t>(instance.fClass->fInstances.size());
   instance.fOrder = fNextOrder++;
   instance.fClass->fInstances.push_back(&instance);
   fIndex->OnListed(instance);
}

void TMemoryStore::Delete(TStoredInstance& instance)
{
   if (!instance.fIsListed)
      return;
   instance.fIsListed = false;
   --fCount;
   if (fIsRecording)
      fChanges.push_back({TChange::kDeleted, &instance, 0, {}});
   fIndex->OnDeleted(instance);
}

void TMemoryStore::Set(TStoredInstance& instance, TSlot slot, const TStoredValue& value)
{
   const TShape& shape = *instance.fShape;
   const std::uint32_t position = shape.Find(slot);
   if (fIsRecording && instance.fIsListed) {
      const bool had = position < shape.fCount;
      fChanges.push_back(
         {TChange::kSet, &instance, slot, had ? instance.fValues[position] : TStoredValue()});
   }
   if (position == shape.fCount) {
      std::vector<TSlot> slots(shape.fSlots, shape.fSlots + shape.fCount);
      slots.push_back(slot);
      Reserve(instance, shape.fCount + 1);
      instance.fShape = &instance.fClass->fShapes.Get(slots.data(), slots.size(), fArena);
   }
   instance.fValues[position] = value;
   ++fValueVersion;
   fIndex->OnChanged(instance, slot);
}

void TMemoryStore::Reserve(TStoredInstance& instance, std::uint32_t count)
{
   if (count <= instance.fCapacity)
      return;
   const std::uint32_t capacity = std::max<std::uint32_t>(count, 2 * instance.fCapacity);
   std::vector<TStoredValue> values(instance.fValues, instance.fValues + instance.fShape->fCount);
   values.resize(capacity);
   instance.fValues = fArena.Copy(values.data(), values.size());
   instance.fCapacity = capacity;
}

std::size_t TMemoryStore::CountInstances(const TStoredClass& storedClass) const
{
   const std::vector<TStoredInstance*>& instances = storedClass.GetInstances();
   const auto isListed = [](const TStoredInstance* instance) { return instance->IsListed(); };
   return static_cast<std::size_t>(std::count_if(instances.begin(), instances.end(), isListed));
}

std::size_t TMemoryStore::CountInstances() const
{
   return fCount;
}

std::string TMemoryStore::GetPath(const TStoredInstance& instance) const
{
   std::string path = instance.GetClass().GetName();
   AppendKeys(path, instance);
   return path;
}

TStoredInstance* TMemoryStore::FindByPath(std::string_view path)
{
   return fIndex->Find(path);
}

TStoredInstance* TMemoryStore::Resolve(const TStoredValue& reference)
{
   return fIndex->Resolve(reference);
}

std::vector<TReferrer> TMemoryStore::FindReferrers(const TStoredInstance& target)
{
   return fIndex->FindReferrers(target);
}

std::vector<TMemoryStore::TDuplicatePath> TMemoryStore::FindDuplicatePaths()
{
   std::vector<TDuplicatePath> duplicates;
   for (const TStoredInstance* instance : fIndex->FindFirstDuplicates())
      duplicates.push_back({&instance->GetClass(), GetPath(*instance)});
   return duplicates;
}

}  // namespace NZANQSX20
