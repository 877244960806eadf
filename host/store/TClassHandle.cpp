#include "store/TClassHandle.h"

#include <unordered_set>

#include <boost/make_shared.hpp>

#include "TQSXException.h"
#include "store/TAssociationFilter.h"
#include "store/TInstanceHandle.h"
#include "store/TPropertyDeclHandle.h"

namespace NZANQSX20 {

const std::string& TClassHandle::GetName(TContext)
{
   return fClass.GetName();
}

boost::shared_ptr<ICIMNamespace> TClassHandle::GetNamespace(TContext)
{
   return OpenRepository(fRepository);
}

void TClassHandle::EnumerateSubclasses(boost::function<bool(boost::shared_ptr<ICIMClass>)> callback,
                                       bool deep, TContext)
{
   const auto tell = [&](const TStoredClass& subclass) {
      callback(boost::make_shared<TClassHandle>(fRepository, subclass));
   };
   if (!deep) {
      for (const TStoredClass* subclass : fClass.GetSubclasses())
         tell(*subclass);
      return;
   }
   for (const TStoredClass* subclass : TSchema::GetWithSubclasses(fClass)) {
      if (subclass != &fClass)
         tell(*subclass);
   }
}

namespace {

const TStoredClass* FindReferenceClass(const TSchema& schema, const TStoredClass& association,
                                       TSlot slot)
{
   return schema.Find(association.FindProperty(slot)->GetDeclaration().fReferenceClass);
}

bool HoldsInstancesOf(const TStoredClass* referenceClass, const TStoredClass& source)
{
   return referenceClass != nullptr &&
          (source.IsOrDerivesFrom(*referenceClass) || referenceClass->IsOrDerivesFrom(source));
}

}  // namespace

void TClassHandle::EnumerateAssociatedClasses(
   boost::function<bool(boost::shared_ptr<ICIMClass>)> callback, const std::string& assocClass,
   const std::string& resultClass, const std::string& role, const std::string& resultRole, TContext)
{
   const TSchema& schema = fRepository->GetSchema();
   const TAssociationFilter filter(schema, assocClass, resultClass, role, resultRole);
   std::vector<const TStoredClass*> results;
   std::unordered_set<const TStoredClass*> seen;

   const auto addOthers = [&](const TStoredClass& association, TSlot source) {
      for (const TSlot other : association.GetReferenceSlots()) {
         const TStoredClass* result = FindReferenceClass(schema, association, other);
         const bool isOther =
            other != source && filter.AllowsResultRole(association.GetSlotName(other));
         if (isOther && result != nullptr && filter.AllowsResult(*result) &&
             seen.insert(result).second)
            results.push_back(result);
      }
   };

   for (const TStoredClass* association : schema.GetClasses()) {
      if (!association->IsAssociation() || !filter.AllowsAssociation(*association))
         continue;
      for (const TSlot source : association->GetReferenceSlots()) {
         const bool isSource =
            filter.AllowsRole(association->GetSlotName(source)) &&
            HoldsInstancesOf(FindReferenceClass(schema, *association, source), fClass);
         if (isSource)
            addOthers(*association, source);
      }
   }
   for (const TStoredClass* result : results)
      callback(boost::make_shared<TClassHandle>(fRepository, *result));
}

boost::shared_ptr<const ICIMPropertyDecl> TClassHandle::GetPropertyDecl(const std::string& name,
                                                                        TContext)
{
   const TStoredProperty* property = fClass.FindProperty(name);
   if (property == nullptr)
      throw TQSXException(kStatusNotFound);
   return GetDeclHandle(fRepository, property, property->GetDeclaration().fName);
}

boost::shared_ptr<ICIMInstance> TClassHandle::CreateInstance(TContext context)
{
   TMemoryStore& store = fRepository->GetStore(context);
   TStoredClass* storesClass = fRepository->FindInStore(store, fClass);
   if (storesClass == nullptr)
      throw TQSXException(kStatusNotFound);
   return boost::make_shared<TInstanceHandle>(fRepository, store, store.Create(*storesClass));
}

void TClassHandle::EnumerateInstances(
   boost::function<bool(boost::shared_ptr<ICIMInstance>)> callback, bool deep, TContext context)
{
   TMemoryStore& store = fRepository->GetStore(context);
   std::vector<const TStoredClass*> classes = {&fClass};
   if (deep)
      classes = TSchema::GetWithSubclasses(fClass);
   for (const TStoredClass* schemaClass : classes) {
      const TStoredClass* storesClass = fRepository->FindInStore(store, *schemaClass);
      if (storesClass == nullptr)
         continue;
      for (TStoredInstance* instance : storesClass->GetInstances()) {
         if (instance->IsListed())
            callback(OpenInstance(fRepository, store, *instance));
      }
   }
}

}  // namespace NZANQSX20
