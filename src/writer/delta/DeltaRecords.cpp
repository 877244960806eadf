#include "writer/delta/DeltaRecords.h"

#include <utility>

TCIMReference TWriter::TClassDelta::ConvertReference(TCIMReference& reference, TContext context)
{
   if (!fKeyNamesKnown) {
      for (const auto& [path, record] : fInstances) {
         if (!record->fDeltas.empty())
            continue;
         // Only a key that came from an association pass is sure to be a proper path.
         std::map<std::string, TCIMValue> keyBindings;
         TCIMReference(fNamespace, path, context)
            .EnumerateKeyBindings(TAddKeyBindingsToMapCallback(keyBindings));
         for (const auto& keyBinding : keyBindings)
            fKeyNames.push_back(keyBinding.first);
         break;
      }
      fKeyNamesKnown = true;
   }
   return reference;
}

boost::shared_ptr<ICIMInstance> TWriter::TInstanceDelta::GetInstance(
   std::size_t namespaceIndex) const
{
   return namespaceIndex < fInstances.size() ? fInstances[namespaceIndex]
                                             : boost::shared_ptr<ICIMInstance>();
}

std::size_t TWriter::TInstanceDelta::FindFirstNamespace() const
{
   std::size_t index = 0;
   while (index < fInstances.size() && !fInstances[index])
      ++index;
   return index;
}

namespace Delta {

TContext NamespaceContext(std::size_t namespaceIndex)
{
   TContext context;
   context[kNamespaceIndexKey] = TCIMValue(static_cast<unsigned short>(namespaceIndex));
   return context;
}

TCIMValue ReadValue(const boost::shared_ptr<ICIMInstance>& finding, const std::string& property)
{
   return finding->GetProperty(property, TContext())->GetValue(TContext());
}

unsigned int ReadType(const boost::shared_ptr<ICIMInstance>& finding)
{
   return static_cast<unsigned char>(ReadValue(finding, "Type"));
}

std::vector<std::size_t> ReadNamespaceIndices(const boost::shared_ptr<ICIMInstance>& finding,
                                              std::size_t namespaceCount)
{
   const TCIMValue value = ReadValue(finding, "NamespaceIndices");
   std::vector<std::size_t> indices;
   for (const TCIMValue& element : static_cast<const std::vector<TCIMValue>&>(value)) {
      const std::size_t index = static_cast<unsigned short>(element);
      if (index < namespaceCount)
         indices.push_back(index);
   }
   return indices;
}

boost::shared_ptr<ICIMInstance> ResolveInstance(
   const boost::shared_ptr<ICIMNamespace>& cimNamespace, const std::string& path,
   std::size_t namespaceIndex)
{
   const TCIMReference reference(cimNamespace, path, NamespaceContext(namespaceIndex));
   return boost::dynamic_pointer_cast<ICIMInstance>(reference.GetCIMElement(false));
}

}  // namespace Delta
