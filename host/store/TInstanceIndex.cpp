#include "store/TInstanceIndex.h"

#include <algorithm>
#include <functional>
#include <iterator>

#include "store/StoredPath.h"
#include "store/TStoredClass.h"

namespace NZANQSX20 {

using TType = TCIMValue::TCIMType;

namespace {

std::string GetKeys(const TStoredInstance& instance)
{
   std::string keys;
   AppendKeys(keys, instance);
   return keys;
}

/// What stands behind the class name in a path.
std::string GetKeys(const TObjectPath& path)
{
   return path.ToText().substr(path.fClassName.size());
}

/// The keys of a path whatever quotes it has, to compare paths that may come to be equal.
std::string GetUnquotedKeys(TObjectPath path)
{
   for (TKeyBinding& key : path.fKeys)
      key.fIsQuoted = true;
   return GetKeys(path);
}

bool IsNumberPath(const TObjectPath& path)
{
   return path.fKeys.size() == 1 && path.fKeys[0].fName == kNumberKey;
}

/// Quotes the keys as their class declares them: sources write numbers in quotes and texts without.
void QuoteAsDeclared(const TStoredClass& storedClass, TObjectPath& path)
{
   for (TKeyBinding& key : path.fKeys) {
      const TStoredProperty* property = storedClass.FindProperty(key.fName);
      if (property == nullptr || key.fText == "NULL")
         continue;
      key.fIsQuoted = IsQuotedType(property->GetDeclaration().fType);
   }
}

}  // namespace

std::uint64_t TInstanceIndex::Hash(const TStoredClass& storedClass, std::string_view keys)
{
   const std::uint64_t address = std::hash<const void*>()(&storedClass);
   return std::hash<std::string_view>()(keys) ^ (address * 0x9E3779B97F4A7C15u);
}

void TInstanceIndex::Clear()
{
   fHasPaths = false;
   fPaths.clear();
   fHeads.clear();
   ClearReferrers();
}

void TInstanceIndex::ClearReferrers()
{
   fHasReferrers = false;
   fReferrers.clear();
   fByTarget.clear();
   fDanglingKeys.clear();
}

void TInstanceIndex::NeedPaths()
{
   if (fKeyVersion != fSchema.GetKeyVersion()) {
      Clear();
      fKeyVersion = fSchema.GetKeyVersion();
   }
   if (fHasPaths)
      return;
   fHasPaths = true;
   for (const TStoredClass& storedClass : fSchema.GetAll()) {
      for (TStoredInstance* instance : storedClass.GetInstances()) {
         instance->fIsShadowed = false;
         if (instance->IsListed())
            AddPath(*instance);
      }
   }
}

void TInstanceIndex::AddPath(TStoredInstance& instance)
{
   const TStoredClass& storedClass = instance.GetClass();
   // Without keys, the path is the number within the class: nothing to look up.
   if (storedClass.GetKeySlots().empty())
      return;
   if (fPaths.size() >= fHeads.size())
      GrowHeads();
   std::string& keys = fKeysInWork;
   keys.clear();
   AppendKeys(keys, instance);
   const std::uint64_t hash = Hash(storedClass, keys);
   const std::uint32_t first = FindEntry(storedClass, keys, hash);
   const auto entry = static_cast<std::uint32_t>(fPaths.size());
   fPaths.push_back({hash, &instance});
   if (first == kEnd) {
      fPaths[entry].fLastOfPath = fPaths[entry].fBeginOfPath = entry;
      AddToChain(entry);
      return;
   }
   instance.fIsShadowed = FindListed(fPaths[first]) != kEnd;
   fPaths[fPaths[first].fLastOfPath].fNextOfPath = entry;
   fPaths[first].fLastOfPath = entry;
   if (fPaths[first].fBeginOfPath == kEnd)
      fPaths[first].fBeginOfPath = entry;
}

void TInstanceIndex::AddToChain(std::uint32_t entry)
{
   std::uint32_t& head = fHeads[fPaths[entry].fHash & (fHeads.size() - 1)];
   fPaths[entry].fNext = head;
   head = entry;
}

void TInstanceIndex::GrowHeads()
{
   fHeads.assign(std::max<std::size_t>(64, fHeads.size() * 2), kEnd);
   for (std::uint32_t entry = 0; entry < fPaths.size(); ++entry) {
      if (fPaths[entry].fLastOfPath != kEnd)
         AddToChain(entry);
   }
}

std::uint32_t TInstanceIndex::FindEntry(const TStoredClass& storedClass, std::string_view keys,
                                        std::uint64_t hash) const
{
   if (fHeads.empty())
      return kEnd;
   for (std::uint32_t i = fHeads[hash & (fHeads.size() - 1)]; i != kEnd; i = fPaths[i].fNext) {
      const TStoredInstance& candidate = *fPaths[i].fInstance;
      if (fPaths[i].fHash == hash && &candidate.GetClass() == &storedClass &&
          GetKeys(candidate) == keys)
         return i;
   }
   return kEnd;
}

std::uint32_t TInstanceIndex::FindListed(TPathEntry& first)
{
   // Whoever was deleted is not looked at again: an instance that comes back drops the table.
   while (first.fBeginOfPath != kEnd && !fPaths[first.fBeginOfPath].fInstance->IsListed())
      first.fBeginOfPath = fPaths[first.fBeginOfPath].fNextOfPath;
   return first.fBeginOfPath;
}

TStoredInstance* TInstanceIndex::FindExact(const TStoredClass& storedClass, std::string_view keys)
{
   const std::uint32_t first = FindEntry(storedClass, keys, Hash(storedClass, keys));
   const std::uint32_t listed = first != kEnd ? FindListed(fPaths[first]) : kEnd;
   return listed != kEnd ? fPaths[listed].fInstance : nullptr;
}

TStoredInstance* TInstanceIndex::FindBelow(const TStoredClass& top, std::string_view keys)
{
   TStoredInstance* found = FindExact(top, keys);
   if (found != nullptr || top.GetSubclasses().empty())
      return found;
   for (const TStoredClass* storedClass : TSchema::GetWithSubclasses(top)) {
      if (storedClass->GetInstances().empty())
         continue;
      found = FindExact(*storedClass, keys);
      if (found != nullptr)
         return found;
   }
   return nullptr;
}

TStoredInstance* TInstanceIndex::FindByNumber(const TStoredClass& top, const TObjectPath& path)
{
   const TCIMValue value = GetKeyValue(path.fKeys[0]);
   if (value.IsNull() || value.GetType() != TType::kUInt64)
      return nullptr;
   const std::uint64_t number = static_cast<std::uint64_t>(value);
   for (const TStoredClass* storedClass : TSchema::GetWithSubclasses(top)) {
      const std::vector<TStoredInstance*>& instances = storedClass->GetInstances();
      if (number < instances.size() && instances[number]->IsListed())
         return instances[number];
   }
   return nullptr;
}

TStoredInstance* TInstanceIndex::Find(std::string_view text)
{
   TObjectPath path;
   if (!TObjectPath::Parse(text, path))
      return nullptr;
   const TStoredClass* named = fSchema.Find(path.fClassName);
   if (named == nullptr)
      return nullptr;
   if (IsNumberPath(path))
      return FindByNumber(*named, path);

   NeedPaths();
   const std::string keys = GetKeys(path);
   TStoredInstance* found = FindBelow(*named, keys);
   if (found != nullptr)
      return found;
   QuoteAsDeclared(*named, path);
   const std::string quotedKeys = GetKeys(path);
   return quotedKeys != keys ? FindBelow(*named, quotedKeys) : nullptr;
}

TStoredInstance* TInstanceIndex::Resolve(const TStoredValue& reference)
{
   NeedPaths();
   const bool isReference = reference.GetType() == TType::kReference && !reference.IsArray();
   if (reference.IsNull() || !isReference)
      return nullptr;
   const TStoredInstance* target = reference.GetTarget();
   if (target == nullptr)
      return Find(reference.GetText());
   if (target->IsListed() && !target->fIsShadowed)
      return const_cast<TStoredInstance*>(target);
   // The alias stands for a path, and the first instance of that path answers to it.
   return Find(target->GetClass().GetName() + GetKeys(*target));
}

std::vector<const TStoredInstance*> TInstanceIndex::FindFirstDuplicates()
{
   NeedPaths();
   std::vector<const TStoredInstance*> duplicates;
   std::unordered_set<const TStoredClass*> classes;
   for (TPathEntry& first : fPaths) {
      const bool isAlone = first.fLastOfPath == kEnd || first.fNextOfPath == kEnd;
      const std::uint32_t listed = isAlone ? kEnd : FindListed(first);
      if (listed == kEnd)
         continue;
      std::uint32_t second = fPaths[listed].fNextOfPath;
      while (second != kEnd && !fPaths[second].fInstance->IsListed())
         second = fPaths[second].fNextOfPath;
      const TStoredInstance* instance = fPaths[listed].fInstance;
      if (second != kEnd && classes.insert(&instance->GetClass()).second)
         duplicates.push_back(instance);
   }
   return duplicates;
}

void TInstanceIndex::NeedReferrers()
{
   NeedPaths();
   if (fHasReferrers)
      return;
   fHasReferrers = true;
   std::vector<TStoredInstance*> holders;
   for (const TStoredClass& storedClass : fSchema.GetAll()) {
      if (!storedClass.IsAssociation())
         continue;
      const std::vector<TStoredInstance*>& instances = storedClass.GetInstances();
      std::copy_if(instances.begin(), instances.end(), std::back_inserter(holders),
                   [](const TStoredInstance* instance) { return instance->IsListed(); });
   }
   std::sort(holders.begin(), holders.end(),
             [](const TStoredInstance* a, const TStoredInstance* b) {
                return a->GetOrder() < b->GetOrder();
             });
   for (TStoredInstance* holder : holders)
      AddReferences(*holder);
}

void TInstanceIndex::AddReferences(TStoredInstance& instance)
{
   for (const TSlot slot : instance.GetClass().GetReferenceSlots()) {
      const TStoredValue* value = instance.Find(slot);
      if (value == nullptr || value->IsNull())
         continue;
      const bool isArray = value->IsArray();
      const TStoredValue* begin = isArray ? value->GetElements() : value;
      const TStoredValue* end = begin + (isArray ? value->GetCount() : 1);
      for (const TStoredValue* reference = begin; reference != end; ++reference)
         AddReference(instance, slot, *reference);
   }
}

void TInstanceIndex::AddReference(TStoredInstance& instance, TSlot slot,
                                  const TStoredValue& reference)
{
   const TStoredInstance* target = Resolve(reference);
   if (target == nullptr) {
      std::string text;
      AppendText(text, reference);
      TObjectPath path;
      if (TObjectPath::Parse(text, path))
         fDanglingKeys.insert(GetUnquotedKeys(path));
      return;
   }
   TReferrerList& list = fByTarget[target];
   const auto entry = static_cast<std::uint32_t>(fReferrers.size());
   fReferrers.push_back({{&instance, slot}, kEnd});
   if (list.fFirst == kEnd)
      list.fFirst = entry;
   else
      fReferrers[list.fLast].fNext = entry;
   list.fLast = entry;
}

std::vector<TReferrer> TInstanceIndex::FindReferrers(const TStoredInstance& target)
{
   NeedReferrers();
   std::vector<TReferrer> referrers;
   const auto list = fByTarget.find(&target);
   if (list == fByTarget.end())
      return referrers;
   for (std::uint32_t i = list->second.fFirst; i != kEnd; i = fReferrers[i].fNext) {
      if (fReferrers[i].fReferrer.fInstance->IsListed())
         referrers.push_back(fReferrers[i].fReferrer);
   }
   return referrers;
}

bool TInstanceIndex::MayMoveReferences(const TStoredInstance& instance)
{
   const std::string keys = GetKeys(instance);
   TObjectPath path;
   if (TObjectPath::Parse(instance.GetClass().GetName() + keys, path) &&
       fDanglingKeys.count(GetUnquotedKeys(path)) > 0)
      return true;
   // A reference that names an ancestor may lead to another class with the same keys. Behind one of
   // its own class, the instance is shadowed and nothing moves.
   const TStoredClass* root = &instance.GetClass();
   while (root->GetSuperclass() != nullptr)
      root = root->GetSuperclass();
   const TStoredInstance* found = Find(root->GetName() + keys);
   return found != nullptr && &found->GetClass() != &instance.GetClass();
}

void TInstanceIndex::OnListed(TStoredInstance& instance)
{
   if (!fHasPaths)
      return;
   if (fHasReferrers && MayMoveReferences(instance))
      ClearReferrers();
   AddPath(instance);
   if (fHasReferrers)
      AddReferences(instance);
}

void TInstanceIndex::OnDeleted(const TStoredInstance& instance)
{
   if (!fHasReferrers || fByTarget.count(&instance) == 0)
      return;
   const std::string keys = GetKeys(instance);
   // The next instance of the same path takes over its references.
   if (Find(instance.GetClass().GetName() + keys) != nullptr) {
      ClearReferrers();
      return;
   }
   TObjectPath path;
   if (TObjectPath::Parse(instance.GetClass().GetName() + keys, path))
      fDanglingKeys.insert(GetUnquotedKeys(path));
}

void TInstanceIndex::OnChanged(const TStoredInstance& instance, TSlot slot)
{
   const bool isInTables = instance.fWasListed && (fHasPaths || fHasReferrers);
   if (isInTables && instance.GetClass().IsKeyOrReference(slot))
      Clear();
}

}  // namespace NZANQSX20
