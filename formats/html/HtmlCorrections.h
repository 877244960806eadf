#pragma once

#include "html/HtmlFrame.h"

constexpr const char* kCorrectionsTitle = "Corrections";

/// Writes the page of what was repaired ahead of reporting: which value, from, to, why.
void WriteCorrections(THtmlSink& out, const THtmlSite& site,
                      const std::vector<TCorrection>& corrections);
