#include "writer/InstanceAccess.h"

#include "writer/TWriter.h"
#include "writer/WriterLog.h"

namespace {

void SortInstances(const TReportParameters::TReportClass& reportClass, TInstances& instances)
{
   try {
      reportClass.GetInstanceSorter().SortInstances(instances);
   } catch (const TQSXException& failure) {
      LogError("Error sorting: ", failure.what());
   }
}

void AddOwnProperty(ICIMInstance& instance, const std::string& propertyName,
                    TProperties& properties)
{
   try {
      properties.push_back(instance.GetProperty(propertyName, {}));
   } catch (const TQSXException& failure) {
      RethrowUnlessNotFound(failure);
      const boost::shared_ptr<ICIMClass> cimClass = instance.GetClass({});
      LogMissing("HTML: Couldn't find property ", propertyName, " in class ",
                 cimClass->GetName({}));
   }
}

}  // namespace

TInstances ReadInstances(const boost::shared_ptr<ICIMNamespace>& cimNamespace,
                         const TReportParameters::TReportClass& reportClass)
{
   boost::shared_ptr<ICIMClass> cimClass;
   try {
      cimClass = cimNamespace->GetClass(reportClass.GetClass(), {});
   } catch (const TQSXException&) {
      return {};
   }
   if (!cimClass)
      return {};
   TInstances instances = EnumerateInstances(cimClass);
   SortInstances(reportClass, instances);
   return instances;
}

TInstances ReadAssociatedInstances(const boost::shared_ptr<ICIMInstance>& parent,
                                   const TReportParameters::TReportClass& reportClass)
{
   TInstances instances =
      EnumerateAssociators(parent, reportClass.GetAssocClass(), reportClass.GetResultClass(),
                           reportClass.GetRole(), reportClass.GetResultRole());
   SortInstances(reportClass, instances);
   return instances;
}

void AddProperties(const boost::shared_ptr<ICIMInstance>& instance, const std::string& propertyName,
                   const std::string& assocClass, const std::string& assocTarget,
                   TProperties& properties)
{
   if (assocClass.empty() && assocTarget.empty()) {
      AddOwnProperty(*instance, propertyName, properties);
      return;
   }
   try {
      for (const auto& associated : EnumerateAssociators(instance, assocClass, assocTarget))
         properties.push_back(associated->GetProperty(propertyName, {}));
   } catch (const TQSXException& failure) {
      // One associated instance without the property hides all that come after it. That is meant.
      LogError("Error navigation association: ", failure.what());
   }
}

TWriter::TInstances TWriter::GetInstances(TReportClass reportClass)
{
   return ReadInstances(fNamespace, reportClass);
}

TWriter::TProperties TWriter::GetProperties(boost::shared_ptr<ICIMInstance> instance,
                                            const std::string& propertyName,
                                            const std::string& assocClass,
                                            const std::string& assocTarget)
{
   TProperties properties;
   AddProperties(instance, propertyName, assocClass, assocTarget, properties);
   return properties;
}

std::string TWriter::GetPropertyValue(boost::shared_ptr<ICIMInstance> instance,
                                      std::string propertyName, std::string separator)
{
   try {
      return GetValueFromProperty(instance->GetProperty(propertyName, {}), std::move(separator),
                                  false);
   } catch (const TQSXException&) {
      return {};
   }
}

std::string TWriter::GetPropertyValueFromAssociation(boost::shared_ptr<ICIMInstance> instance,
                                                     std::string propertyName,
                                                     std::string assocClass,
                                                     std::string assocTarget, std::string separator)
{
   try {
      std::string text;
      bool isFirst = true;
      for (const auto& associated : EnumerateAssociators(instance, assocClass, assocTarget)) {
         if (!isFirst)
            text += separator;
         isFirst = false;
         text += GetPropertyValue(associated, propertyName, " ");
      }
      return text;
   } catch (const TQSXException& failure) {
      LogError("Error navigation association: ", failure.what());
      return {};
   }
}

bool TWriter::IsPropertyNull(boost::shared_ptr<ICIMInstance> instance,
                             const std::string& propertyName)
{
   try {
      const boost::shared_ptr<ICIMProperty> property = instance->GetProperty(propertyName, {});
      if (property->GetType({}) == TCIMValue::TCIMType::kString)
         return property->GetValueString().empty();
      return property->GetValue(TContext()).IsNull();
   } catch (const TQSXException&) {
      return true;
   }
}

std::string TWriter::GetUniqueId(boost::shared_ptr<ICIMInstance> instance, std::string propertyName)
{
   const boost::shared_ptr<ICIMClass> cimClass = instance->GetClass({});
   std::string id = EncodeValueText(cimClass->GetName({}));
   if (propertyName.empty())
      return id;
   try {
      return id + "_" + instance->GetProperty(propertyName, {})->GetValueString();
   } catch (const TQSXException&) {
      return id;
   }
}
