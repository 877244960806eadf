#include "hypervisor/Report_Tools.h"

#include "writer/InstanceAccess.h"
#include "writer/ValueText.h"

std::vector<boost::shared_ptr<ICIMProperty>> GetProperties(boost::shared_ptr<ICIMInstance> instance,
                                                           const std::string& propertyName,
                                                           const std::string& assocClass,
                                                           const std::string& assocTarget)
{
   TProperties properties;
   AddProperties(instance, propertyName, assocClass, assocTarget, properties);
   return properties;
}

std::string GetDisplayName(boost::shared_ptr<const ICIMPropertyDecl> decl)
{
   return MakeDisplayName(decl);
}

std::string GetDateTime(const TCIMValue& value, bool)
{
   return MakeDateTimeText(value);
}
