#pragma once

#include "html/HtmlFrame.h"

/// Writes the whole front page: which system, and the reports by groups.
void WriteFrontPage(THtmlSink& out, const THtmlSite& site);
