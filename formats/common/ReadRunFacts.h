#pragma once

#include "CIMStore.h"
#include "common/RunFacts.h"

/// Reads the facts of a collection; what can't be read stays empty.
TRunFacts ReadRunFacts(const boost::shared_ptr<ICIMNamespace>& cimNamespace);
