#include "store/TRepository.h"

#include "TQSXException.h"

namespace NZANQSX20 {

TMemoryStore& TRepository::GetStore(const TContext& context) const
{
   if (fStores.size() == 1)
      return *fStores.front();
   const auto selected = context.find(kNamespaceIndexKey);
   const unsigned int index =
      selected != context.end() ? static_cast<unsigned int>(selected->second) : 0;
   if (index >= fStores.size())
      throw TQSXException(kStatusNotFound);
   return *fStores[index];
}

TContext TRepository::GetContext(const TMemoryStore& store) const
{
   TContext context;
   if (fStores.size() == 1)
      return context;
   unsigned short index = 0;
   while (fStores[index].get() != &store)
      ++index;
   context[kNamespaceIndexKey] = TCIMValue(index);
   return context;
}

TStoredClass* TRepository::FindInStore(TMemoryStore& store, const TStoredClass& schemaClass) const
{
   return store.GetSchema().Find(schemaClass.GetName());
}

const TStoredClass& TRepository::GetInSchema(const TStoredClass& storesClass) const
{
   if (&storesClass.GetSchema() == fSchema.get())
      return storesClass;
   const TStoredClass* merged = fSchema->Find(storesClass.GetName());
   return merged != nullptr ? *merged : storesClass;
}

}  // namespace NZANQSX20
