#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "store/ObjectPath.h"
#include "store/TSchema.h"
#include "store/TStoredInstance.h"

namespace NZANQSX20 {

/// One reference that names an instance: which instance holds it, and in which property.
struct TReferrer
{
   TStoredInstance* fInstance;
   TSlot fSlot;
};

/// Paths and references of a store, looked up by hash.
///
/// Both tables are made at the first question and follow instances that are listed or deleted. A
/// change that may move what other paths lead to drops them; the next question makes them anew.
class TInstanceIndex
{
public:
   explicit TInstanceIndex(const TSchema& schema) : fSchema(schema) {}

   /// As TMemoryStore::FindByPath.
   TStoredInstance* Find(std::string_view path);

   /// As TMemoryStore::Resolve, of a single reference.
   TStoredInstance* Resolve(const TStoredValue& reference);

   /// As TMemoryStore::FindReferrers.
   std::vector<TReferrer> FindReferrers(const TStoredInstance& target);

   /// One instance of each class that has two of one path: the first of these paths' first.
   std::vector<const TStoredInstance*> FindFirstDuplicates();

   void OnListed(TStoredInstance& instance);
   void OnDeleted(const TStoredInstance& instance);
   void OnChanged(const TStoredInstance& instance, TSlot slot);
   void Clear();

private:
   static constexpr std::uint32_t kEnd = 0xffffffff;

   /// One listed instance. The first of each path stands in the chain of its hash, the others of
   /// that path in a chain behind it, so that a thousand instances of one path cost no more than a
   /// thousand paths.
   struct TPathEntry
   {
      std::uint64_t fHash;
      TStoredInstance* fInstance;
      std::uint32_t fNext = kEnd;
      std::uint32_t fNextOfPath = kEnd;
      /// Of the first: the last of that path, and where the search for a listed one begins.
      std::uint32_t fLastOfPath = kEnd;
      std::uint32_t fBeginOfPath = kEnd;
   };

   struct TReferrerEntry
   {
      TReferrer fReferrer;
      std::uint32_t fNext;
   };

   struct TReferrerList
   {
      std::uint32_t fFirst = kEnd;
      std::uint32_t fLast = kEnd;
   };

   static std::uint64_t Hash(const TStoredClass& storedClass, std::string_view keys);

   void NeedPaths();
   void NeedReferrers();
   void AddPath(TStoredInstance& instance);
   void AddToChain(std::uint32_t entry);
   void GrowHeads();
   void AddReferences(TStoredInstance& instance);
   void AddReference(TStoredInstance& instance, TSlot slot, const TStoredValue& reference);

   std::uint32_t FindEntry(const TStoredClass& storedClass, std::string_view keys,
                           std::uint64_t hash) const;
   std::uint32_t FindListed(TPathEntry& first);
   TStoredInstance* FindExact(const TStoredClass& storedClass, std::string_view keys);
   TStoredInstance* FindBelow(const TStoredClass& top, std::string_view keys);
   static TStoredInstance* FindByNumber(const TStoredClass& top, const TObjectPath& path);
   bool MayMoveReferences(const TStoredInstance& instance);
   void ClearReferrers();

   const TSchema& fSchema;
   unsigned fKeyVersion = 0;

   bool fHasPaths = false;
   std::vector<TPathEntry> fPaths;
   /// Kept so that the keys of an instance need no memory of their own.
   std::string fKeysInWork;
   /// By the low bits of the hash: the first entry of that chain.
   std::vector<std::uint32_t> fHeads;

   bool fHasReferrers = false;
   std::vector<TReferrerEntry> fReferrers;
   std::unordered_map<const TStoredInstance*, TReferrerList> fByTarget;
   /// The keys of references that lead nowhere, without quotes: an instance with these keys would
   /// change that.
   std::unordered_set<std::string> fDanglingKeys;
};

}  // namespace NZANQSX20
