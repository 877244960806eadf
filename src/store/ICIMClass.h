#pragma once

#include <string>

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>

#include "QSXExport.h"
#include "TCIMValue.h"

namespace NZANQSX20 {

class ICIMInstance;
class ICIMNamespace;
class ICIMPropertyDecl;

/// A class of the store.
///
/// Owner:   names are valid as long as the handle on which they were asked.
/// Missing: an enumeration of nothing makes no callback and raises nothing. The store is not called
///          from inside a callback, and every callback returns true.
class QSX_API ICIMClass
{
public:
   virtual ~ICIMClass() = default;

   virtual const std::string& GetName(TContext context) = 0;

   virtual boost::shared_ptr<ICIMNamespace> GetNamespace(TContext context) = 0;

   /// One call per subclass; deep includes the subclasses of subclasses.
   virtual void EnumerateSubclasses(boost::function<bool(boost::shared_ptr<ICIMClass>)> callback,
                                    bool deep, TContext context) = 0;

   /// The classes that the associations of this class lead to; an empty text is no filter.
   virtual void EnumerateAssociatedClasses(
      boost::function<bool(boost::shared_ptr<ICIMClass>)> callback, const std::string& assocClass,
      const std::string& resultClass, const std::string& role, const std::string& resultRole,
      TContext context) = 0;

   /// The declaration, inherited ones included. Throws: status 15 when there is none.
   virtual boost::shared_ptr<const ICIMPropertyDecl> GetPropertyDecl(const std::string& name,
                                                                     TContext context) = 0;

   /// A new instance, which the store lists only after Save.
   virtual boost::shared_ptr<ICIMInstance> CreateInstance(TContext context) = 0;

   /// One call per instance in the store's own order; deep includes instances of subclasses,
   /// otherwise only those of exactly this class.
   virtual void EnumerateInstances(boost::function<bool(boost::shared_ptr<ICIMInstance>)> callback,
                                   bool deep, TContext context) = 0;
};

}  // namespace NZANQSX20
