#pragma once

#include <string>

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>

#include "ICIMElement.h"
#include "QSXExport.h"
#include "TCIMReference.h"
#include "TCIMValue.h"

namespace NZANQSX20 {

class ICIMClass;
class ICIMProperty;

/// An instance of the store. A handle stays valid after Delete; the store then no longer lists it.
class QSX_API ICIMInstance : public ICIMElement
{
public:
   /// Stores an instance made by ICIMClass::CreateInstance.
   virtual void Save(TContext context) = 0;

   /// Removes the instance, so that later enumerations no longer give it.
   virtual void Delete(TContext context) = 0;

   /// The object path of the instance.
   virtual TCIMReference GetReference(TContext context) = 0;

   virtual boost::shared_ptr<ICIMClass> GetClass(TContext context) = 0;

   /// One call per instance joined to this one, as by the CIM operation Associators; an empty text
   /// is no filter.
   virtual void EnumerateAssociators(
      boost::function<bool(boost::shared_ptr<ICIMInstance>)> callback,
      const std::string& assocClass, const std::string& resultClass, const std::string& role,
      const std::string& resultRole, TContext context) = 0;

   /// The property. Throws: status 15 when the instance has none of that name.
   virtual boost::shared_ptr<ICIMProperty> GetProperty(const std::string& name,
                                                       TContext context) = 0;

   /// Sets a value; a name that the class does not declare becomes a property of this instance.
   virtual void SetProperty(const std::string& name, const TCIMValue& value, TContext context) = 0;

   /// One call per property.
   virtual void EnumerateProperties(boost::function<bool(boost::shared_ptr<ICIMProperty>)> callback,
                                    TContext context) = 0;
};

}  // namespace NZANQSX20
