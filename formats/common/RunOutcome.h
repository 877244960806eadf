#pragma once

#include <optional>
#include <string>
#include <vector>

#include "common/CollectionFacts.h"
#include "common/Gaps.h"
#include "common/RunFacts.h"
#include "common/health/Health.h"

/// What a run says of the machine as a whole, for whoever writes it down.
struct TRunOutcome
{
   TRunFacts fFacts;
   /// Missing: nothing in a comparison.
   std::optional<THealth> fHealth;
   std::vector<TGap> fGaps;
   /// Missing: nothing where nobody recorded them.
   std::optional<std::vector<TCorrection>> fCorrections;
};
