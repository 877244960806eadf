#pragma once

#include "writer/RawDataFiles.h"
#include "writer/TWriter.h"

/// Where a raw-data page lies, what it is called, and its place between other pages.
struct TRawDataPage
{
   const char* fLinkName;
   const char* fTitle;
   /// What the standard page shows as its link here.
   const char* fLinkText;
   /// The standard page.
   const char* fBackLink;
   const char* fFileStem;
};

/// Writes the page of the commands, with the raw output of each in a file beside it, and fills the
/// link to it. Missing: without instances neither page nor link.
/// Throws: what WriteRawDataFiles throws; the page is then not closed.
void WriteRawDataPage(TWriter& writer, const std::string& outputDirectory, const TRawDataPage& page,
                      const TWriter::TInstances& commands, std::string& linkText,
                      std::string& linkTarget);
