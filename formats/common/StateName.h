#pragma once

#include "common/StateWords.h"

/// The name of a state for programs: "ok", "unknown", "attention", "failed". Missing: null for
/// kNone.
const char* GetStateName(EState state);
