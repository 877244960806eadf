#pragma once

#include <string>
#include <vector>

#include "html/HtmlFrame.h"

// Pages of the run as a whole that hold one table of fixed columns.

/// From the first byte to the sheet: the frame, the title and a sentence below it.
void WriteOwnPageBegin(THtmlSink& out, const THtmlSite& site, const std::string& title,
                       const std::string& file, const std::string& sentence);
void WriteOwnPageEnd(THtmlSink& out, const THtmlSite& site, const std::string& title);

struct TFixedColumn
{
   const char* fLabel;
   /// Units: percent of the table.
   unsigned fWidth;
};

/// From the table's begin to its first row. The rows are the caller's.
void WriteFixedTableBegin(THtmlSink& out, const std::string& name,
                          const std::vector<TFixedColumn>& columns);
void WriteFixedTableEnd(THtmlSink& out);
