#pragma once

#include "common/TSinkWriter.h"
#include "common/TSinkWriter_vmwesxi.h"
#include "html/HtmlOptions.h"

/// Writes a run as a folder of static HTML pages. The folder exists; what stands in it under the
/// same names is overwritten. Nothing is in it before the end of the run, but the texts that the
/// library itself writes.
class THtmlWriter : public TSinkWriter
{
public:
   explicit THtmlWriter(const THtmlOptions& options);
   virtual ~THtmlWriter();
};

/// The same for the collection of a hypervisor.
class THtmlWriter_vmwesxi : public TSinkWriter_vmwesxi
{
public:
   explicit THtmlWriter_vmwesxi(const THtmlOptions& options);
   virtual ~THtmlWriter_vmwesxi();
};
