#pragma once

#include <string>

#include "CIMStore.h"

/// A folder of CSV files as a store: Class.csv is a class, its first line names the properties,
/// every other line is an instance. A class without a file has no instances; there are no
/// associations.
boost::shared_ptr<ICIMNamespace> OpenCSVStore(const std::string& folder);
