#pragma once

#include <string>

#include "reliability/TFaultStore.h"
#include "reliability/TOutcome.h"

/// What a fault must not change, by the same run without one. Missing: the empty text when all is
/// as it should be.
std::string FindWrong(const TFault& fault, const TOutcome& outcome, const TOutcome& reference);
