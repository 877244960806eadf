#include "support/TTestStore.h"

#include <boost/make_shared.hpp>

#include "CIMStore.h"

using namespace NZANQSX20;

namespace {

std::vector<std::string> GetPaths(const std::vector<boost::shared_ptr<ICIMInstance>>& instances)
{
   std::vector<std::string> paths;
   for (const boost::shared_ptr<ICIMInstance>& instance : instances)
      paths.push_back(instance->GetReference({}).GetPath());
   return paths;
}

std::vector<std::string> GetNames(const std::vector<boost::shared_ptr<ICIMClass>>& classes)
{
   std::vector<std::string> names;
   for (const boost::shared_ptr<ICIMClass>& storeClass : classes)
      names.push_back(storeClass->GetName({}));
   return names;
}

}  // namespace

TTestStore::TTestStore()
   : fStore(boost::make_shared<TMemoryStore>()), fNamespace(OpenNamespace(fStore))
{}

TPropertyDecl TTestStore::Property(const std::string& name, TType::ECIMType type,
                                   std::vector<TQualifierDecl> qualifiers)
{
   TPropertyDecl property;
   property.fName = name;
   property.fType = type;
   property.fQualifiers = std::move(qualifiers);
   return property;
}

TPropertyDecl TTestStore::Key(const std::string& name, TType::ECIMType type)
{
   return Property(name, type, {{"Key", TCIMValue::Boolean(true)}});
}

TPropertyDecl TTestStore::Reference(const std::string& name, const std::string& referenceClass)
{
   TPropertyDecl property = Property(name, TType::kReference);
   property.fReferenceClass = referenceClass;
   return property;
}

TCIMValue TTestStore::Strings(const std::vector<std::string>& texts)
{
   return TCIMValue::Array(TType::kString, std::vector<TCIMValue>(texts.begin(), texts.end()));
}

EDeclared TTestStore::AddClass(const std::string& name, const std::string& superclass,
                               std::vector<TPropertyDecl> properties)
{
   TClassDecl declaration;
   declaration.fName = name;
   declaration.fSuperclass = superclass;
   declaration.fProperties = std::move(properties);
   return fStore->GetSchema().Declare(std::move(declaration));
}

TTestStore::TInstanceHandle TTestStore::AddInstance(const std::string& className,
                                                    const TValues& values)
{
   TInstanceHandle instance = GetClass(className)->CreateInstance({});
   for (const auto& value : values)
      instance->SetProperty(value.first, value.second, {});
   instance->Save({});
   return instance;
}

TCIMValue TTestStore::PathTo(const std::string& path) const
{
   return TCIMValue(TCIMReference(fNamespace, path, {}));
}

boost::shared_ptr<ICIMClass> TTestStore::GetClass(const std::string& name) const
{
   return fNamespace->GetClass(name, {});
}

TTestStore::TInstanceHandle TTestStore::FindInstance(const std::string& path) const
{
   return fNamespace->GetInstance(TCIMReference(fNamespace, path, {}), {});
}

std::vector<std::string> TTestStore::GetInstances(const std::string& className, bool deep) const
{
   std::vector<boost::shared_ptr<ICIMInstance>> instances;
   GetClass(className)->EnumerateInstances(TAddToVectorCallback<ICIMInstance>(instances), deep, {});
   return GetPaths(instances);
}

std::vector<std::string> TTestStore::GetSubclasses(const std::string& className, bool deep) const
{
   std::vector<boost::shared_ptr<ICIMClass>> classes;
   GetClass(className)->EnumerateSubclasses(TAddToVectorCallback<ICIMClass>(classes), deep, {});
   return GetNames(classes);
}

std::vector<std::string> TTestStore::GetAssociators(const TInstanceHandle& instance,
                                                    const std::string& assocClass,
                                                    const std::string& resultClass,
                                                    const std::string& role,
                                                    const std::string& resultRole)
{
   std::vector<boost::shared_ptr<ICIMInstance>> instances;
   instance->EnumerateAssociators(TAddToVectorCallback<ICIMInstance>(instances), assocClass,
                                  resultClass, role, resultRole, {});
   return GetPaths(instances);
}

std::vector<std::string> TTestStore::GetAssociatedClasses(const std::string& className,
                                                          const std::string& assocClass) const
{
   std::vector<boost::shared_ptr<ICIMClass>> classes;
   GetClass(className)->EnumerateAssociatedClasses(TAddToVectorCallback<ICIMClass>(classes),
                                                   assocClass, "", "", "", {});
   return GetNames(classes);
}

std::vector<std::string> TTestStore::GetPropertyNames(const TInstanceHandle& instance)
{
   std::vector<boost::shared_ptr<ICIMProperty>> properties;
   instance->EnumerateProperties(TAddToVectorCallback<ICIMProperty>(properties), {});
   std::vector<std::string> names;
   for (const boost::shared_ptr<ICIMProperty>& property : properties)
      names.push_back(property->GetDecl({})->GetName({}));
   return names;
}
