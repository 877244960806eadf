#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "ICIMProperty.h"
#include "store/TReportText.h"
#include "store/TRepository.h"

namespace NZANQSX20 {

/// One property of one instance. Reads the store at every call, so that it sees changes made
/// through other handles; a value it returned is then renewed in place.
class TPropertyHandle : public ICIMProperty
{
public:
   /// declaration is null for a property that only the instance has.
   TPropertyHandle(TRepositoryHandle repository, TMemoryStore& store, TStoredInstance& instance,
                   TSlot slot, const TStoredProperty* declaration)
      : fRepository(std::move(repository)),
        fStore(store),
        fInstance(instance),
        fDeclaration(declaration),
        fSlot(slot)
   {}

   TCIMValue::TCIMType GetType(TContext context) override;
   bool IsArray(TContext context) override;
   const TCIMValue& GetValue(TContext context) override;
   void SetValue(const TCIMValue& value, TContext context) override;
   boost::shared_ptr<const ICIMPropertyDecl> GetDecl(TContext context) override;
   const TCIMValue& GetValue() override;
   bool HasValue() override;
   std::string GetValueString() override;
   std::string GetRawValueString() override;
   std::vector<std::string> GetValueStrings() override;

private:
   static constexpr std::uint64_t kNotRead = ~std::uint64_t{0};

   const TCIMValue& Read();
   const TReportText& GetReportText() const;

   TRepositoryHandle fRepository;
   TMemoryStore& fStore;
   TStoredInstance& fInstance;
   const TStoredProperty* fDeclaration;
   TSlot fSlot;
   /// The store's value version at which fValue was read.
   std::uint64_t fReadVersion = kNotRead;
   TCIMValue fValue;
};

}  // namespace NZANQSX20
