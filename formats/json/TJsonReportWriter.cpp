#include "json/TJsonReportWriter.h"

#include "json/JsonReport.h"

TJsonReportWriter::TJsonReportWriter(const TDocumentOptions& options)
   : TSinkWriter(std::make_unique<TJsonReport>(options, kOneFileName), "html",
                 options.fBaseDirectory, options.fComparedFiles, options.fCollection)
{}

TJsonReportWriter::~TJsonReportWriter() = default;

TJsonReportWriter_vmwesxi::TJsonReportWriter_vmwesxi(const TDocumentOptions& options)
   : TSinkWriter_vmwesxi(std::make_unique<TJsonReport>(options, TJsonReportWriter::kOneFileName),
                         options.fCollection)
{}

TJsonReportWriter_vmwesxi::~TJsonReportWriter_vmwesxi() = default;
