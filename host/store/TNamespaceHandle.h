#pragma once

#include <string>

#include "ICIMNamespace.h"
#include "store/TRepository.h"

namespace NZANQSX20 {

/// The namespace of a repository.
class TNamespaceHandle : public ICIMNamespace
{
public:
   explicit TNamespaceHandle(TRepositoryHandle repository) : fRepository(std::move(repository)) {}

   boost::shared_ptr<INamespaceProvider> GetProvider(TContext context) override;

   /// Throws: status 15 for a class that the repository does not hold.
   boost::shared_ptr<ICIMClass> GetClass(const std::string& className, TContext context) override;

   boost::shared_ptr<ICIMInstance> GetInstance(const TCIMReference& path,
                                               TContext context) override;

private:
   TRepositoryHandle fRepository;
};

}  // namespace NZANQSX20
