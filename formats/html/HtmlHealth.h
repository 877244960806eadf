#pragma once

#include "html/HtmlFrame.h"

/// Writes the verdict: a sentence, the tally and the table of subsystems, the worst first.
void WriteHealth(THtmlSink& out, const THtmlSite& site, const THealth& health);

/// The page that tells the rules.
constexpr const char* kRulesFile = "rules.html";
void WriteRulesPage(THtmlSink& out, const THtmlSite& site);
