#include "store/TInstanceHandle.h"

#include <unordered_set>

#include <boost/make_shared.hpp>

#include "TQSXException.h"
#include "store/StoredValueConversion.h"
#include "store/TAssociationFilter.h"
#include "store/TClassHandle.h"
#include "store/TInstanceIndex.h"
#include "store/TPropertyHandle.h"

namespace NZANQSX20 {

TInstanceHandle::TInstanceHandle(TRepositoryHandle repository, TMemoryStore& store,
                                 TStoredInstance& instance)
   : fRepository(std::move(repository)),
     fStore(store),
     fInstance(instance),
     fSchemaClass(fRepository->GetInSchema(instance.GetClass()))
{}

void TInstanceHandle::Save(TContext)
{
   fStore.List(fInstance);
}

void TInstanceHandle::Delete(TContext)
{
   fStore.Delete(fInstance);
}

TCIMReference TInstanceHandle::GetReference(TContext)
{
   return TCIMReference(OpenRepository(fRepository), fStore.GetPath(fInstance),
                        fRepository->GetContext(fStore));
}

boost::shared_ptr<ICIMClass> TInstanceHandle::GetClass(TContext)
{
   return boost::make_shared<TClassHandle>(fRepository, fSchemaClass);
}

void TInstanceHandle::EnumerateAssociators(
   boost::function<bool(boost::shared_ptr<ICIMInstance>)> callback, const std::string& assocClass,
   const std::string& resultClass, const std::string& role, const std::string& resultRole, TContext)
{
   const TAssociationFilter filter(fRepository->GetSchema(), assocClass, resultClass, role,
                                   resultRole);
   std::vector<TStoredInstance*> results;
   std::unordered_set<const TStoredInstance*> seen;

   const auto addResult = [&](const TStoredValue& reference) {
      TStoredInstance* result = fStore.Resolve(reference);
      const bool isResult = result != nullptr &&
                            filter.AllowsResult(fRepository->GetInSchema(result->GetClass())) &&
                            seen.insert(result).second;
      if (isResult)
         results.push_back(result);
   };
   const auto addOthers = [&](const TStoredInstance& association, TSlot source) {
      const TStoredClass& associationClass = association.GetClass();
      for (const TSlot other : associationClass.GetReferenceSlots()) {
         const TStoredValue* value = association.Find(other);
         if (other == source || value == nullptr || value->IsNull() ||
             !filter.AllowsResultRole(associationClass.GetSlotName(other)))
            continue;
         if (!value->IsArray())
            addResult(*value);
         for (std::uint32_t i = 0; value->IsArray() && i < value->GetCount(); ++i)
            addResult(value->GetElements()[i]);
      }
   };

   for (const TReferrer& referrer : fStore.FindReferrers(fInstance)) {
      const TStoredClass& association = referrer.fInstance->GetClass();
      if (filter.AllowsAssociation(fRepository->GetInSchema(association)) &&
          filter.AllowsRole(association.GetSlotName(referrer.fSlot)))
         addOthers(*referrer.fInstance, referrer.fSlot);
   }
   for (TStoredInstance* result : results)
      callback(OpenInstance(fRepository, fStore, *result));
}

const TStoredProperty* TInstanceHandle::FindDeclaration(const std::string& name, TSlot slot) const
{
   if (&fSchemaClass == &fInstance.GetClass())
      return fSchemaClass.FindProperty(slot);
   return fSchemaClass.FindProperty(name);
}

boost::shared_ptr<ICIMProperty> TInstanceHandle::MakeProperty(TSlot slot,
                                                              const TStoredProperty* declaration)
{
   return boost::make_shared<TPropertyHandle>(fRepository, fStore, fInstance, slot, declaration);
}

boost::shared_ptr<ICIMProperty> TInstanceHandle::GetProperty(const std::string& name, TContext)
{
   TSlot slot = 0;
   if (fInstance.GetClass().FindSlot(name, slot)) {
      const TStoredProperty* declaration = FindDeclaration(name, slot);
      if (declaration != nullptr || fInstance.Find(slot) != nullptr)
         return MakeProperty(slot, declaration);
   } else if (const TStoredProperty* declaration = fSchemaClass.FindProperty(name)) {
      return MakeProperty(fInstance.GetClass().GetSlot(name), declaration);
   }
   throw TQSXException(kStatusNotFound);
}

void TInstanceHandle::SetProperty(const std::string& name, const TCIMValue& value, TContext)
{
   const TSlot slot = fInstance.GetClass().GetSlot(name);
   const TStoredProperty* declaration = FindDeclaration(name, slot);
   fStore.Set(fInstance, slot, fStore.MakeValue(ConvertToDeclared(value, declaration)));
}

void TInstanceHandle::EnumerateProperties(
   boost::function<bool(boost::shared_ptr<ICIMProperty>)> callback, TContext)
{
   TStoredClass& storesClass = fInstance.GetClass();
   std::vector<boost::shared_ptr<ICIMProperty>> properties;
   for (const TSlot schemaSlot : fSchemaClass.GetDeclaredSlots()) {
      const TSlot slot = &fSchemaClass == &storesClass
                            ? schemaSlot
                            : storesClass.GetSlot(fSchemaClass.GetSlotName(schemaSlot));
      properties.push_back(MakeProperty(slot, fSchemaClass.FindProperty(schemaSlot)));
   }
   const TShape& shape = fInstance.GetShape();
   for (std::uint32_t i = 0; i < shape.fCount; ++i) {
      const TSlot slot = shape.fSlots[i];
      if (FindDeclaration(storesClass.GetSlotName(slot), slot) == nullptr)
         properties.push_back(MakeProperty(slot, nullptr));
   }
   for (const boost::shared_ptr<ICIMProperty>& property : properties)
      callback(property);
}

boost::shared_ptr<ICIMInstance> OpenInstance(const TRepositoryHandle& repository,
                                             TMemoryStore& store, TStoredInstance& instance)
{
   boost::weak_ptr<ICIMInstance>* shared = repository->GetSharedHandle(instance);
   if (shared == nullptr)
      return boost::make_shared<TInstanceHandle>(repository, store, instance);
   boost::shared_ptr<ICIMInstance> handle = shared->lock();
   if (!handle) {
      handle = boost::make_shared<TInstanceHandle>(repository, store, instance);
      *shared = handle;
   }
   return handle;
}

}  // namespace NZANQSX20
