#pragma once

#include <memory>
#include <optional>

#include "common/ReportFlow.h"
#include "common/health/HealthJudge.h"
#include "hypervisor/TWriter_vmwesxi.h"

/// TSinkWriter for the collection of a hypervisor.
class TSinkWriter_vmwesxi : public TWriter_vmwesxi
{
public:
   void Initialize(boost::shared_ptr<ICIMNamespace> cimNamespace, TContext params,
                   std::string outputDirectory) override;

   void BeginIndex() override {}

   void EndIndexGroup() override;
   void BeginIndexGroup(std::string heading) override;
   void EndIndex() override;
   void OpenReportFile(std::string path) override;
   void CloseReportFile() override;

   void BeginReportBody() override {}

   void EndReportBody() override;
   void WriteReportTitle(std::string title, std::string linkText, std::string linkTarget) override;
   void WriteIndexEntry(std::string linkName, std::string displayName,
                        const bool& hasData) override;
   void WriteTableTitle(std::string title, const bool& subTitle, const bool& emphasised) override;
   void WriteGrid(TTableGrid* grid) override;

   void ReservedOperation14() override {}

   void ReservedOperation15() override {}

   void ReservedOperation16() override {}

   void ReservedOperation17() override {}

   std::string GetArrayValueSeparatorText(TReportProperty::ArrayValueSeparator separator) override;
   std::string EncodeValueText(std::string text) override;
   void WriteSystemOverviewReport(TReportParameters params) override;
   void WriteHardwareInventoryReport(TReportParameters params) override;
   void WriteRegisteredProfileReport(TReportParameters params) override;
   void WriteHealthStatusReport(TReportParameters params) override;
   void WritePrivilegeLogReport(TReportParameters params) override;

protected:
   explicit TSinkWriter_vmwesxi(std::unique_ptr<TReportSink> sink,
                                TCollectionFacts collection = {});
   ~TSinkWriter_vmwesxi() = default;

private:
   std::string ReadLabel(const std::string& className, const std::string& property);

   std::unique_ptr<TReportSink> fSink;
   const TCollectionFacts fCollection;
   std::optional<THealthJudge> fJudge;
   std::optional<TReportFlow> fFlow;
};
