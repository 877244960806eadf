#pragma once

#include <string>
#include <vector>

#include "html/RowFiles.h"

/// A page as the search tells of it.
struct TSearchedPage
{
   std::string fFileStem;
   std::string fTitle;
};

/// Writes rows/index.js, which tells the search how many row files there are, and file and title of
/// each page: qsxPages(files, [[stem, title], ...]). Throws: TOutputError.
void WriteRowIndex(const TRowFiles& rowFiles, const std::vector<TSearchedPage>& pages);
