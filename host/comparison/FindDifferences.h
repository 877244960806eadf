#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "comparison/DeltaClasses.h"
#include "comparison/TIgnoredProperties.h"
#include "store/TMemoryStore.h"

namespace NZANQSX20 {

/// One difference between the collections.
struct TFinding
{
   EFindingType fType;
   /// The compared class, of which the instance is one of its own.
   std::string fClass;
   /// The path of the instance.
   std::string fInstance;
   /// Empty unless a property differs.
   std::string fProperty;
   /// Missing from, unique to, or for a property 0 and the namespaces that differ from it.
   std::vector<std::size_t> fNamespaces;
};

/// Compares the collections with the first of them; instances match by path.
///
/// Shape: class by class in order of declaration, association classes left out; of each, the
///        instances of the base in their order, then those of the others.
/// Units: time and memory linear in the instances of a class, by hash.
///        Findings are handed over one by one: kept together they would outweigh the collections.
/// Owner: keys, defaults and types are those of the merged declarations.
QSX_API void FindDifferences(const std::vector<const TMemoryStore*>& stores, const TSchema& merged,
                             const TIgnoredProperties& ignored,
                             const std::function<void(const TFinding&)>& add);

}  // namespace NZANQSX20
