#include "trace/TTraceWriter_vmwesxi.h"

TTraceWriter_vmwesxi::TTraceWriter_vmwesxi(const std::string& outputDirectory)
   : TTraceOutput(outputDirectory)
{}

void TTraceWriter_vmwesxi::WriteSystemOverviewReport(TReportParameters params)
{
   WriteReport("WriteSystemOverviewReport", params);
}

void TTraceWriter_vmwesxi::WriteHardwareInventoryReport(TReportParameters params)
{
   WriteReport("WriteHardwareInventoryReport", params);
}

void TTraceWriter_vmwesxi::WriteRegisteredProfileReport(TReportParameters params)
{
   WriteReport("WriteRegisteredProfileReport", params);
}

void TTraceWriter_vmwesxi::WriteHealthStatusReport(TReportParameters params)
{
   WriteReport("WriteHealthStatusReport", params);
}

void TTraceWriter_vmwesxi::WritePrivilegeLogReport(TReportParameters params)
{
   WriteReport("WritePrivilegeLogReport", params);
}

void TTraceWriter_vmwesxi::WriteReport(const std::string& operation,
                                       const TReportParameters& params)
{
   fFile.WriteOperation(operation, params);
   WriteGenericReport(params);
}
