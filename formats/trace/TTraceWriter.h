#pragma once

#include "trace/TTraceOutput.h"
#include "writer/TWriter.h"

/// Records the output operations of a run instead of rendering them, for tests and for those who
/// write a concrete writer of their own.
///
/// It reads nothing from the store but what names the arguments. Its file is trace.ndjson in the
/// output directory; it writes no other.
class TTraceWriter : public TTraceOutput<TWriter>
{
public:
   /// Throws: TOutputError when the file can't be created in the directory.
   TTraceWriter(const std::string& outputDirectory, std::string outputFormat,
                std::string baseDirectory);
   virtual ~TTraceWriter() = default;

   void Initialize(boost::shared_ptr<ICIMNamespace> cimNamespace, TContext params,
                   std::string outputDirectory) override;
   void WriteRawDataLink(std::string& linkText, std::string& linkTarget) override;
   void WriteEventLogReport(TReportParameters params) override;
   void WriteMergedLogReport(TReportParameters params) override;
   void WriteReportPreamble() override;
   void WriteTableBreak() override;
   void BeginColumnTable(std::string tableWidth, std::string caption, bool sortable) override;
   void BeginRowTable(std::string tableWidth, std::string labelColumnWidth,
                      std::string caption) override;
   void WriteHeaderCell(boost::shared_ptr<ICIMClass> cimClass, TReportProperty property) override;
   void EndTableHeader() override;
   void BeginTableRow(const bool& dataRow) override;
   void EndTableRow() override;
   void EndTable() override;
   void WriteValueCell(boost::shared_ptr<ICIMInstance> instance, TReportProperty property) override;
   void WriteTextCell(TReportProperty property, std::string text) override;
   void WriteHeaderTextCell(std::string text, TReportProperty property) override;
   void WriteNumericSensorCell(boost::shared_ptr<ICIMInstance> instance,
                               TReportProperty property) override;
   void WriteCadenzaRow(boost::shared_ptr<ICIMInstance> instance, TReportProperty score,
                        TReportProperty type, TReportProperty cimType, TReportProperty propertyName,
                        TReportProperty value, TReportProperty frequency,
                        TReportProperty commonValues, TReportProperty commonFrequencies,
                        int runningNumber) override;
   void PrepareCadenzaReport() override;
   void WriteRawDataCell(boost::shared_ptr<ICIMProperty> property) override;
   void WriteDeclHeaderCell(boost::shared_ptr<const ICIMPropertyDecl> decl) override;
   void WritePropertyValueCell(boost::shared_ptr<ICIMInstance> instance,
                               boost::shared_ptr<ICIMProperty> property) override;
   void WriteRegisterValueCell(boost::shared_ptr<ICIMInstance> instance,
                               boost::shared_ptr<ICIMProperty> property) override;
   void WriteEventLogTable(TInstances instances, std::string title, std::string linkName) override;
   void WriteCadenzaHeader() override;
};
