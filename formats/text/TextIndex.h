#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "common/DocumentOptions.h"
#include "common/OutputFile.h"
#include "common/ReportSink.h"

/// What the front of a text report tells.
struct TTextIndex
{
   const TDocumentOptions& fOptions;
   const TRunFacts& fFacts;
   /// Missing: null where nothing was judged.
   const THealth* fHealth;
   const TReportIndex& fIndex;
   /// The file of each page. Missing: empty where all is one file.
   std::vector<std::string> fFiles;
};

/// The system, its health with what is wrong first, and the list of reports.
void WriteTextIndex(TOutputFile& file, const TTextIndex& index);

/// A heading with a line below it and a blank one behind.
void WriteTextHeading(TOutputFile& file, std::string_view text, char underline);

/// A text in lines that fit, each with the indent ahead.
void WriteTextLines(TOutputFile& file, std::string_view text, std::size_t indent = 0);
