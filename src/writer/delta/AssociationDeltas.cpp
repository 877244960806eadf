#include <algorithm>

#include "writer/StoreWalk.h"
#include "writer/WriterLog.h"
#include "writer/delta/DeltaRecords.h"

using namespace Delta;

namespace {

using TClassDelta = TWriter::TClassDelta;
using TInstanceDelta = TWriter::TInstanceDelta;
using TInstances = TWriter::TInstances;

/// By object path, the instance in each namespace.
using TNearInstances = std::map<std::string, TInstances>;

/// The namespaces in which a finding on the far end can change what a column shows.
std::vector<std::size_t> GetAffectedNamespaces(const boost::shared_ptr<ICIMInstance>& finding,
                                               const std::string& propertyName,
                                               std::size_t namespaceCount)
{
   switch (ReadType(finding)) {
      case kDeltaMissing:
         return {0};
      case kDeltaUnique:
         return ReadNamespaceIndices(finding, namespaceCount);
      case kDeltaProperty:
         if (ReadText(finding, "Property") == propertyName)
            return ReadNamespaceIndices(finding, namespaceCount);
         return {};
      default:
         return {};
   }
}

/// The instances of the report class at the near end. Missing: status 15 means that there are none.
TInstances FindNearInstances(const boost::shared_ptr<ICIMInstance>& far,
                             const std::string& assocClass, const std::string& nearClass,
                             const TContext& context)
{
   try {
      return EnumerateAssociators(far, assocClass, nearClass, "", "", context);
   } catch (const TQSXException& failure) {
      RethrowUnlessNotFound(failure);
      return {};
   }
}

std::string GetRecordPath(TClassDelta& classDelta, const boost::shared_ptr<ICIMInstance>& instance,
                          std::size_t namespaceIndex)
{
   const TContext context = NamespaceContext(namespaceIndex);
   TCIMReference reference = instance->GetReference(context);
   return classDelta.ConvertReference(reference, context).GetPath();
}

/// The baseline of a near instance. Missing: false where namespace 0 can't give one.
bool FetchBaseline(const TClassDelta& classDelta, const std::string& path,
                   boost::shared_ptr<ICIMInstance>& baseline)
{
   if (baseline)
      return true;
   try {
      const TContext context = NamespaceContext(0);
      classDelta.fNamespace->GetClass(classDelta.fReportClass->GetClass(), context);
      baseline = classDelta.fNamespace->GetInstance(
         TCIMReference(classDelta.fNamespace, path, context), context);
   } catch (const TQSXException&) {
      return false;
   }
   return static_cast<bool>(baseline);
}

/// Notes the texts of a column that differ. A record that is only missing or unique shows no
/// comparison.
void NoteAssocProperty(const boost::shared_ptr<TClassDelta>& classDelta, const std::string& path,
                       const std::string& propertyName, const std::vector<std::string>& values)
{
   auto& record = classDelta->fInstances[path];
   if (!record) {
      record = boost::make_shared<TInstanceDelta>(classDelta, path);
      record->fDeltaType |= kDeltaProperty;
   }
   if (record->fDeltaType & kDeltaProperty)
      record->fAssocProperties[propertyName] = values;
}

/// The findings of the classes at the far end of a column.
TInstances FindFarFindings(TWriter& writer, const TClassDelta& classDelta,
                           const std::string& assocClass, const std::string& assocTarget)
{
   TInstances findings;
   if (!assocTarget.empty()) {
      writer.FindDeltas(assocTarget, findings);
      return findings;
   }
   const TContext context = NamespaceContext(0);
   const auto nearClass =
      classDelta.fNamespace->GetClass(classDelta.fReportClass->GetClass(), context);
   for (const auto& target : EnumerateAssociatedClasses(nearClass, assocClass, "", "", "", context))
      writer.FindDeltas(target->GetName(TContext()), findings);
   return findings;
}

/// Leads each finding back to the instances that show it, by their paths.
TNearInstances CollectNearInstances(TClassDelta& classDelta, const TInstances& findings,
                                    const std::string& propertyName, const std::string& assocClass,
                                    std::size_t namespaceCount)
{
   const std::string nearClass = classDelta.fReportClass->GetClass();
   TNearInstances nearInstances;
   for (const auto& finding : findings) {
      const auto affected = GetAffectedNamespaces(finding, propertyName, namespaceCount);
      const std::string path = ReadText(finding, "InstanceName");
      for (std::size_t index : affected) {
         const auto far = ResolveInstance(classDelta.fNamespace, path, index);
         if (!far)
            continue;
         for (const auto& near :
              FindNearInstances(far, assocClass, nearClass, NamespaceContext(index))) {
            TInstances& instances = nearInstances[GetRecordPath(classDelta, near, index)];
            instances.resize(namespaceCount);
            instances[index] = near;
         }
      }
   }
   return nearInstances;
}

/// Compares the texts that a column shows in each namespace with the baseline's.
void CompareAssocProperty(TWriter& writer, const boost::shared_ptr<TClassDelta>& classDelta,
                          const TWriter::TReportProperty& property, const std::string& path,
                          TInstances& instances)
{
   if (!FetchBaseline(*classDelta, path, instances[0]))
      return;
   const std::string separator =
      writer.GetArrayValueSeparatorText(property.GetArrayValueSeparator());
   std::vector<std::string> values(instances.size());
   for (std::size_t index = 0; index < instances.size(); ++index)
      if (instances[index])
         values[index] = writer.GetValuesFromProperties(
            writer.GetProperties(instances[index], property.GetProperty(),
                                 property.GetAssociationClass(), property.GetAssociationTarget()),
            separator, false);
   for (std::size_t index = 1; index < instances.size(); ++index)
      if (instances[index] && values[index] != values[0])
         NoteAssocProperty(classDelta, path, property.GetProperty(), values);
}

/// The record of an instance that an association led to; made with the inherited mask where it is
/// new.
boost::shared_ptr<TInstanceDelta> FindOrMakeRecord(const boost::shared_ptr<TClassDelta>& classDelta,
                                                   const boost::shared_ptr<ICIMInstance>& instance,
                                                   std::size_t namespaceIndex,
                                                   std::size_t namespaceCount,
                                                   unsigned int inheritedType)
{
   const std::string path = GetRecordPath(*classDelta, instance, namespaceIndex);
   auto& record = classDelta->fInstances[path];
   if (!record) {
      record = boost::make_shared<TInstanceDelta>(classDelta, path);
      record->fInstances.resize(namespaceCount);
      record->fInstances[namespaceIndex] = instance;
      record->fDeltaType |= inheritedType;
   }
   return record;
}

void AddAssociated(TInstanceDelta& parent, const boost::shared_ptr<TInstanceDelta>& child)
{
   auto& children = parent.fAssociatedDeltas;
   if (std::find(children.begin(), children.end(), child) == children.end())
      children.push_back(child);
}

}  // namespace

