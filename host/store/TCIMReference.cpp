#include "TCIMReference.h"

#include "ICIMClass.h"
#include "ICIMElement.h"
#include "ICIMInstance.h"
#include "ICIMNamespace.h"
#include "TQSXException.h"
#include "store/ObjectPath.h"

namespace NZANQSX20 {

TCIMReference::TCIMReference(boost::shared_ptr<ICIMNamespace> cimNamespace,
                             const std::string& classNameOrPath,
                             std::map<std::string, TCIMValue> keyBindingsOrContext)
   : fNamespace(std::move(cimNamespace))
{
   TObjectPath path;
   if (!TObjectPath::Parse(classNameOrPath, path)) {
      fClassName = classNameOrPath;
      fKeyBindings = std::move(keyBindingsOrContext);
      return;
   }
   fClassName = path.fClassName;
   fContext = std::move(keyBindingsOrContext);
   for (const TKeyBinding& key : path.fKeys)
      fKeyBindings[key.fName] = GetKeyValue(key);
}

TCIMReference::TCIMReference(boost::shared_ptr<ICIMNamespace> cimNamespace,
                             std::map<std::string, TCIMValue> context)
   : fNamespace(std::move(cimNamespace)), fContext(std::move(context))
{}

void TCIMReference::AddKeyValue(const std::string& key, const TCIMValue& value)
{
   fKeyBindings[key] = value;
}

void TCIMReference::EnumerateKeyBindings(
   const boost::function<bool(std::pair<std::string, TCIMValue>)>& callback) const
{
   for (const auto& keyBinding : fKeyBindings)
      callback(keyBinding);
}

std::string TCIMReference::GetPath() const
{
   std::string path = fClassName;
   bool isFirst = true;
   for (const auto& keyBinding : fKeyBindings) {
      bool isQuoted = false;
      const std::string text = GetKeyText(keyBinding.second, isQuoted);
      AppendKeyBinding(path, isFirst, keyBinding.first, text, isQuoted);
      isFirst = false;
   }
   return path;
}

boost::shared_ptr<ICIMClass> TCIMReference::GetClass() const
{
   if (!fNamespace)
      throw TQSXException(kStatusNotFound);
   return fNamespace->GetClass(fClassName, fContext);
}

boost::shared_ptr<ICIMElement> TCIMReference::GetCIMElement(bool) const
{
   if (!fNamespace)
      return boost::shared_ptr<ICIMElement>();
   return fNamespace->GetInstance(*this, fContext);
}

}  // namespace NZANQSX20
