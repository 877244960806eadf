#pragma once

#include "common/DocumentOptions.h"
#include "common/TSinkWriter.h"
#include "common/TSinkWriter_vmwesxi.h"

/// Writes a run as JSON documents, one per report and an index; docs/report.schema.json tells their
/// form. The folder exists; what stands in it under the same names is overwritten.
class TJsonReportWriter : public TSinkWriter
{
public:
   /// The documents in one file, a line each, the index last.
   static constexpr const char* kOneFileName = "report.ndjson";

   explicit TJsonReportWriter(const TDocumentOptions& options);
   virtual ~TJsonReportWriter();
};

/// The same for the collection of a hypervisor.
class TJsonReportWriter_vmwesxi : public TSinkWriter_vmwesxi
{
public:
   explicit TJsonReportWriter_vmwesxi(const TDocumentOptions& options);
   virtual ~TJsonReportWriter_vmwesxi();
};
