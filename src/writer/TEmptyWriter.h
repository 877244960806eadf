#pragma once

#include <string>
#include <utility>

#include "writer/TWriter.h"

/// A writer that writes nothing: a writer of one's own derives from it and overrides what its form
/// has. The state of the run is set, logs are rendered as generic reports, texts stay as they are.
///
/// Owner: as TWriter, it has no virtual destructor; the class that derives from it is final.
class TEmptyWriter : public TWriter
{
public:
   void Initialize(boost::shared_ptr<ICIMNamespace> cimNamespace, TContext params,
                   std::string outputDirectory) override
   {
      fNamespace = std::move(cimNamespace);
      fOutputDirectory = std::move(outputDirectory);
      const auto mode = params.find("mode");
      fMode = mode != params.end() ? mode->second.ToString(10) : "default";
   }

   std::string GetArrayValueSeparatorText(TReportProperty::ArrayValueSeparator) override
   {
      return ", ";
   }

   std::string EncodeValueText(std::string text) override { return text; }

   void WriteEventLogReport(TReportParameters params) override { WriteGenericReport(params); }

   void WriteMergedLogReport(TReportParameters params) override { WriteGenericReport(params); }

   void BeginIndex() override {}

   void EndIndex() override {}

   void BeginIndexGroup(std::string) override {}

   void EndIndexGroup() override {}

   void WriteIndexEntry(std::string, std::string, const bool&) override {}

   void OpenReportFile(std::string) override {}

   void CloseReportFile() override {}

   void WriteReportPreamble() override {}

   void BeginReportBody() override {}

   void EndReportBody() override {}

   void WriteReportTitle(std::string, std::string, std::string) override {}

   void WriteRawDataLink(std::string&, std::string&) override {}

   void WriteTableTitle(std::string, const bool&, const bool&) override {}

   void WriteTableBreak() override {}

   void WriteGrid(TTableGrid*) override {}

   void BeginColumnTable(std::string, std::string, bool) override {}

   void BeginRowTable(std::string, std::string, std::string) override {}

   void EndTableHeader() override {}

   void BeginTableRow(const bool&) override {}

   void EndTableRow() override {}

   void EndTable() override {}

   void WriteHeaderCell(boost::shared_ptr<ICIMClass>, TReportProperty) override {}

   void WriteHeaderTextCell(std::string, TReportProperty) override {}

   void WriteDeclHeaderCell(boost::shared_ptr<const ICIMPropertyDecl>) override {}

   void WriteValueCell(boost::shared_ptr<ICIMInstance>, TReportProperty) override {}

   void WriteTextCell(TReportProperty, std::string) override {}

   void WriteNumericSensorCell(boost::shared_ptr<ICIMInstance>, TReportProperty) override {}

   void WritePropertyValueCell(boost::shared_ptr<ICIMInstance>,
                               boost::shared_ptr<ICIMProperty>) override
   {}

   void WriteRegisterValueCell(boost::shared_ptr<ICIMInstance>,
                               boost::shared_ptr<ICIMProperty>) override
   {}

   void WriteRawDataCell(boost::shared_ptr<ICIMProperty>) override {}

   void WriteEventLogTable(TInstances, std::string, std::string) override {}

   void PrepareCadenzaReport() override {}

   void WriteCadenzaHeader() override {}

   void WriteCadenzaRow(boost::shared_ptr<ICIMInstance>, TReportProperty, TReportProperty,
                        TReportProperty, TReportProperty, TReportProperty, TReportProperty,
                        TReportProperty, TReportProperty, int) override
   {}

protected:
   TEmptyWriter() = default;
   ~TEmptyWriter() = default;
};
