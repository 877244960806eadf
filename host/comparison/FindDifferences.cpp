#include "comparison/FindDifferences.h"

#include <deque>
#include <limits>
#include <string_view>
#include <unordered_map>

#include "store/StoredPath.h"

namespace NZANQSX20 {

namespace {

using TStores = std::vector<const TMemoryStore*>;
using TAddFinding = std::function<void(const TFinding&)>;

constexpr TSlot kNoSlot = std::numeric_limits<TSlot>::max();

/// The instances of one path, by namespace; null where a namespace has none.
struct TMatch
{
   std::string fPath;
   std::vector<const TStoredInstance*> fInstances;
};

/// The own instances of a class, matched by path, in the order in which they are reported.
class TMatches
{
public:
   TMatches(const TStores& stores, const std::string& className)
   {
      for (std::size_t index = 0; index < stores.size(); ++index)
         if (const TStoredClass* storedClass = stores[index]->GetSchema().Find(className))
            Take(*storedClass, index, stores.size());
   }

   const std::deque<TMatch>& Get() const { return fMatches; }

private:
   void Take(const TStoredClass& storedClass, std::size_t namespaceIndex, std::size_t count)
   {
      for (const TStoredInstance* instance : storedClass.GetInstances()) {
         if (!instance->IsListed())
            continue;
         std::string path = storedClass.GetName();
         AppendKeys(path, *instance);
         auto known = fByPath.find(path);
         if (known == fByPath.end()) {
            fMatches.push_back({std::move(path), std::vector<const TStoredInstance*>(count)});
            known = fByPath.emplace(fMatches.back().fPath, &fMatches.back()).first;
         }
         // Of two instances of one path, the first.
         const TStoredInstance*& place = known->second->fInstances[namespaceIndex];
         if (place == nullptr)
            place = instance;
      }
   }

   std::deque<TMatch> fMatches;
   std::unordered_map<std::string_view, TMatch*> fByPath;
};

/// A property that is compared: its slot in each namespace, and the default of the declaration.
struct TComparedProperty
{
   std::string fName;
   std::vector<TSlot> fSlots;
   const TCIMValue* fDefault;
};

/// The slot of a property in one store. Missing: a slot that no instance has a value for.
TSlot FindSlot(const TStoredClass* storedClass, const std::string& propertyName)
{
   TSlot slot = kNoSlot;
   if (storedClass != nullptr && !storedClass->FindSlot(propertyName, slot))
      slot = kNoSlot;
   return slot;
}

std::vector<TComparedProperty> GetComparedProperties(const TStores& stores,
                                                     const TStoredClass& storedClass,
                                                     const TIgnoredProperties& ignored)
{
   std::vector<TComparedProperty> properties;
   for (const TSlot slot : storedClass.GetDeclaredSlots()) {
      const TStoredProperty& property = *storedClass.FindProperty(slot);
      if (property.HasTrueQualifier("Key") || ignored.Contains(storedClass, property))
         continue;
      TComparedProperty compared{property.GetDeclaration().fName, {}, &property.GetDefault()};
      for (const TMemoryStore* store : stores)
         compared.fSlots.push_back(
            FindSlot(store->GetSchema().Find(storedClass.GetName()), compared.fName));
      properties.push_back(std::move(compared));
   }
   return properties;
}

/// The type and the text of a value, which tell whether it differs.
struct TComparedValue
{
   TComparedValue(const TStoredValue* stored, const TCIMValue& declaredDefault)
   {
      if (stored != nullptr) {
         fType = stored->GetType();
         fIsArray = stored->IsArray();
         AppendText(fText, *stored);
      } else {
         fType = declaredDefault.GetType();
         fIsArray = declaredDefault.IsArray();
         fText = declaredDefault.ToString(10);
      }
   }

   bool operator==(const TComparedValue& other) const
   {
      return fType == other.fType && fIsArray == other.fIsArray && fText == other.fText;
   }

   TCIMValue::ECIMType fType;
   bool fIsArray;
   std::string fText;
};

/// Whether two strings are the same; true also saves the work on their texts.
bool AreSameStrings(const TStoredValue* a, const TStoredValue* b)
{
   const auto isString = [](const TStoredValue* value) {
      return value != nullptr && !value->IsNull() && !value->IsArray() &&
             value->GetType() == TCIMValue::TCIMType::kString;
   };
   return isString(a) && isString(b) && a->GetText() == b->GetText();
}

bool IsSame(const TStoredValue* a, const TStoredValue* b, const TCIMValue& declaredDefault)
{
   if ((a == nullptr && b == nullptr) || AreSameStrings(a, b))
      return true;
   return TComparedValue(a, declaredDefault) == TComparedValue(b, declaredDefault);
}

class TClassComparison
{
public:
   TClassComparison(const TStores& stores, const TStoredClass& storedClass,
                    const TIgnoredProperties& ignored, const TAddFinding& add)
      : fClassName(storedClass.GetName()),
        fProperties(GetComparedProperties(stores, storedClass, ignored)),
        fAdd(add)
   {
      const TMatches matches(stores, fClassName);
      for (const TMatch& match : matches.Get())
         Compare(match);
   }

private:
   void Compare(const TMatch& match)
   {
      std::vector<std::size_t> present;
      std::vector<std::size_t> absent;
      for (std::size_t index = 0; index < match.fInstances.size(); ++index)
         (match.fInstances[index] != nullptr ? present : absent).push_back(index);
      if (match.fInstances[0] == nullptr) {
         Add(kFindingUnique, match, "", std::move(present));
         return;
      }
      if (!absent.empty())
         Add(kFindingMissing, match, "", std::move(absent));
      for (const TComparedProperty& property : fProperties)
         CompareProperty(match, property);
   }

   void CompareProperty(const TMatch& match, const TComparedProperty& property)
   {
      const TStoredValue* base = match.fInstances[0]->Find(property.fSlots[0]);
      std::vector<std::size_t> differing;
      for (std::size_t index = 1; index < match.fInstances.size(); ++index) {
         const TStoredInstance* other = match.fInstances[index];
         if (other != nullptr &&
             !IsSame(base, other->Find(property.fSlots[index]), *property.fDefault))
            differing.push_back(index);
      }
      if (differing.empty())
         return;
      differing.insert(differing.begin(), 0);
      Add(kFindingProperty, match, property.fName, std::move(differing));
   }

   void Add(EFindingType type, const TMatch& match, const std::string& property,
            std::vector<std::size_t> namespaces)
   {
      fAdd({type, fClassName, match.fPath, property, std::move(namespaces)});
   }

   const std::string& fClassName;
   const std::vector<TComparedProperty> fProperties;
   const TAddFinding& fAdd;
};

}  // namespace

void FindDifferences(const std::vector<const TMemoryStore*>& stores, const TSchema& merged,
                     const TIgnoredProperties& ignored,
                     const std::function<void(const TFinding&)>& add)
{
   for (const TStoredClass* storedClass : merged.GetClasses())
      if (!storedClass->IsAssociation() && !IsDeltaClass(storedClass->GetName()))
         TClassComparison(stores, *storedClass, ignored, add);
}

}  // namespace NZANQSX20
