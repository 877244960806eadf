#pragma once

#include "common/CollectionFacts.h"
#include "common/Gaps.h"
#include "common/ReportIndex.h"
#include "common/health/HealthLedger.h"

// Findings that come from no report.

/// What was repaired is told, and is no trouble.
void TellCorrections(THealthLedger& ledger, const std::vector<TCorrection>& corrections);

/// What could not be had, and how many reports nobody looked at: both are unknown.
void TellGaps(THealthLedger& ledger, const TReportIndex& index, const std::vector<TGap>& gaps);
