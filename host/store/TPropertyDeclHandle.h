#pragma once

#include <string>

#include "ICIMProperty.h"
#include "store/TRepository.h"

namespace NZANQSX20 {

/// The declaration of a property. One that only an instance has is declared by its name alone,
/// without qualifiers.
class TPropertyDeclHandle : public ICIMPropertyDecl
{
public:
   /// property is null for a property that only an instance has.
   TPropertyDeclHandle(TRepositoryHandle repository, const TStoredProperty* property,
                       const std::string& name)
      : fRepository(std::move(repository)), fProperty(property), fName(name)
   {}

   boost::shared_ptr<const ICIMQualifier> GetQualifier(const std::string& name, bool& found,
                                                       TContext context) const override;
   const std::string& GetName(TContext context) const override;

private:
   TRepositoryHandle fRepository;
   const TStoredProperty* fProperty;
   const std::string& fName;
};

/// The handle over a declaration, the same one as long as somebody holds it: who walks a column
/// sees that its rows share the declaration. A property that only an instance has gets one each.
boost::shared_ptr<const ICIMPropertyDecl> GetDeclHandle(const TRepositoryHandle& repository,
                                                        const TStoredProperty* property,
                                                        const std::string& name);

}  // namespace NZANQSX20
