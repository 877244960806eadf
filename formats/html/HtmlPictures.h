#pragma once

#include "html/HtmlFrame.h"

/// Writes what people would rather look at than read: use of memory and volumes, readings within
/// their limits, drive attributes.
/// Missing: a picture without data is left out, and nothing at all where there is none.
void WritePictures(THtmlSink& out, const THtmlSite& site, const THealth& health);