void TWriter::CreateDeltaAssocProperties(boost::shared_ptr<TClassDelta> classDelta)
{
   LogTrace("Entering TWriter::CreateDeltaAssocProperties");
   for (TReportProperty& property : classDelta->fReportClass->GetProperties())
      if (property.HasAssociationTarget() || property.HasAssociationClass())
         CreateDeltaAssocProperties(classDelta, property, property.GetProperty(),
                                    property.GetAssociationClass(),
                                    property.GetAssociationTarget());
   LogTrace("Exiting TWriter::CreateDeltaAssocProperties");
}

void TWriter::CreateDeltaAssocProperties(boost::shared_ptr<TClassDelta> classDelta,
                                         TReportProperty& property, std::string propertyName,
                                         std::string assocClass, std::string assocTarget)
{
   LogTrace("Entering TWriter::CreateDeltaAssocProperties(2), propertyName=", propertyName,
            ", assocClass=", assocClass);
   const TInstances findings = FindFarFindings(*this, *classDelta, assocClass, assocTarget);
   TNearInstances nearInstances = CollectNearInstances(*classDelta, findings, propertyName,
                                                       assocClass, fNamespaceLabels.size());
   for (auto& [path, instances] : nearInstances)
      CompareAssocProperty(*this, classDelta, property, path, instances);
   LogTrace("Exiting TWriter::CreateDeltaAssocProperties(2)");
}

void TWriter::CreateDeltaBackAssocDependencies(boost::shared_ptr<TClassDelta> classDelta)
{
   LogTrace("Entering TWriter::CreateDeltaBackAssocDependencies");
   const auto back = classDelta->fBackAssociatedClass.lock();
   if (!back) {
      LogTrace(
         "Exiting TWriter::CreateDeltaBackAssocDependencies, !deltaClass->fBackAssociatedClass");
      return;
   }
   const TReportClass& reportClass = *classDelta->fReportClass;
   for (const auto& [path, child] : classDelta->fInstances) {
      const std::size_t index = child->FindFirstNamespace();
      const auto instance = child->GetInstance(index);
      if (!instance)
         continue;
      // Role and result role are crossed: the walk goes against the direction of the definition.
      for (const auto& parent : EnumerateAssociators(
              instance, reportClass.GetAssocClass(), back->fReportClass->GetClass(),
              reportClass.GetResultRole(), reportClass.GetRole()))
         AddAssociated(
            *FindOrMakeRecord(back, parent, index, fNamespaceLabels.size(), child->fDeltaType),
            child);
   }
   CreateDeltaBackAssocDependencies(back);
   LogTrace("Exiting TWriter::CreateDeltaBackAssocDependencies");
}

void TWriter::CreateDeltaAssocDependencies(boost::shared_ptr<TClassDelta> classDelta)
{
   // Both log texts name the pass above; they are meant so.
   LogTrace("Entering TWriter::CreateDeltaBackAssocDependencies");
   for (const auto& childClass : classDelta->fAssociatedClasses) {
      const TReportClass& reportClass = *childClass->fReportClass;
      for (const auto& [path, parent] : classDelta->fInstances) {
         const std::size_t index = parent->FindFirstNamespace();
         const auto instance = parent->GetInstance(index);
         if (!instance)
            continue;
         for (const auto& child : EnumerateAssociators(
                 instance, reportClass.GetAssocClass(), reportClass.GetResultClass(),
                 reportClass.GetRole(), reportClass.GetResultRole()))
            AddAssociated(*parent, FindOrMakeRecord(childClass, child, index,
                                                    fNamespaceLabels.size(), parent->fDeltaType));
      }
   }
   LogTrace("Exiting TWriter::CreateDeltaBackAssocDependencies");
}
