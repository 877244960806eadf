#pragma once

#include <vector>

#include "html/HtmlPage.h"
#include "html/HtmlSink.h"

/// Writes a section with at most ten things in which most systems agree and some stand apart; of
/// two systems, in which they differ. pages: those that differ most first.
/// Missing: nothing where no system stands apart.
void WriteOutliers(THtmlSink& out, const THtmlSystems& systems,
                   const std::vector<const THtmlPage*>& pages);
