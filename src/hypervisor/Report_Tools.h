#pragma once

#include <string>
#include <vector>

#include "CIMStore.h"
#include "QSXExport.h"

// Free functions of the hypervisor's writers; each does what the member of TWriter of its name
// does.

/// Throws: any status but "not found" of the instance's own property.
QSX_API std::vector<boost::shared_ptr<ICIMProperty>> GetProperties(boost::shared_ptr<ICIMInstance> instance,
                                                           const std::string& propertyName,
                                                           const std::string& assocClass,
                                                           const std::string& assocTarget);

/// Throws: TQSXException of any status but "not found".
QSX_API std::string GetDisplayName(boost::shared_ptr<const ICIMPropertyDecl> decl);

/// The flag has no effect.
QSX_API std::string GetDateTime(const TCIMValue& value, bool noTimePrecision);
