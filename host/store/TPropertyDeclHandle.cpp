#include "store/TPropertyDeclHandle.h"

#include <boost/make_shared.hpp>

#include "TQSXException.h"

namespace NZANQSX20 {

namespace {

class TQualifierHandle : public ICIMQualifier
{
public:
   TQualifierHandle(TRepositoryHandle repository, const TQualifierDecl& qualifier)
      : fRepository(std::move(repository)), fQualifier(qualifier)
   {}

   const TCIMValue& GetValue(TContext) const override { return fQualifier.fValue; }

private:
   TRepositoryHandle fRepository;
   const TQualifierDecl& fQualifier;
};

}  // namespace

boost::shared_ptr<const ICIMQualifier> TPropertyDeclHandle::GetQualifier(const std::string& name,
                                                                         bool& found,
                                                                         TContext) const
{
   const TQualifierDecl* qualifier =
      fProperty != nullptr ? fProperty->FindQualifier(name) : nullptr;
   found = qualifier != nullptr;
   if (!found)
      throw TQSXException(kStatusNotFound);
   return boost::make_shared<TQualifierHandle>(fRepository, *qualifier);
}

const std::string& TPropertyDeclHandle::GetName(TContext) const
{
   return fName;
}

boost::shared_ptr<const ICIMPropertyDecl> GetDeclHandle(const TRepositoryHandle& repository,
                                                        const TStoredProperty* property,
                                                        const std::string& name)
{
   if (property == nullptr)
      return boost::make_shared<TPropertyDeclHandle>(repository, property, name);
   boost::shared_ptr<const ICIMPropertyDecl> decl = property->GetSharedHandle().lock();
   if (!decl) {
      decl = boost::make_shared<TPropertyDeclHandle>(repository, property, name);
      property->GetSharedHandle() = decl;
   }
   return decl;
}

}  // namespace NZANQSX20
