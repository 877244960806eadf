#include "html/THtmlWriter.h"

#include "html/HtmlReport.h"

THtmlWriter::THtmlWriter(const THtmlOptions& options)
   : TSinkWriter(std::make_unique<THtmlReport>(options), "html", options.fBaseDirectory,
                 options.fComparedFiles)
{}

THtmlWriter::~THtmlWriter() = default;

THtmlWriter_vmwesxi::THtmlWriter_vmwesxi(const THtmlOptions& options)
   : TSinkWriter_vmwesxi(std::make_unique<THtmlReport>(options))
{}

THtmlWriter_vmwesxi::~THtmlWriter_vmwesxi() = default;
