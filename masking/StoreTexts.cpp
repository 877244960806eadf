#include "StoreTexts.h"

#include <unordered_map>
#include <vector>

#include "MaskRules.h"
#include "store/ObjectPath.h"

namespace NZANQSX20 {

using TType = TCIMValue::TCIMType;

namespace {

/// Paths inside paths are followed as deep as the store makes them.
constexpr int kMostPathsInside = 4;

class TWalk
{
public:
   TWalk(TMemoryStore& store, const TTextCallback& callback) : fStore(store), fCallback(callback) {}

   void Run()
   {
      for (const TStoredClass* storedClass : fStore.GetSchema().GetClasses())
         for (TStoredInstance* instance : storedClass->GetInstances())
            if (instance->IsListed())
               Visit(*instance);
   }

private:
   void Visit(TStoredInstance& instance)
   {
      const TShape& shape = instance.GetShape();
      for (std::uint32_t i = 0; i < shape.fCount; ++i) {
         const TStoredValue& value = instance.GetValues()[i];
         TStoredValue replaced;
         if (!value.IsNull() && Replace(instance.GetClass(), shape.fSlots[i], value, replaced))
            fStore.Set(instance, shape.fSlots[i], replaced);
      }
   }

   bool Replace(const TStoredClass& storedClass, TSlot slot, const TStoredValue& value,
                TStoredValue& replaced)
   {
      if (!value.IsArray())
         return ReplaceOne(storedClass, slot, value, replaced);
      if (value.GetType() == TType::kUInt8)
         return ReplaceBytes(storedClass, slot, value, replaced);
      if (value.GetType() != TType::kString && value.GetType() != TType::kReference)
         return false;
      std::vector<TStoredValue> elements(value.GetElements(),
                                         value.GetElements() + value.GetCount());
      bool hasReplaced = false;
      for (TStoredValue& element : elements)
         if (!element.IsNull() && ReplaceOne(storedClass, slot, element, element))
            hasReplaced = true;
      if (hasReplaced)
         replaced = fStore.MakeArray(value.GetType(), elements);
      return hasReplaced;
   }

   bool ReplaceOne(const TStoredClass& storedClass, TSlot slot, const TStoredValue& value,
                   TStoredValue& replaced)
   {
      std::string text;
      if (value.GetType() == TType::kString) {
         if (!fCallback({value.GetText(), fRules.Find(storedClass, slot), storedClass, slot}, text))
            return false;
         replaced = fStore.MakeString(text);
         return true;
      }
      const bool isPath = value.GetType() == TType::kReference && value.GetTarget() == nullptr;
      return isPath && ReplacePath(storedClass, slot, value.GetText(), 0, text) &&
             fStore.MakeReference(text, replaced);
   }

   bool ReplaceBytes(const TStoredClass& storedClass, TSlot slot, const TStoredValue& value,
                     TStoredValue& replaced)
   {
      std::string bytes;
      bytes.reserve(value.GetCount());
      for (std::uint32_t i = 0; i < value.GetCount(); ++i)
         bytes += static_cast<char>(value.GetElements()[i].GetUnsigned());
      std::string text;
      if (!fCallback({bytes, EMaskKind::kVersion, storedClass, slot}, text) ||
          text.size() != bytes.size())
         return false;
      std::vector<TStoredValue> elements;
      for (const char byte : text)
         elements.push_back(
            TStoredValue::Unsigned(TType::kUInt8, static_cast<unsigned char>(byte)));
      replaced = fStore.MakeArray(TType::kUInt8, elements);
      return true;
   }

   // Paths.

   struct TKey
   {
      EMaskKind fKind;
      bool fIsReference;
   };

   TKey FindKey(const std::string& className, const std::string& name)
   {
      const auto [known, isNew] = fKeys.emplace(className + '.' + name, TKey{});
      if (!isNew)
         return known->second;
      const TStoredClass* const storedClass = fStore.GetSchema().Find(className);
      if (storedClass == nullptr)
         return known->second = {FindMaskKind(className, name), false};
      const TStoredProperty* const property = storedClass->FindProperty(name);
      const bool isReference =
         property != nullptr && property->GetDeclaration().fType == TType::kReference;
      return known->second = {FindMaskKind(*storedClass, name), isReference};
   }

   bool ReplacePath(const TStoredClass& storedClass, TSlot slot, std::string_view text, int depth,
                    std::string& replaced)
   {
      TObjectPath path;
      if (!TObjectPath::Parse(text, path))
         return false;
      bool hasReplaced = false;
      for (TKeyBinding& binding : path.fKeys) {
         if (!binding.fIsQuoted)
            continue;
         const TKey key = FindKey(path.fClassName, binding.fName);
         std::string inner;
         const bool isInner = key.fIsReference && depth < kMostPathsInside
                                 ? ReplacePath(storedClass, slot, binding.fText, depth + 1, inner)
                                 : fCallback({binding.fText, key.fKind, storedClass, slot}, inner);
         if (isInner)
            binding.fText = inner;
         hasReplaced = hasReplaced || isInner;
      }
      if (hasReplaced)
         replaced = path.ToText();
      return hasReplaced;
   }

   TMemoryStore& fStore;
   const TTextCallback& fCallback;
   TMaskRules fRules;
   std::unordered_map<std::string, TKey> fKeys;
};

}  // namespace

void ForEachText(TMemoryStore& store, const TTextCallback& callback)
{
   TWalk(store, callback).Run();
}

}  // namespace NZANQSX20
