#include "comparison/CheckFindings.h"

#include <cstdint>

#include "comparison/DeltaClasses.h"
#include "store/StoredPath.h"

namespace NZANQSX20 {

namespace {

std::string ReadText(const TStoredInstance& finding, const char* name)
{
   std::string text;
   TSlot slot = 0;
   if (!finding.GetClass().FindSlot(name, slot))
      return text;
   if (const TStoredValue* value = finding.Find(slot))
      AppendText(text, *value);
   return text;
}

/// The first namespace that the finding names and that is not compared. Missing: false.
bool FindUnknownNamespace(const TStoredInstance& finding, std::size_t count, std::uint64_t& unknown)
{
   TSlot slot = 0;
   const TStoredValue* value =
      finding.GetClass().FindSlot("NamespaceIndices", slot) ? finding.Find(slot) : nullptr;
   if (value == nullptr || value->IsNull() || !value->IsArray())
      return false;
   for (std::uint32_t index = 0; index < value->GetCount(); ++index) {
      unknown = value->GetElements()[index].GetUnsigned();
      if (unknown >= count)
         return true;
   }
   return false;
}

const TStoredInstance* FindInstance(const std::vector<TMemoryStore*>& stores,
                                    const std::string& path)
{
   for (TMemoryStore* store : stores)
      if (const TStoredInstance* found = store->FindByPath(path))
         return found;
   return nullptr;
}

/// What the finding names and nobody has. Missing: the empty text.
std::string FindUnknown(const TStoredInstance& finding, const std::vector<TMemoryStore*>& stores,
                        const TSchema& merged)
{
   const std::string path = ReadText(finding, "InstanceName");
   const std::string className = path.substr(0, path.find('.'));
   const TStoredClass* storedClass = merged.Find(className);
   if (storedClass == nullptr)
      return "the class \"" + className + "\", which no collection declares";
   if (FindInstance(stores, path) == nullptr)
      return "the instance " + path + ", which no collection holds";
   const std::string property = ReadText(finding, "Property");
   if (!property.empty() && storedClass->FindProperty(property) == nullptr)
      return "the property \"" + property + "\", which " + className + " does not declare";
   std::uint64_t unknown = 0;
   if (FindUnknownNamespace(finding, stores.size(), unknown))
      return "namespace " + std::to_string(unknown) + " of " + std::to_string(stores.size());
   return "";
}

}  // namespace

std::vector<TBadFinding> CheckFindings(TMemoryStore& findings,
                                       const std::vector<TMemoryStore*>& stores,
                                       const TSchema& merged)
{
   std::vector<TBadFinding> bad;
   const TStoredClass* delta = findings.GetSchema().Find(kDeltaName);
   if (delta == nullptr)
      return bad;
   for (const TStoredInstance* finding : delta->GetInstances()) {
      const std::string unknown = FindUnknown(*finding, stores, merged);
      if (!unknown.empty())
         bad.push_back({finding, findings.GetPath(*finding) + " names " + unknown});
   }
   return bad;
}

}  // namespace NZANQSX20
