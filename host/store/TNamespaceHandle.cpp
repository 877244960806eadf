#include "store/TNamespaceHandle.h"

#include <boost/make_shared.hpp>

#include "TCIMReference.h"
#include "TQSXException.h"
#include "store/TClassHandle.h"
#include "store/TInstanceHandle.h"
#include "store/UnknownClass.h"

namespace NZANQSX20 {

namespace {

class TProvider : public INamespaceProvider
{
public:
   explicit TProvider(int type) : fType(type) {}

   int GetProviderType(TContext) override { return fType; }

private:
   int fType;
};

thread_local std::string unknownClass;

}  // namespace

const std::string& GetUnknownClass()
{
   return unknownClass;
}

boost::shared_ptr<INamespaceProvider> TNamespaceHandle::GetProvider(TContext)
{
   return boost::make_shared<TProvider>(fRepository->GetProviderType());
}

boost::shared_ptr<ICIMClass> TNamespaceHandle::GetClass(const std::string& className, TContext)
{
   const TStoredClass* found = fRepository->GetSchema().Find(className);
   if (found == nullptr) {
      unknownClass = className;
      throw TQSXException(kStatusNotFound);
   }
   unknownClass.clear();
   return boost::make_shared<TClassHandle>(fRepository, *found);
}

boost::shared_ptr<ICIMInstance> TNamespaceHandle::GetInstance(const TCIMReference& path,
                                                              TContext context)
{
   TMemoryStore& store = fRepository->GetStore(context);
   TStoredInstance* found = store.FindByPath(path.GetPath());
   if (found == nullptr)
      return boost::shared_ptr<ICIMInstance>();
   return OpenInstance(fRepository, store, *found);
}

boost::shared_ptr<ICIMNamespace> OpenRepository(TRepositoryHandle repository)
{
   return boost::make_shared<TNamespaceHandle>(std::move(repository));
}

boost::shared_ptr<ICIMNamespace> OpenNamespace(boost::shared_ptr<TMemoryStore> store)
{
   constexpr int kPlainRepository = 0;
   const boost::shared_ptr<const TSchema> schema(store, &store->GetSchema());
   return OpenRepository(boost::make_shared<const TRepository>(
      std::vector<boost::shared_ptr<TMemoryStore>>{store}, schema, kPlainRepository));
}

}  // namespace NZANQSX20
