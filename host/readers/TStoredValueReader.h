#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "readers/TAliases.h"
#include "readers/TObjectDraft.h"
#include "readers/TSourceText.h"
#include "store/TMemoryStore.h"

namespace NZANQSX20 {

/// A property name of a class, with what its values have to be.
struct TKnownProperty
{
   std::string_view fName;
   TSlot fSlot = 0;
   TCIMValue::ECIMType fType = TCIMValue::TCIMType::kString;
   bool fIsArray = false;
};

/// Reads the values of instances into the store.
///
/// Throws: TReadError for a value that is not what the property has to be.
class TStoredValueReader
{
public:
   TStoredValueReader(TMemoryStore& store, const TAliases& aliases)
      : fStore(store), fAliases(aliases)
   {}

   /// The value of a property. An alias that is not known so far reads as null and goes to
   /// TakeForwardReferences.
   TStoredValue Read(const TObjectDraft& draft, const TPropertyDraft& property,
                     const TKnownProperty& known, const TSource& source);

   /// The references that wait for an alias, without their instance.
   std::vector<TAliases::TForwardReference> TakeForwardReferences();

private:
   TStoredValue ReadElement(const TObjectDraft& draft, const TValueDraft& value,
                            TCIMValue::ECIMType type, const TSource& source);
   TStoredValue MakeText(const TObjectDraft& draft, std::string_view text);
   void Forward(const TObjectDraft& draft, const TPropertyDraft& property,
                const TKnownProperty& known, const TSource& source);

   TMemoryStore& fStore;
   const TAliases& fAliases;
   bool fMeetsUnknownAlias = false;
   std::vector<TStoredValue> fElements;
   std::vector<TAliases::TForwardReference> fForwardReferences;
   std::shared_ptr<const TSourceText> fKeptText;
};

}  // namespace NZANQSX20
