#pragma once

#include "common/DocumentOptions.h"
#include "common/TSinkWriter.h"
#include "common/TSinkWriter_vmwesxi.h"

/// Writes a run as plain text for a terminal or a mail: lines of 100 columns at most, no control
/// bytes but line feeds. A file per report and an index. The folder exists; what stands in it under
/// the same names is overwritten.
class TTextReportWriter : public TSinkWriter
{
public:
   /// All in one file, the index first.
   static constexpr const char* kOneFileName = "report.txt";

   explicit TTextReportWriter(const TDocumentOptions& options);
   virtual ~TTextReportWriter();
};

/// The same for the collection of a hypervisor.
class TTextReportWriter_vmwesxi : public TSinkWriter_vmwesxi
{
public:
   explicit TTextReportWriter_vmwesxi(const TDocumentOptions& options);
   virtual ~TTextReportWriter_vmwesxi();
};
