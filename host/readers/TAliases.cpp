#include "readers/TAliases.h"

#include <utility>

#include <fmt/format.h>

namespace NZANQSX20 {

bool TAliases::Add(std::string_view alias, TStoredInstance& instance)
{
   return fInstances.emplace(alias, &instance).second;
}

TStoredInstance* TAliases::Find(std::string_view alias) const
{
   const auto found = fInstances.find(std::string(alias));
   return found == fInstances.end() ? nullptr : found->second;
}

void TAliases::AddForwardReference(TForwardReference reference)
{
   fForwardReferences.push_back(std::move(reference));
}

void TAliases::Tie(TMemoryStore& store)
{
   for (const TForwardReference& reference : fForwardReferences) {
      std::vector<TStoredValue> values;
      for (const TElement& element : reference.fElements) {
         if (element.fAlias.empty()) {
            values.push_back(element.fValue);
            continue;
         }
         const TStoredInstance* const target = Find(element.fAlias);
         if (target == nullptr)
            throw TReadError(
               reference.fFile, element.fPlace,
               fmt::format("expected the alias of an instance, found ${}, which none has",
                           element.fAlias));
         values.push_back(store.MakeReference(*target));
      }
      const TStoredValue value = reference.fIsArray
                                    ? store.MakeArray(TCIMValue::TCIMType::kReference, values)
                                    : values.front();
      store.Set(*reference.fInstance, reference.fSlot, value);
   }
   fForwardReferences.clear();
}

}  // namespace NZANQSX20
