#include "comparison/MergeDeclarations.h"

#include <boost/make_shared.hpp>

namespace NZANQSX20 {

TClassDecl CopyDeclaration(const TStoredClass& storedClass)
{
   TClassDecl declaration;
   declaration.fName = storedClass.GetName();
   if (storedClass.GetSuperclass() != nullptr)
      declaration.fSuperclass = storedClass.GetSuperclass()->GetName();
   declaration.fQualifiers = storedClass.GetQualifiers();
   declaration.fIsImplied = storedClass.IsImplied();
   for (const TStoredProperty* property : storedClass.GetOwnProperties())
      declaration.fProperties.push_back(property->GetDeclaration());
   return declaration;
}

boost::shared_ptr<TSchema> MergeDeclarations(const std::vector<const TSchema*>& schemas)
{
   const auto merged = boost::make_shared<TSchema>();
   for (const TSchema* schema : schemas)
      for (const TStoredClass* storedClass : schema->GetClasses())
         if (!storedClass->IsPlaceholder())
            merged->Declare(CopyDeclaration(*storedClass));
   return merged;
}

}  // namespace NZANQSX20
