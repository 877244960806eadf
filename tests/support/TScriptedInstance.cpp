#include "support/TScriptedInstance.h"

#include <boost/make_shared.hpp>

namespace {

/// A declaration without qualifiers.
class TScriptedDecl : public ICIMPropertyDecl
{
public:
   explicit TScriptedDecl(std::string name) : fName(std::move(name)) {}

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

class TScriptedPropertyView : public ICIMProperty
{
public:
   TScriptedPropertyView(std::string name, TScriptedProperty property)
      : fName(std::move(name)), fProperty(std::move(property))
   {}

   TCIMValue::TCIMType GetType(TContext) override { return fProperty.fValue.GetType(); }

   bool IsArray(TContext) override { return fProperty.fValue.IsArray(); }

   const TCIMValue& GetValue(TContext) override { return fProperty.fValue; }

   void SetValue(const TCIMValue& value, TContext) override { fProperty.fValue = value; }

   boost::shared_ptr<const ICIMPropertyDecl> GetDecl(TContext) override
   {
      return boost::make_shared<TScriptedDecl>(fName);
   }

   const TCIMValue& GetValue() override { return fProperty.fRawValue; }

   bool HasValue() override { return !fProperty.fValue.IsNull(); }

   std::string GetValueString() override { return fProperty.fValue.ToString(10); }

   std::string GetRawValueString() override { return fProperty.fRawValue.ToString(10); }

   std::vector<std::string> GetValueStrings() override { return {GetValueString()}; }

private:
   std::string fName;
   TScriptedProperty fProperty;
};

}  // namespace

int TScriptedInstance::CountReads(const std::string& name) const
{
   const auto reads = fReads.find(name);
   return reads == fReads.end() ? 0 : reads->second;
}

boost::shared_ptr<ICIMProperty> TScriptedInstance::GetProperty(const std::string& name, TContext)
{
   ++fReads[name];
   const auto property = fProperties.find(name);
   if (property == fProperties.end())
      throw TQSXException(kStatusNotFound);
   if (property->second.fFailure != 0)
      throw TQSXException(property->second.fFailure);
   return boost::make_shared<TScriptedPropertyView>(name, property->second);
}
