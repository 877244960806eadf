#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "QSXExport.h"
#include "store/TStoredClass.h"

namespace NZANQSX20 {

/// The properties that differ between any two collections, as `Class.Property`; subclasses are
/// meant too. A bare `Property` is meant in every class.
QSX_API const std::vector<std::string>& GetUsuallyDifferentProperties();

/// The properties that a comparison does not look at: those named here, and every one whose
/// declaration has a true qualifier Volatile.
class QSX_API TIgnoredProperties
{
public:
   /// `Class.Property`, subclasses included, or a bare `Property` of every class.
   void Add(std::string_view name);

   bool Contains(const TStoredClass& storedClass, const TStoredProperty& property) const;

   /// The names added that no class of the schema has a property for, in the order of adding.
   std::vector<std::string> FindUnknown(const std::vector<TStoredClass*>& classes) const;

private:
   struct TName
   {
      /// Empty for every class.
      std::string fClass;
      std::string fProperty;
   };

   bool Names(const TName& name, const TStoredClass& storedClass,
              const std::string& propertyName) const;

   std::vector<TName> fNames;
};

}  // namespace NZANQSX20
