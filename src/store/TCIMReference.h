#pragma once

#include <map>
#include <string>
#include <utility>

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>

#include "QSXExport.h"
#include "TCIMValue.h"

namespace NZANQSX20 {

class ICIMClass;
class ICIMElement;
class ICIMNamespace;

/// A CIM object path: a class and its key bindings, in a namespace.
///
/// Owner: a plain value that shares the namespace handle it was made with.
class QSX_API TCIMReference
{
public:
   /// With a class name, the map holds the key bindings. With an object path ("Class.Key=..."), the
   /// map is a context, and its "nsIndex" selects the namespace in which GetClass and GetCIMElement
   /// look.
   TCIMReference(boost::shared_ptr<ICIMNamespace> cimNamespace, const std::string& classNameOrPath,
                 std::map<std::string, TCIMValue> keyBindingsOrContext);

   /// A path without a class name, to be filled or assigned later.
   TCIMReference(boost::shared_ptr<ICIMNamespace> cimNamespace,
                 std::map<std::string, TCIMValue> context);

   const std::string& GetClassName() const { return fClassName; }

   void SetClassName(const std::string& className) { fClassName = className; }

   /// Adds a key binding; a key that is there already is replaced.
   void AddKeyValue(const std::string& key, const TCIMValue& value);

   /// One call per key binding, in byte order of the keys.
   void EnumerateKeyBindings(
      const boost::function<bool(std::pair<std::string, TCIMValue>)>& callback) const;

   /// The path as one text: equal paths of one instance give equal texts.
   std::string GetPath() const;

   /// The class of the path. Throws: status 15 when the namespace does not hold it.
   boost::shared_ptr<ICIMClass> GetClass() const;

   /// What the path names. Missing: an empty handle when nothing is there. The flag has no effect.
   boost::shared_ptr<ICIMElement> GetCIMElement(bool reserved) const;

   /// The namespace that the path was made in; empty for a blank path.
   const boost::shared_ptr<ICIMNamespace>& GetNamespace() const { return fNamespace; }

   /// The context in which the path is looked up.
   const TContext& GetContext() const { return fContext; }

private:
   boost::shared_ptr<ICIMNamespace> fNamespace;
   std::string fClassName;
   std::map<std::string, TCIMValue> fKeyBindings;
   TContext fContext;
};

}  // namespace NZANQSX20
