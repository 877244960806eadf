#pragma once

#include <map>
#include <string>

#include "CIMStore.h"
#include "QSXExport.h"

class TWriter_vmwesxi;

/// One run over the collection of a hypervisor: five reports in three groups, always the same.
class QSX_API TReport_vmwesxi
{
public:
   /// Run parameter: "mode" (its text replaces "default").
   TReport_vmwesxi(boost::shared_ptr<ICIMNamespace> cimNamespace,
                   std::map<std::string, TCIMValue> params, std::string outputDirectory);

   /// The whole run. No group is closed. Throws: what a report of the writer throws.
   void Write(TWriter_vmwesxi* writer, std::map<std::string, TCIMValue> params);

private:
   boost::shared_ptr<ICIMNamespace> fNamespace;
   std::string fOutputDirectory;
   std::string fMode = "default";
};
