#pragma once

#include <string>
#include <vector>

#include "CIMStore.h"

// Free functions of the hypervisor's writers; each does what the member of TWriter of its name
// does.

/// Throws: any status but "not found" of the instance's own property.
std::vector<boost::shared_ptr<ICIMProperty>> GetProperties(boost::shared_ptr<ICIMInstance> instance,
                                                           const std::string& propertyName,
                                                           const std::string& assocClass,
                                                           const std::string& assocTarget);

/// Throws: TQSXException of any status but "not found".
std::string GetDisplayName(boost::shared_ptr<const ICIMPropertyDecl> decl);

/// The flag has no effect.
std::string GetDateTime(const TCIMValue& value, bool noTimePrecision);
