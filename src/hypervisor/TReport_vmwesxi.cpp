#include "hypervisor/TReport_vmwesxi.h"

#include <utility>

#include "hypervisor/TReportParametersBuilder_vmwesxi.h"
#include "hypervisor/TWriter_vmwesxi.h"

TReport_vmwesxi::TReport_vmwesxi(boost::shared_ptr<ICIMNamespace> cimNamespace,
                                 std::map<std::string, TCIMValue> params,
                                 std::string outputDirectory)
   : fNamespace(std::move(cimNamespace)), fOutputDirectory(std::move(outputDirectory))
{
   const auto mode = params.find("mode");
   if (mode != params.end())
      fMode = static_cast<std::string>(mode->second);
}

void TReport_vmwesxi::Write(TWriter_vmwesxi* writer, std::map<std::string, TCIMValue> params)
{
   TReportParametersBuilder_vmwesxi builder(fNamespace, fMode);
   writer->Initialize(fNamespace, params, fOutputDirectory);
   writer->BeginIndex();

   writer->BeginIndexGroup("Software");
   writer->WriteSystemOverviewReport(builder.BuildSystemOverviewParams());

   writer->BeginIndexGroup("Hardware");
   writer->WriteHardwareInventoryReport(builder.BuildHardwareInventoryParams());
   writer->WriteRegisteredProfileReport(builder.BuildRegisteredProfileParams());
   writer->WriteHealthStatusReport(builder.BuildHealthStatusParams());

   writer->BeginIndexGroup("Log");
   writer->WritePrivilegeLogReport(builder.BuildVMwarePrivilegeLogParams());

   writer->EndIndex();
}
