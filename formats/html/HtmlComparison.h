#pragma once

#include "html/HtmlFrame.h"

/// Writes the whole front page of a comparison: which systems, where one stands apart, and the
/// reports, those that differ most first.
void WriteComparisonFrontPage(THtmlSink& out, const THtmlSite& site);

/// Writes "2 differ, 1 missing, 1 unique", without what is not there.
void WriteDifferenceCounts(THtmlSink& out, const TPageDifferences& differences);
