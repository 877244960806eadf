#pragma once

#include <map>
#include <string>

#include "CIMStore.h"

/// What one property of a scripted instance does.
struct TScriptedProperty
{
   TCIMValue fValue;
   /// The value without a context.
   TCIMValue fRawValue;
   /// Thrown by every read; 0 throws nothing.
   int fFailure = 0;
};

/// An instance without a store, for failures that no collection can bring about.
///
/// Throws: status 15 for a property that isn't scripted, status 1 for what no test needs.
class TScriptedInstance : public ICIMInstance
{
public:
   explicit TScriptedInstance(std::map<std::string, TScriptedProperty> properties)
      : fProperties(std::move(properties))
   {}

   /// How often the property was asked for.
   int CountReads(const std::string& name) const;

   void Save(TContext) override { throw TQSXException(1); }

   void Delete(TContext) override { throw TQSXException(1); }

   TCIMReference GetReference(TContext) override { throw TQSXException(1); }

   boost::shared_ptr<ICIMClass> GetClass(TContext) override { throw TQSXException(1); }

   void EnumerateAssociators(boost::function<bool(boost::shared_ptr<ICIMInstance>)>,
                             const std::string&, const std::string&, const std::string&,
                             const std::string&, TContext) override
   {
      throw TQSXException(1);
   }

   boost::shared_ptr<ICIMProperty> GetProperty(const std::string& name, TContext) override;

   void SetProperty(const std::string&, const TCIMValue&, TContext) override
   {
      throw TQSXException(1);
   }

   void EnumerateProperties(boost::function<bool(boost::shared_ptr<ICIMProperty>)>,
                            TContext) override
   {
      throw TQSXException(1);
   }

private:
   std::map<std::string, TScriptedProperty> fProperties;
   std::map<std::string, int> fReads;
};
