#pragma once

#include "html/HtmlFrame.h"

/// What readers call the page.
std::string GetPageTitle(const THtmlPage& page, const TReportIndex::TPlace& place);

/// Writes all files of a report's page: frame, title, list of tables, and the body from the spool.
/// Throws: TOutputError.
void WriteReportPage(const std::string& outputDirectory, const THtmlSite& site, std::size_t page,
                     const TReportIndex::TPlace& place, TOutputFile& spool);
