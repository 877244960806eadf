#pragma once

#include <string>

#include "store/TSchema.h"

namespace NZANQSX20 {

/// The four names that narrow a walk over associations. An empty name is no filter; a class name
/// that the schema lacks matches nothing. Class names match subclasses too.
class TAssociationFilter
{
public:
   TAssociationFilter(const TSchema& schema, const std::string& assocClass,
                      const std::string& resultClass, const std::string& role,
                      const std::string& resultRole)
      : fAssociation(schema, assocClass),
        fResult(schema, resultClass),
        fRole(role),
        fResultRole(resultRole)
   {}

   bool AllowsAssociation(const TStoredClass& association) const
   {
      return fAssociation.Allows(association);
   }

   bool AllowsResult(const TStoredClass& result) const { return fResult.Allows(result); }

   /// The name of the reference that holds the source of the walk.
   bool AllowsRole(const std::string& role) const { return fRole.empty() || fRole == role; }

   /// The name of the reference that holds the result.
   bool AllowsResultRole(const std::string& role) const
   {
      return fResultRole.empty() || fResultRole == role;
   }

private:
   struct TClassFilter
   {
      TClassFilter(const TSchema& schema, const std::string& name)
         : fIsOpen(name.empty()), fTop(schema.Find(name))
      {}

      bool Allows(const TStoredClass& candidate) const
      {
         return fIsOpen || (fTop != nullptr && candidate.IsOrDerivesFrom(*fTop));
      }

      bool fIsOpen;
      const TStoredClass* fTop;
   };

   TClassFilter fAssociation;
   TClassFilter fResult;
   const std::string& fRole;
   const std::string& fResultRole;
};

}  // namespace NZANQSX20
