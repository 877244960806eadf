#pragma once

#include <string>

#include "ICIMInstance.h"
#include "store/TRepository.h"

namespace NZANQSX20 {

/// An instance of one store of a repository; it reads there, whatever a context says.
class TInstanceHandle : public ICIMInstance
{
public:
   TInstanceHandle(TRepositoryHandle repository, TMemoryStore& store, TStoredInstance& instance);

   void Save(TContext context) override;
   void Delete(TContext context) override;
   TCIMReference GetReference(TContext context) override;
   boost::shared_ptr<ICIMClass> GetClass(TContext context) override;
   void EnumerateAssociators(boost::function<bool(boost::shared_ptr<ICIMInstance>)> callback,
                             const std::string& assocClass, const std::string& resultClass,
                             const std::string& role, const std::string& resultRole,
                             TContext context) override;
   boost::shared_ptr<ICIMProperty> GetProperty(const std::string& name, TContext context) override;
   void SetProperty(const std::string& name, const TCIMValue& value, TContext context) override;
   void EnumerateProperties(boost::function<bool(boost::shared_ptr<ICIMProperty>)> callback,
                            TContext context) override;

private:
   const TStoredProperty* FindDeclaration(const std::string& name, TSlot slot) const;
   boost::shared_ptr<ICIMProperty> MakeProperty(TSlot slot, const TStoredProperty* declaration);

   TRepositoryHandle fRepository;
   TMemoryStore& fStore;
   TStoredInstance& fInstance;
   /// The class that declarations are read from; the instance's own class in a plain repository.
   const TStoredClass& fSchemaClass;
};

/// A handle on an instance; the shared one where the repository shares the handles of its class.
boost::shared_ptr<ICIMInstance> OpenInstance(const TRepositoryHandle& repository,
                                             TMemoryStore& store, TStoredInstance& instance);

}  // namespace NZANQSX20
