#include "text/TTextReportWriter.h"

#include "text/TextReport.h"

TTextReportWriter::TTextReportWriter(const TDocumentOptions& options)
   : TSinkWriter(std::make_unique<TTextReport>(options, kOneFileName), "html",
                 options.fBaseDirectory, options.fComparedFiles, options.fCollection)
{}

TTextReportWriter::~TTextReportWriter() = default;

TTextReportWriter_vmwesxi::TTextReportWriter_vmwesxi(const TDocumentOptions& options)
   : TSinkWriter_vmwesxi(std::make_unique<TTextReport>(options, TTextReportWriter::kOneFileName),
                         options.fCollection)
{}

TTextReportWriter_vmwesxi::~TTextReportWriter_vmwesxi() = default;
