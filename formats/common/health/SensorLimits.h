#pragma once

#include <map>
#include <string>

#include "CIMStore.h"
#include "common/health/Health.h"

/// The limits of the sensors of a name.
using TSensorLimitsByName = std::map<std::string, TSensorLimits>;

/// Reads the limits of all sensors; no report shows them.
///
/// Units:   those of the readings, with the modifier applied.
/// Missing: sensors that share a name and differ in their limits have none. Limits of which the
/// lower is not below the upper are none, and so is an upper
///          one of 0: drivers tell these where they know nothing.
TSensorLimitsByName ReadSensorLimits(const boost::shared_ptr<ICIMNamespace>& cimNamespace);
