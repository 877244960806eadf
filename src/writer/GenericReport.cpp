#include <algorithm>

#include "writer/MemoryModuleTables.h"
#include "writer/ReportTables.h"
#include "writer/TWriter.h"
#include "writer/WriterLog.h"

namespace {

/// Reads a property of both instances as text and tells whether the first is less, byte by byte.
bool IsLess(ICIMInstance& a, ICIMInstance& b, const std::string& propertyName)
{
   const auto read = [&propertyName](ICIMInstance& instance) {
      return static_cast<std::string>(instance.GetProperty(propertyName, {})->GetValue(TContext()));
   };
   return read(a) < read(b);
}

}  // namespace

bool ps_comp_name(boost::shared_ptr<ICIMInstance> a, boost::shared_ptr<ICIMInstance> b)
{
   return IsLess(*a, *b, "Name");
}

bool ps_comp_type(boost::shared_ptr<ICIMInstance> a, boost::shared_ptr<ICIMInstance> b)
{
   return IsLess(*a, *b, "Type");
}

std::vector<boost::shared_ptr<ICIMInstance>> PSResultSort(
   std::vector<boost::shared_ptr<ICIMInstance>>& instances)
{
   auto sorted = instances;
   std::stable_sort(sorted.begin(), sorted.end(), ps_comp_name);
   std::stable_sort(sorted.begin(), sorted.end(), ps_comp_type);
   return sorted;
}

void WriteGenericReport(TWriter* writer, bool comparing, TReportParameters params)
{
   if (comparing)
      writer->WriteGenericDeltaReport(std::move(params));
   else
      writer->WriteGenericReport(std::move(params));
}

void TWriter::WriteGenericReport(TReportParameters params)
{
   LogTrace("Entering TWriter::WriteGenericReport");
   OpenReportFile(fOutputDirectory + TOSSpecific::kFileSeparator + params.GetLinkName());
   WriteReportPreamble();
   BeginReportBody();
   if (params.ShowReportTitle())
      WriteReportTitle(params.GetReportName(), "", "");

   bool hasData = false;
   for (const TReportClass& reportClass : params.GetClasses()) {
      TInstances instances = GetInstances(reportClass);
      if (instances.empty())
         continue;
      hasData = true;
      if (reportClass.GetClass() == "ZANSG_PSResult")
         instances = PSResultSort(instances);
      if (reportClass.GetClass() == "ZANSG_SPDData")
         WriteMemoryModuleTables(*this, reportClass, instances);
      else
         WriteTable(reportClass, std::move(instances), true, false, {});
   }

   EndReportBody();
   CloseReportFile();
   WriteIndexEntry(params.GetLinkName(), params.GetReportName(), hasData);
   LogTrace("Exiting TWriter::WriteGenericReport");
}

void TWriter::WriteGenericReportWithLink(TReportParameters params, const std::string& rawLinkName)
{
   // The log lines are those of WriteGenericReport. That is meant.
   LogTrace("Entering TWriter::WriteGenericReport");
   OpenReportFile(fOutputDirectory + TOSSpecific::kFileSeparator + params.GetLinkName());
   BeginReportBody();
   const bool hasRawData =
      fOutputFormat == "html" && fMode == TReportParametersBuilder::kServiceMode;
   WriteReportTitle(params.GetReportName(), hasRawData ? " - [Show Rawdata Report]" : "",
                    hasRawData ? rawLinkName : "");

   const bool hasData = WriteReportTables(*this, params);
   EndReportBody();
   CloseReportFile();
   WriteIndexEntry(params.GetLinkName(), params.GetReportName(), hasData);
   LogTrace("Exiting TWriter::WriteGenericReport");
}
