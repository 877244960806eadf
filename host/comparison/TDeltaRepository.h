#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include <boost/shared_ptr.hpp>

#include "comparison/FindDifferences.h"
#include "comparison/TIgnoredProperties.h"
#include "store/TMemoryStore.h"

namespace NZANQSX20 {

/// Several collections behind one namespace, with what differs between them as findings in the
/// first, the base.
///
/// Owner: shares the stores and adds the findings to the base; instances of the findings' classes
///        that the collections brought along are left out.
class QSX_API TDeltaRepository
{
public:
   /// One store per namespace, the base first.
   explicit TDeltaRepository(std::vector<boost::shared_ptr<TMemoryStore>> stores);

   /// Works the findings out. Gives their number.
   std::size_t FindDifferences(const TIgnoredProperties& ignored);

   /// Takes the findings of a collection instead, with its declarations. Gives their number.
   ///
   /// Missing: a finding that names an instance, a class, a property or a namespace that is not
   /// there is told in the warnings; isStrict keeps it all the same, as the library then meets it.
   std::size_t TakeFindings(TMemoryStore& findings, bool isStrict,
                            std::vector<std::string>& warnings);

   /// All classes of all collections.
   const TSchema& GetSchema() const { return *fSchema; }

   /// The namespace, with provider type 1. Called once the findings are in.
   boost::shared_ptr<ICIMNamespace> Open() const;

private:
   void MergeSchema(const std::vector<TClassDecl>& deltaClasses);

   std::vector<boost::shared_ptr<TMemoryStore>> fStores;
   boost::shared_ptr<TSchema> fSchema;
};

}  // namespace NZANQSX20
