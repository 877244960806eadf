#pragma once

#include <unordered_map>
#include <vector>

#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>

#include "ICIMNamespace.h"
#include "store/TMemoryStore.h"

namespace NZANQSX20 {

/// What every handle stands on: one or several stores seen through one set of declarations.
///
/// A plain repository is one store with its own schema. A delta repository is several stores and
/// their merged schema; each call then reads the store that its context selects, and declarations
/// come from the merged schema, while an instance belongs to its own store.
///
/// Owner: shares the stores; handles share the repository.
class TRepository
{
public:
   /// The schema names classes for all stores; a class is found in a store by its name.
   TRepository(std::vector<boost::shared_ptr<TMemoryStore>> stores,
               boost::shared_ptr<const TSchema> schema, int providerType)
      : fStores(std::move(stores)), fSchema(std::move(schema)), fProviderType(providerType)
   {}

   int GetProviderType() const { return fProviderType; }

   const TSchema& GetSchema() const { return *fSchema; }

   /// The store that the context's "nsIndex" selects; the only one of a plain repository whatever
   /// the context says. Throws: status 15 when there is no such namespace.
   TMemoryStore& GetStore(const TContext& context) const;

   /// The context that selects this store; empty in a plain repository.
   TContext GetContext(const TMemoryStore& store) const;

   /// The class of that store. Missing: null when the store does not know the name.
   TStoredClass* FindInStore(TMemoryStore& store, const TStoredClass& schemaClass) const;

   /// The class of the schema that a store's class is seen as.
   const TStoredClass& GetInSchema(const TStoredClass& storesClass) const;

   /// Makes every walk give the same handle for an instance of exactly this class, as long as one
   /// is alive. The library tells by it whether it has met a finding before.
   void ShareHandlesOf(const TStoredClass& storesClass) { fSharedClass = &storesClass; }

   /// Where the shared handle of an instance is kept. Missing: null when its handles aren't shared.
   boost::weak_ptr<ICIMInstance>* GetSharedHandle(const TStoredInstance& instance) const
   {
      return &instance.GetClass() == fSharedClass ? &fSharedHandles[&instance] : nullptr;
   }

private:
   std::vector<boost::shared_ptr<TMemoryStore>> fStores;
   boost::shared_ptr<const TSchema> fSchema;
   int fProviderType;
   const TStoredClass* fSharedClass = nullptr;
   mutable std::unordered_map<const TStoredInstance*, boost::weak_ptr<ICIMInstance>> fSharedHandles;
};

using TRepositoryHandle = boost::shared_ptr<const TRepository>;

/// The namespace over a repository.
boost::shared_ptr<ICIMNamespace> OpenRepository(TRepositoryHandle repository);

}  // namespace NZANQSX20
