#pragma once

#include <map>
#include <string>
#include <unordered_map>
#include <vector>

#include "comparison/FindDifferences.h"
#include "store/TMemoryStore.h"

namespace NZANQSX20 {

/// Keeps findings as instances of the delta classes in a store.
class TFindingsWriter
{
public:
   /// The store has the delta classes declared.
   explicit TFindingsWriter(TMemoryStore& store);

   void Add(const TFinding& finding);

private:
   const TStoredInstance& GetDeltaClass(const std::string& className);
   TStoredValue GetPath(const std::string& path);
   TStoredValue GetProperty(const std::string& name);
   TStoredValue GetNamespaces(const std::vector<std::size_t>& namespaces);

   TMemoryStore& fStore;
   TStoredClass& fDeltaClass;
   TStoredClass& fDelta;
   TStoredClass& fAssociation;
   std::unordered_map<std::string, const TStoredInstance*> fDeltaClasses;
   std::uint64_t fNextID = 1;
   // What findings that follow each other mostly share stands in the store once.
   std::string fPath;
   TStoredValue fPathValue = TStoredValue::Null(TCIMValue::TCIMType::kString);
   std::unordered_map<std::string, TStoredValue> fProperties;
   std::map<std::vector<std::size_t>, TStoredValue> fNamespaces;
};

/// Copies the findings of one store to another, instance by instance. Gives the number of findings.
std::size_t CopyFindings(TMemoryStore& from, TMemoryStore& to);

}  // namespace NZANQSX20
