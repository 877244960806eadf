#pragma once

#include <string>

#include "ICIMClass.h"
#include "store/TRepository.h"

namespace NZANQSX20 {

/// A class of a repository's schema. It remembers no namespace of its own: each call reads the one
/// that its context selects.
class TClassHandle : public ICIMClass
{
public:
   TClassHandle(TRepositoryHandle repository, const TStoredClass& schemaClass)
      : fRepository(std::move(repository)), fClass(schemaClass)
   {}

   const std::string& GetName(TContext context) override;
   boost::shared_ptr<ICIMNamespace> GetNamespace(TContext context) override;
   void EnumerateSubclasses(boost::function<bool(boost::shared_ptr<ICIMClass>)> callback, bool deep,
                            TContext context) override;
   void EnumerateAssociatedClasses(boost::function<bool(boost::shared_ptr<ICIMClass>)> callback,
                                   const std::string& assocClass, const std::string& resultClass,
                                   const std::string& role, const std::string& resultRole,
                                   TContext context) override;
   boost::shared_ptr<const ICIMPropertyDecl> GetPropertyDecl(const std::string& name,
                                                             TContext context) override;
   boost::shared_ptr<ICIMInstance> CreateInstance(TContext context) override;
   void EnumerateInstances(boost::function<bool(boost::shared_ptr<ICIMInstance>)> callback,
                           bool deep, TContext context) override;

private:
   TRepositoryHandle fRepository;
   const TStoredClass& fClass;
};

}  // namespace NZANQSX20
