#include "html/THtmlWriter.h"

#include "common/ThreadedSink.h"
#include "html/HtmlReport.h"

namespace {

std::unique_ptr<TReportSink> MakeSink(const THtmlOptions& options)
{
   return std::make_unique<TThreadedSink>(std::make_unique<THtmlReport>(options));
}

}  // namespace

THtmlWriter::THtmlWriter(const THtmlOptions& options)
   : TSinkWriter(MakeSink(options), "html", options.fBaseDirectory, options.fComparedFiles,
                 options.fCollection)
{}

THtmlWriter::~THtmlWriter() = default;

THtmlWriter_vmwesxi::THtmlWriter_vmwesxi(const THtmlOptions& options)
   : TSinkWriter_vmwesxi(MakeSink(options), options.fCollection)
{}

THtmlWriter_vmwesxi::~THtmlWriter_vmwesxi() = default;
