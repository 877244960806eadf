#include "support/DescribeStore.h"

#include <map>
#include <vector>

#include "CIMStore.h"

using namespace NZANQSX20;

namespace {

std::string DescribeValue(const TCIMValue& value)
{
   const std::string type = std::to_string(static_cast<int>(value.GetType()));
   if (value.IsNull())
      return type + (value.IsArray() ? "[] null" : " null");
   return type + (value.IsArray() ? "[] {" : " {") + value.ToString(10) + "}";
}

std::string DescribeQualifiers(const std::vector<TQualifierDecl>& qualifiers)
{
   std::string text;
   for (const TQualifierDecl& qualifier : qualifiers)
      text += " [" + qualifier.fName + " " + DescribeValue(qualifier.fValue) + "]";
   return text;
}

std::string DescribeClass(const TStoredClass& storedClass)
{
   const TStoredClass* const superclass = storedClass.GetSuperclass();
   std::string text = "class " + storedClass.GetName();
   text += superclass != nullptr ? " : " + superclass->GetName() : "";
   text += DescribeQualifiers(storedClass.GetQualifiers()) + "\n";
   for (const TSlot slot : storedClass.GetDeclaredSlots()) {
      const TPropertyDecl& property = storedClass.FindProperty(slot)->GetDeclaration();
      text += "   " + property.fName + " " + std::to_string(static_cast<int>(property.fType)) +
              (property.fIsArray ? "[] " : " ") + property.fReferenceClass + "= " +
              DescribeValue(property.fDefault) + DescribeQualifiers(property.fQualifiers) + "\n";
   }
   return text;
}

}  // namespace

std::string DescribeInstances(const boost::shared_ptr<TMemoryStore>& store)
{
   const boost::shared_ptr<ICIMNamespace> cimNamespace = OpenNamespace(store);
   std::string text;
   for (const TStoredClass* storedClass : store->GetSchema().GetClasses()) {
      std::vector<boost::shared_ptr<ICIMInstance>> instances;
      cimNamespace->GetClass(storedClass->GetName(), {})
         ->EnumerateInstances(TAddToVectorCallback<ICIMInstance>(instances), false, {});
      for (const auto& instance : instances) {
         text += instance->GetReference({}).GetPath() + "\n";
         std::vector<boost::shared_ptr<ICIMProperty>> properties;
         instance->EnumerateProperties(TAddToVectorCallback<ICIMProperty>(properties), {});
         for (const auto& property : properties)
            text += "   " + property->GetDecl({})->GetName({}) + " " +
                    DescribeValue(property->GetValue({})) + "\n";
      }
   }
   return text;
}

std::string DescribeStore(const boost::shared_ptr<TMemoryStore>& store)
{
   std::string text;
   for (const TStoredClass* storedClass : store->GetSchema().GetClasses())
      text += DescribeClass(*storedClass);
   return text + DescribeInstances(store);
}

std::string DescribeStoreAndOrder(const boost::shared_ptr<TMemoryStore>& store)
{
   std::string text = DescribeStore(store);
   std::map<std::uint64_t, std::string> paths;
   for (const TStoredClass* storedClass : store->GetSchema().GetClasses()) {
      text += "own of " + storedClass->GetName() + ":";
      for (const TStoredProperty* property : storedClass->GetOwnProperties())
         text += ' ' + property->GetDeclaration().fName;
      text += '\n';
      for (const TStoredInstance* instance : storedClass->GetInstances())
         paths[instance->GetOrder()] = store->GetPath(*instance);
   }
   for (const auto& [order, path] : paths)
      text += path + "\n";
   return text;
}
