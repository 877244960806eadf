#pragma once

#include <cstddef>
#include <functional>
#include <string>

#include "html/HtmlSink.h"

/// The files of a page that is too large for one. Units: files count from 0.
struct THtmlParts
{
   /// What screen readers call the list.
   TMarkup fLabel;
   std::size_t fCount = 1;
   std::size_t fCurrent = 0;
   std::function<std::string(std::size_t file)> fGetFile;
   std::function<void(std::size_t file)> fWriteName;
};

/// Above the body: where the reader is, and all files by name. Missing: nothing for a single file.
void WritePartList(THtmlSink& out, const THtmlParts& parts);

/// Below the body: the next one. Missing: nothing for a single file.
void WritePartSteps(THtmlSink& out, const THtmlParts& parts);
