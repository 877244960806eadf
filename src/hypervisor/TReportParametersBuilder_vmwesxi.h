#pragma once

#include <string>

#include "CIMStore.h"
#include "QSXExport.h"
#include "definitions/TReportParameters.h"

/// The fixed catalogue of reports on a hypervisor. No definition depends on the collection.
///
/// Owner: a value that shares the namespace handle; each definition is made afresh.
class QSX_API TReportParametersBuilder_vmwesxi
{
public:
   TReportParametersBuilder_vmwesxi(boost::shared_ptr<ICIMNamespace> cimNamespace,
                                    std::string mode);

   TReportParameters BuildSystemOverviewParams();
   TReportParameters BuildHardwareInventoryParams();
   TReportParameters BuildRegisteredProfileParams();
   TReportParameters BuildHealthStatusParams();
   TReportParameters BuildVMwarePrivilegeLogParams();

   /// The class, read in the first namespace. Throws: as the store does.
   boost::shared_ptr<ICIMClass> GetClass(std::string name);

private:
   boost::shared_ptr<ICIMNamespace> fNamespace;
   std::string fMode;
};
