#include "comparison/TDeltaRepository.h"

#include <boost/make_shared.hpp>

#include "comparison/CheckFindings.h"
#include "comparison/DeltaClasses.h"
#include "comparison/FindingsStore.h"
#include "comparison/MergeDeclarations.h"
#include "store/TRepository.h"

namespace NZANQSX20 {

namespace {

void DeleteDeltaInstances(TMemoryStore& store)
{
   for (TStoredClass* storedClass : store.GetSchema().GetClasses())
      if (IsDeltaClass(storedClass->GetName()))
         for (TStoredInstance* instance : storedClass->GetInstances())
            store.Delete(*instance);
}

/// The delta classes that a findings file declares itself.
std::vector<TClassDecl> GetDeltaClassDecls(const TSchema& schema)
{
   std::vector<TClassDecl> declarations;
   for (const TStoredClass* storedClass : schema.GetClasses())
      if (IsDeltaClass(storedClass->GetName()) && !storedClass->IsPlaceholder())
         declarations.push_back(CopyDeclaration(*storedClass));
   return declarations;
}

}  // namespace

TDeltaRepository::TDeltaRepository(std::vector<boost::shared_ptr<TMemoryStore>> stores)
   : fStores(std::move(stores))
{
   for (const auto& store : fStores)
      DeleteDeltaInstances(*store);
   MergeSchema({});
}

void TDeltaRepository::MergeSchema(const std::vector<TClassDecl>& deltaClasses)
{
   // The first declaration holds: a findings file's, then ours, then whatever a collection says.
   TSchema delta;
   for (const TClassDecl& declaration : deltaClasses)
      delta.Declare(declaration);
   for (const TClassDecl& declaration : MakeDeltaClassDecls())
      delta.Declare(declaration);
   std::vector<const TSchema*> schemas = {&delta};
   for (const auto& store : fStores)
      schemas.push_back(&store->GetSchema());
   fSchema = MergeDeclarations(schemas);
   for (const TClassDecl& declaration : GetDeltaClassDecls(delta))
      fStores.front()->GetSchema().Declare(declaration);
}

std::size_t TDeltaRepository::FindDifferences(const TIgnoredProperties& ignored)
{
   const std::vector<const TMemoryStore*> stores = [this] {
      std::vector<const TMemoryStore*> pointers;
      for (const auto& store : fStores)
         pointers.push_back(store.get());
      return pointers;
   }();
   // The base is compared while it grows: findings are of classes that are not compared.
   TFindingsWriter writer(*fStores.front());
   std::size_t count = 0;
   NZANQSX20::FindDifferences(stores, *fSchema, ignored, [&](const TFinding& finding) {
      writer.Add(finding);
      ++count;
   });
   return count;
}

std::size_t TDeltaRepository::TakeFindings(TMemoryStore& findings, bool isStrict,
                                           std::vector<std::string>& warnings)
{
   MergeSchema(GetDeltaClassDecls(findings.GetSchema()));
   std::vector<TMemoryStore*> stores;
   for (const auto& store : fStores)
      stores.push_back(store.get());
   for (const TBadFinding& bad : CheckFindings(findings, stores, *fSchema)) {
      warnings.push_back(bad.fReason + (isStrict ? "" : "; left out"));
      if (!isStrict)
         findings.Delete(const_cast<TStoredInstance&>(*bad.fFinding));
   }
   return CopyFindings(findings, *fStores.front());
}

boost::shared_ptr<ICIMNamespace> TDeltaRepository::Open() const
{
   const auto repository = boost::make_shared<TRepository>(
      fStores, boost::shared_ptr<const TSchema>(fSchema), kDeltaRepository);
   repository->ShareHandlesOf(*fStores.front()->GetSchema().Find(kDeltaName));
   return OpenRepository(repository);
}

}  // namespace NZANQSX20
