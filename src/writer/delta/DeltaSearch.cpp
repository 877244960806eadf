#include <algorithm>
#include <iomanip>
#include <iostream>

#include "writer/StoreWalk.h"
#include "writer/WriterLog.h"
#include "writer/delta/DeltaRecords.h"

using namespace Delta;

namespace {

using TInstances = TWriter::TInstances;
using TReportClass = TWriter::TReportClass;

bool ShowsProperty(const TReportClass& reportClass, const std::string& name)
{
   const auto& properties = reportClass.GetProperties();
   return std::any_of(properties.begin(), properties.end(),
                      [&](const auto& property) { return property.GetProperty() == name; });
}

/// Groups the findings into records. A finding on a property that the table does not show is
/// dropped.
void GroupFindings(const boost::shared_ptr<TWriter::TClassDelta>& classDelta,
                   const TInstances& findings)
{
   for (const auto& finding : findings) {
      const unsigned int type = ReadType(finding);
      if (type == kDeltaProperty &&
          !ShowsProperty(*classDelta->fReportClass, ReadText(finding, "Property")))
         continue;
      const std::string name = ReadText(finding, "InstanceName");
      auto& record = classDelta->fInstances[name];
      if (!record)
         record = boost::make_shared<TWriter::TInstanceDelta>(classDelta, name);
      record->fDeltas.push_back(finding);
      record->fDeltaType |= type;
   }
}

void ResolveIn(TWriter::TInstanceDelta& record,
               const boost::shared_ptr<ICIMNamespace>& cimNamespace, const std::string& path,
               std::size_t namespaceIndex)
{
   if (!record.fInstances[namespaceIndex])
      record.fInstances[namespaceIndex] = ResolveInstance(cimNamespace, path, namespaceIndex);
}

/// Fetches the instances of a record in the namespaces that its findings name, each once.
void ResolveRecord(TWriter::TInstanceDelta& record,
                   const boost::shared_ptr<ICIMNamespace>& cimNamespace, std::size_t namespaceCount)
{
   const std::string path = ReadText(record.fDeltas.front(), "InstanceName");
   for (const auto& finding : record.fDeltas) {
      if (ReadType(finding) == kDeltaMissing) {
         if (record.fInstances.empty())
            record.fInstances.resize(1);
         ResolveIn(record, cimNamespace, path, 0);
         continue;
      }
      if (record.fInstances.size() < namespaceCount)
         record.fInstances.resize(namespaceCount);
      for (std::size_t index : ReadNamespaceIndices(finding, namespaceCount))
         ResolveIn(record, cimNamespace, path, index);
   }
}

}  // namespace

void TWriter::FindDeltas(std::string className, TInstances& deltas)
{
   LogTrace("Entering TWriter::FindDeltas");
   const TContext context = NamespaceContext(0);
   const boost::shared_ptr<ICIMClass> cimClass = FindClass(fNamespace, className, context);
   if (!cimClass)
      return;
   TClasses classes = EnumerateSubclasses(cimClass, context);
   classes.insert(classes.begin(), cimClass);
   for (const auto& compared : classes) {
      const auto deltaClass = fDeltaClasses.find(compared->GetName(TContext()));
      if (deltaClass == fDeltaClasses.end())
         continue;
      for (const auto& finding :
           EnumerateAssociators(deltaClass->second, "ZANSG_DeltaClassAssocToDelta", "ZANSG_Delta"))
         if (std::find(deltas.begin(), deltas.end(), finding) == deltas.end())
            deltas.push_back(finding);
   }
   LogTrace("Exiting TWriter::FindDeltas");
}

void TWriter::CreateDeltaInstances(boost::shared_ptr<TClassDelta> classDelta)
{
   LogTrace("Entering TWriter::CreateDeltaInstances");
   TInstances findings;
   FindDeltas(classDelta->fReportClass->GetClass(), findings);
   GroupFindings(classDelta, findings);
   for (const auto& [path, record] : classDelta->fInstances)
      ResolveRecord(*record, fNamespace, fNamespaceLabels.size());

   CreateDeltaAssocProperties(classDelta);
   CreateDeltaBackAssocDependencies(classDelta);
   if (classDelta->fReportClass->HasAssociatedClass()) {
      for (TReportClass& associated : classDelta->fReportClass->GetAssociatedClasses()) {
         const auto child = boost::make_shared<TClassDelta>();
         child->fNamespace = fNamespace;
         child->fBackAssociatedClass = classDelta;
         child->fReportClass = &associated;
         classDelta->fAssociatedClasses.push_back(child);
         CreateDeltaInstances(child);
      }
      CreateDeltaAssocDependencies(classDelta);
   }
   LogTrace("Exiting TWriter::CreateDeltaInstances");
}

void TWriter::DumpDeltas(boost::shared_ptr<TClassDelta> classDelta)
{
   if (classDelta->fInstances.empty())
      return;
   std::cout << "=== class " << classDelta->fReportClass->GetClass() << " ===\n"
             << classDelta->fInstances.size() << " instances\n";
   for (const auto& [path, record] : classDelta->fInstances)
      std::cout << std::string(60, '-') << "\nop = " << path << "\n\ndelta type = " << std::hex
                << record->fDeltaType << std::dec << '\n'
                << record->fDeltas.size() << " deltas\n"
                << record->fAssociatedDeltas.size() << " associations\n";
   std::cout << '\n';
   for (const auto& child : classDelta->fAssociatedClasses)
      DumpDeltas(child);
}
