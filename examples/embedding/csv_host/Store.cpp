#include "Store.h"

#include <fstream>
#include <sstream>

#include <boost/enable_shared_from_this.hpp>
#include <boost/make_shared.hpp>

namespace {

std::vector<std::string> SplitLine(const std::string& line)
{
   std::vector<std::string> cells;
   std::istringstream stream(line);
   for (std::string cell; std::getline(stream, cell, ',');)
      cells.push_back(cell);
   return cells;
}

class TDecl : public ICIMPropertyDecl
{
public:
   explicit TDecl(std::string name) : fName(std::move(name)) {}

   boost::shared_ptr<const ICIMQualifier> GetQualifier(const std::string&, bool& found,
                                                       TContext) const override
   {
      found = false;
      throw TQSXException(kStatusNotFound);
   }

   const std::string& GetName(TContext) const override { return fName; }

private:
   std::string fName;
};

/// A property handle. The value lives in the instance, so that every handle sees a change.
class TProperty : public ICIMProperty
{
public:
   TProperty(std::string name, boost::shared_ptr<TCIMValue> value)
      : fName(std::move(name)), fValue(std::move(value))
   {}

   TCIMValue::TCIMType GetType(TContext) override { return TCIMValue::TCIMType::kString; }

   bool IsArray(TContext) override { return false; }

   const TCIMValue& GetValue(TContext) override { return *fValue; }

   void SetValue(const TCIMValue& value, TContext) override { *fValue = value; }

   boost::shared_ptr<const ICIMPropertyDecl> GetDecl(TContext) override
   {
      return boost::make_shared<TDecl>(fName);
   }

   const TCIMValue& GetValue() override { return fNoRawValue; }

   bool HasValue() override { return !GetValueString().empty(); }

   std::string GetValueString() override { return fValue->ToString(10); }

   std::string GetRawValueString() override { return ""; }

   std::vector<std::string> GetValueStrings() override { return {GetValueString()}; }

private:
   std::string fName;
   boost::shared_ptr<TCIMValue> fValue;
   TCIMValue fNoRawValue;
};

class TClass;

class TInstance : public ICIMInstance, public boost::enable_shared_from_this<TInstance>
{
public:
   TInstance(boost::shared_ptr<TClass> owner, std::size_t number)
      : fClass(std::move(owner)), fNumber(number)
   {}

   void Save(TContext) override;
   void Delete(TContext) override;
   TCIMReference GetReference(TContext) override;
   boost::shared_ptr<ICIMClass> GetClass(TContext) override;

   void EnumerateAssociators(boost::function<bool(boost::shared_ptr<ICIMInstance>)>,
                             const std::string&, const std::string&, const std::string&,
                             const std::string&, TContext) override
   {}

   boost::shared_ptr<ICIMProperty> GetProperty(const std::string& name, TContext) override
   {
      const auto found = fValues.find(name);
      if (found == fValues.end())
         throw TQSXException(kStatusNotFound);
      return boost::make_shared<TProperty>(name, found->second);
   }

   void SetProperty(const std::string& name, const TCIMValue& value, TContext) override
   {
      fValues[name] = boost::make_shared<TCIMValue>(value);
   }

   void EnumerateProperties(boost::function<bool(boost::shared_ptr<ICIMProperty>)> callback,
                            TContext) override
   {
      for (const auto& [name, value] : fValues)
         callback(boost::make_shared<TProperty>(name, value));
   }

private:
   boost::shared_ptr<TClass> fClass;
   std::size_t fNumber;
   std::map<std::string, boost::shared_ptr<TCIMValue>> fValues;
};

class TClass : public ICIMClass, public boost::enable_shared_from_this<TClass>
{
public:
   TClass(boost::shared_ptr<ICIMNamespace> owner, std::string name)
      : fNamespace(std::move(owner)), fName(std::move(name))
   {}

