#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "readers/TReadError.h"
#include "store/TMemoryStore.h"

namespace NZANQSX20 {

/// The aliases of a collection, and the references that were written before their alias.
class TAliases
{
public:
   /// Missing: false when the alias is taken.
   bool Add(std::string_view alias, TStoredInstance& instance);

   /// Missing: null for an alias that is not known so far.
   TStoredInstance* Find(std::string_view alias) const;

   /// An element of a reference property: a value, or an alias that is still to come.
   struct TElement
   {
      TStoredValue fValue;
      std::string fAlias;
      TPlace fPlace;
   };

   /// A property that is set once all aliases are known.
   struct TForwardReference
   {
      TStoredInstance* fInstance = nullptr;
      TSlot fSlot = 0;
      bool fIsArray = false;
      std::string fFile;
      std::vector<TElement> fElements;
   };

   void AddForwardReference(TForwardReference reference);

   /// Sets what waits. Throws: TReadError for an alias that no instance has.
   void Tie(TMemoryStore& store);

private:
   std::unordered_map<std::string, TStoredInstance*> fInstances;
   std::vector<TForwardReference> fForwardReferences;
};

}  // namespace NZANQSX20
