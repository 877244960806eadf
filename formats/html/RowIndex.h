#pragma once

#include <vector>

#include "html/HtmlFrame.h"
#include "html/RowFiles.h"

/// Writes rows/index.js, which tells the search how many row files there are, and file and title of
/// each page: qsxPages(files, [[stem, title], ...]). Throws: TOutputError.
void WriteRowIndex(const TRowFiles& rowFiles, const THtmlSite& site,
                   const std::vector<TReportIndex::TPlace>& places);