   /// The rows of the file. Missing: a class without a file stays empty.
   void Read(const std::string& path)
   {
      std::ifstream file(path);
      std::string line;
      std::getline(file, line);
      const std::vector<std::string> names = SplitLine(line);
      while (std::getline(file, line)) {
         const std::vector<std::string> cells = SplitLine(line);
         const boost::shared_ptr<ICIMInstance> instance = CreateInstance({});
         for (std::size_t i = 0; i < names.size(); ++i)
            instance->SetProperty(names[i], i < cells.size() ? TCIMValue(cells[i]) : TCIMValue(),
                                  {});
         instance->Save({});
      }
   }

   std::vector<boost::shared_ptr<ICIMInstance>>& GetInstances() { return fInstances; }

   const std::string& GetName(TContext) override { return fName; }

   boost::shared_ptr<ICIMNamespace> GetNamespace(TContext) override { return fNamespace; }

   void EnumerateSubclasses(boost::function<bool(boost::shared_ptr<ICIMClass>)>, bool,
                            TContext) override
   {}

   void EnumerateAssociatedClasses(boost::function<bool(boost::shared_ptr<ICIMClass>)>,
                                   const std::string&, const std::string&, const std::string&,
                                   const std::string&, TContext) override
   {}

   boost::shared_ptr<const ICIMPropertyDecl> GetPropertyDecl(const std::string& name,
                                                             TContext) override
   {
      return boost::make_shared<TDecl>(name);
   }

   boost::shared_ptr<ICIMInstance> CreateInstance(TContext) override
   {
      return boost::make_shared<TInstance>(shared_from_this(), fNext++);
   }

   void EnumerateInstances(boost::function<bool(boost::shared_ptr<ICIMInstance>)> callback, bool,
                           TContext) override
   {
      for (const boost::shared_ptr<ICIMInstance>& instance : fInstances)
         callback(instance);
   }

private:
   boost::shared_ptr<ICIMNamespace> fNamespace;
   std::string fName;
   std::vector<boost::shared_ptr<ICIMInstance>> fInstances;
   std::size_t fNext = 0;
};

void TInstance::Save(TContext)
{
   fClass->GetInstances().push_back(shared_from_this());
}

void TInstance::Delete(TContext)
{
   auto& instances = fClass->GetInstances();
   const boost::shared_ptr<ICIMInstance> self = shared_from_this();
   for (auto i = instances.begin(); i != instances.end(); ++i)
      if (*i == self) {
         instances.erase(i);
         return;
      }
}

boost::shared_ptr<ICIMClass> TInstance::GetClass(TContext)
{
   return fClass;
}

TCIMReference TInstance::GetReference(TContext)
{
   return TCIMReference(fClass->GetNamespace({}),
                        fClass->GetName({}) + ".@=" + std::to_string(fNumber), {});
}

class TStore : public ICIMNamespace,
               public INamespaceProvider,
               public boost::enable_shared_from_this<TStore>
{
public:
   explicit TStore(std::string folder) : fFolder(std::move(folder)) {}

   boost::shared_ptr<INamespaceProvider> GetProvider(TContext) override
   {
      return shared_from_this();
   }

   int GetProviderType(TContext) override { return 0; }  // one collection, no comparison

   // Every class is there, one without a file is empty. A store that throws kStatusNotFound for a
   // class that it doesn't have must have those that reports take for granted (docs/embedding.md).
   boost::shared_ptr<ICIMClass> GetClass(const std::string& className, TContext) override
   {
      boost::shared_ptr<TClass>& known = fClasses[className];
      if (!known) {
         known = boost::make_shared<TClass>(shared_from_this(), className);
         known->Read(fFolder + '/' + className + ".csv");
      }
      return known;
   }

   boost::shared_ptr<ICIMInstance> GetInstance(const TCIMReference&, TContext) override
   {
      return {};
   }

private:
   std::string fFolder;
   std::map<std::string, boost::shared_ptr<TClass>> fClasses;
};

}  // namespace

boost::shared_ptr<ICIMNamespace> OpenCSVStore(const std::string& folder)
{
   return boost::make_shared<TStore>(folder);
}
