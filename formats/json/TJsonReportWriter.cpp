#include "json/TJsonReportWriter.h"

#include "json/JsonReport.h"

TJsonReportWriter::TJsonReportWriter(const TDocumentOptions& options)
   : TSinkWriter(std::make_unique<TJsonReport>(options, kOneFileName), "html",
                 options.fBaseDirectory, options.fComparedFiles)
{}

TJsonReportWriter::~TJsonReportWriter() = default;

TJsonReportWriter_vmwesxi::TJsonReportWriter_vmwesxi(const TDocumentOptions& options)
   : TSinkWriter_vmwesxi(std::make_unique<TJsonReport>(options, TJsonReportWriter::kOneFileName))
{}

TJsonReportWriter_vmwesxi::~TJsonReportWriter_vmwesxi() = default;
