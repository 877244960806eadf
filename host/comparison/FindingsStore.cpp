#include "comparison/FindingsStore.h"

#include "store/StoredValueConversion.h"
#include "store/TRepository.h"

namespace NZANQSX20 {

namespace {

using TType = TCIMValue::TCIMType;

/// An instance to be, filled by the names of its properties.
class TNamedDraft
{
public:
   explicit TNamedDraft(TStoredClass& storedClass) : fClass(storedClass), fDraft(storedClass) {}

   TNamedDraft& Set(const char* name, const TStoredValue& value)
   {
      fDraft.Set(fClass.GetSlot(name), value);
      return *this;
   }

   TStoredInstance& AddTo(TMemoryStore& store) { return store.Add(fDraft); }

private:
   TStoredClass& fClass;
   TInstanceDraft fDraft;
};

TStoredValue CopyValue(const TStoredValue& value, TMemoryStore& from, TMemoryStore& to)
{
   if (value.GetType() != TType::kReference || value.IsArray() || value.IsNull())
      return to.MakeValue(ToValue(value, TRepositoryHandle(), from));
   TStoredValue copy = TStoredValue::Null(TType::kReference);
   const TStoredInstance* target = value.GetTarget();
   to.MakeReference(target != nullptr ? from.GetPath(*target) : std::string(value.GetText()), copy);
   return copy;
}

void CopyInstances(const TStoredClass& from, TMemoryStore& fromStore, TMemoryStore& to)
{
   TStoredClass& target = *to.GetSchema().Find(from.GetName());
   TInstanceDraft draft(target);
   for (const TStoredInstance* instance : from.GetInstances()) {
      if (!instance->IsListed())
         continue;
      draft.Start(target);
      const TShape& shape = instance->GetShape();
      for (std::uint32_t position = 0; position < shape.fCount; ++position)
         draft.Set(target.GetSlot(from.GetSlotName(shape.fSlots[position])),
                   CopyValue(instance->GetValues()[position], fromStore, to));
      to.Add(draft);
   }
}

}  // namespace

TFindingsWriter::TFindingsWriter(TMemoryStore& store)
   : fStore(store),
     fDeltaClass(*store.GetSchema().Find(kDeltaClassName)),
     fDelta(*store.GetSchema().Find(kDeltaName)),
     fAssociation(*store.GetSchema().Find(kDeltaAssociationName))
{}

const TStoredInstance& TFindingsWriter::GetDeltaClass(const std::string& className)
{
   const TStoredInstance*& known = fDeltaClasses[className];
   if (known == nullptr)
      known =
         &TNamedDraft(fDeltaClass).Set("ClassName", fStore.MakeString(className)).AddTo(fStore);
   return *known;
}

TStoredValue TFindingsWriter::GetPath(const std::string& path)
{
   if (fPath != path) {
      fPath = path;
      fPathValue = fStore.MakeString(path);
   }
   return fPathValue;
}

TStoredValue TFindingsWriter::GetProperty(const std::string& name)
{
   const auto known = fProperties.find(name);
   return known != fProperties.end()
             ? known->second
             : fProperties.emplace(name, fStore.MakeString(name)).first->second;
}

TStoredValue TFindingsWriter::GetNamespaces(const std::vector<std::size_t>& namespaces)
{
   const auto known = fNamespaces.find(namespaces);
   if (known != fNamespaces.end())
      return known->second;
   std::vector<TStoredValue> indices;
   for (std::size_t index : namespaces)
      indices.push_back(TStoredValue::Unsigned(TType::kUInt16, index));
   return fNamespaces.emplace(namespaces, fStore.MakeArray(TType::kUInt16, indices)).first->second;
}

void TFindingsWriter::Add(const TFinding& finding)
{
   const TStoredInstance& delta =
      TNamedDraft(fDelta)
         .Set("DeltaID", TStoredValue::Unsigned(TType::kUInt32, fNextID++))
         .Set("Type", TStoredValue::Unsigned(TType::kUInt8, finding.fType))
         .Set("InstanceName", GetPath(finding.fInstance))
         .Set("Property", GetProperty(finding.fProperty))
         .Set("NamespaceIndices", GetNamespaces(finding.fNamespaces))
         .AddTo(fStore);
   TNamedDraft(fAssociation)
      .Set("Antecedent", fStore.MakeReference(GetDeltaClass(finding.fClass)))
      .Set("Dependent", fStore.MakeReference(delta))
      .AddTo(fStore);
}

std::size_t CopyFindings(TMemoryStore& from, TMemoryStore& to)
{
   for (const char* className : {kDeltaClassName, kDeltaName, kDeltaAssociationName})
      if (const TStoredClass* storedClass = from.GetSchema().Find(className))
         CopyInstances(*storedClass, from, to);
   return to.CountInstances(*to.GetSchema().Find(kDeltaName));
}

}  // namespace NZANQSX20
