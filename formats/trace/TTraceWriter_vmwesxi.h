#pragma once

#include "hypervisor/TWriter_vmwesxi.h"
#include "trace/TTraceOutput.h"

/// Records the output operations of a hypervisor's run, as TTraceWriter does for a server's.
class TTraceWriter_vmwesxi : public TTraceOutput<TWriter_vmwesxi>
{
public:
   /// Throws: TOutputError when the file can't be created in the directory.
   explicit TTraceWriter_vmwesxi(const std::string& outputDirectory);
   virtual ~TTraceWriter_vmwesxi() = default;

   // Nothing calls these.
   void ReservedOperation14() override {}

   void ReservedOperation15() override {}

   void ReservedOperation16() override {}

   void ReservedOperation17() override {}

   // Each report is recorded with its definition, then written as a generic one.
   void WriteSystemOverviewReport(TReportParameters params) override;
   void WriteHardwareInventoryReport(TReportParameters params) override;
   void WriteRegisteredProfileReport(TReportParameters params) override;
   void WriteHealthStatusReport(TReportParameters params) override;
   void WritePrivilegeLogReport(TReportParameters params) override;

private:
   void WriteReport(const std::string& operation, const TReportParameters& params);
};
