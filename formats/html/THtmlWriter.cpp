#include "html/THtmlWriter.h"

#include "html/HtmlReport.h"

THtmlWriter::THtmlWriter(const THtmlOptions& options)
   : TSinkWriter(std::make_unique<THtmlReport>(options), "html", options.fBaseDirectory,
                 options.fComparedFiles, options.fCollection)
{}

THtmlWriter::~THtmlWriter() = default;

THtmlWriter_vmwesxi::THtmlWriter_vmwesxi(const THtmlOptions& options)
   : TSinkWriter_vmwesxi(std::make_unique<THtmlReport>(options), options.fCollection)
{}

THtmlWriter_vmwesxi::~THtmlWriter_vmwesxi() = default;
