#pragma once

#include <string>
#include <vector>

#include "hypervisor/TWriter_vmwesxi.h"
#include "support/GridLines.h"

/// Writes down titles, grids and the index of a hypervisor's run.
class TRecordingWriter_vmwesxi : public TWriter_vmwesxi
{
public:
   std::vector<std::string> fLines;

   void Initialize(boost::shared_ptr<ICIMNamespace> cimNamespace, TContext,
                   std::string outputDirectory) override
   {
      fNamespace = cimNamespace;
      fOutputDirectory = outputDirectory;
   }

   void BeginIndex() override { fLines.push_back("BeginIndex"); }

   void EndIndexGroup() override { fLines.push_back("EndIndexGroup"); }

   void BeginIndexGroup(std::string heading) override { fLines.push_back(heading + ":"); }

   void EndIndex() override { fLines.push_back("EndIndex"); }

   void OpenReportFile(std::string path) override { fLines.push_back(path); }

   void CloseReportFile() override {}

   void BeginReportBody() override {}

   void EndReportBody() override {}

   void WriteReportTitle(std::string title, std::string, std::string) override
   {
      fLines.push_back("== " + title);
   }

   void WriteIndexEntry(std::string linkName, std::string, const bool& hasData) override
   {
      fLines.push_back(linkName + (hasData ? "" : " without data"));
   }

   void WriteTableTitle(std::string title, const bool&, const bool&) override
   {
      fLines.push_back("-- " + title);
   }

   void WriteGrid(TTableGrid* grid) override { AddGridLines(*grid, fLines); }

   void ReservedOperation14() override {}

   void ReservedOperation15() override {}

   void ReservedOperation16() override {}

   void ReservedOperation17() override {}

   std::string GetArrayValueSeparatorText(TReportProperty::ArrayValueSeparator) override
   {
      return ", ";
   }

   std::string EncodeValueText(std::string text) override { return text; }

   void WriteSystemOverviewReport(TReportParameters params) override { WriteGenericReport(params); }

   void WriteHardwareInventoryReport(TReportParameters params) override
   {
      WriteGenericReport(params);
   }

   void WriteRegisteredProfileReport(TReportParameters params) override
   {
      WriteGenericReport(params);
   }

   void WriteHealthStatusReport(TReportParameters params) override { WriteGenericReport(params); }

   void WritePrivilegeLogReport(TReportParameters params) override { WriteGenericReport(params); }
};
