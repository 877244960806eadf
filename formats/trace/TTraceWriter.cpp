#include "trace/TTraceWriter.h"

#include <utility>

TTraceWriter::TTraceWriter(const std::string& outputDirectory, std::string outputFormat,
                           std::string baseDirectory)
   : TTraceOutput(outputDirectory)
{
   fOutputFormat = std::move(outputFormat);
   fBaseDirectory = std::move(baseDirectory);
}

void TTraceWriter::Initialize(boost::shared_ptr<ICIMNamespace> cimNamespace, TContext params,
                              std::string outputDirectory)
{
   const auto mode = params.find("mode");
   fMode = mode == params.end() ? "default" : mode->second.ToString(10);
   TTraceOutput::Initialize(std::move(cimNamespace), std::move(params), std::move(outputDirectory));
}

void TTraceWriter::WriteRawDataLink(std::string& linkText, std::string& linkTarget)
{
   linkText = " - [Show Rawdata Report]";
   linkTarget = "cv_rawData";
   fFile.WriteOperation("WriteRawDataLink");
}

void TTraceWriter::WriteEventLogReport(TReportParameters params)
{
   fFile.WriteOperation("WriteEventLogReport", params);
}

void TTraceWriter::WriteMergedLogReport(TReportParameters params)
{
   fFile.WriteOperation("WriteMergedLogReport", params);
}

void TTraceWriter::WriteReportPreamble()
{
   fFile.WriteOperation("WriteReportPreamble");
}

void TTraceWriter::WriteTableBreak()
{
   fFile.WriteOperation("WriteTableBreak");
}

void TTraceWriter::BeginColumnTable(std::string tableWidth, std::string caption, bool sortable)
{
   fFile.WriteOperation("BeginColumnTable", tableWidth, caption, sortable);
}

void TTraceWriter::BeginRowTable(std::string tableWidth, std::string labelColumnWidth,
                                 std::string caption)
{
   fFile.WriteOperation("BeginRowTable", tableWidth, labelColumnWidth, caption);
}

void TTraceWriter::WriteHeaderCell(boost::shared_ptr<ICIMClass> cimClass, TReportProperty property)
{
   fFile.WriteOperation("WriteHeaderCell", cimClass, property);
}

void TTraceWriter::EndTableHeader()
{
   fFile.WriteOperation("EndTableHeader");
}

void TTraceWriter::BeginTableRow(const bool& dataRow)
{
   fFile.WriteOperation("BeginTableRow", dataRow);
}

void TTraceWriter::EndTableRow()
{
   fFile.WriteOperation("EndTableRow");
}

void TTraceWriter::EndTable()
{
   fFile.WriteOperation("EndTable");
}

void TTraceWriter::WriteValueCell(boost::shared_ptr<ICIMInstance> instance,
                                  TReportProperty property)
{
   fFile.WriteOperation("WriteValueCell", instance, property);
}

void TTraceWriter::WriteTextCell(TReportProperty property, std::string text)
{
   fFile.WriteOperation("WriteTextCell", property, text);
}

void TTraceWriter::WriteHeaderTextCell(std::string text, TReportProperty property)
{
   fFile.WriteOperation("WriteHeaderTextCell", text, property);
}

void TTraceWriter::WriteNumericSensorCell(boost::shared_ptr<ICIMInstance> instance,
                                          TReportProperty property)
{
   fFile.WriteOperation("WriteNumericSensorCell", instance, property);
}

void TTraceWriter::WriteCadenzaRow(boost::shared_ptr<ICIMInstance> instance, TReportProperty score,
                                   TReportProperty type, TReportProperty cimType,
                                   TReportProperty propertyName, TReportProperty value,
                                   TReportProperty frequency, TReportProperty commonValues,
                                   TReportProperty commonFrequencies, int runningNumber)
{
   fFile.WriteOperation("WriteCadenzaRow", instance, score, type, cimType, propertyName, value,
                        frequency, commonValues, commonFrequencies, runningNumber);
}

void TTraceWriter::PrepareCadenzaReport()
{
   fFile.WriteOperation("PrepareCadenzaReport");
}

void TTraceWriter::WriteRawDataCell(boost::shared_ptr<ICIMProperty> property)
{
   fFile.WriteOperation("WriteRawDataCell", property);
}

void TTraceWriter::WriteDeclHeaderCell(boost::shared_ptr<const ICIMPropertyDecl> decl)
{
   fFile.WriteOperation("WriteDeclHeaderCell", decl);
}

void TTraceWriter::WritePropertyValueCell(boost::shared_ptr<ICIMInstance> instance,
                                          boost::shared_ptr<ICIMProperty> property)
{
   fFile.WriteOperation("WritePropertyValueCell", instance, property);
}

void TTraceWriter::WriteRegisterValueCell(boost::shared_ptr<ICIMInstance> instance,
                                          boost::shared_ptr<ICIMProperty> property)
{
   fFile.WriteOperation("WriteRegisterValueCell", instance, property);
}

void TTraceWriter::WriteEventLogTable(TInstances instances, std::string title, std::string linkName)
{
   fFile.WriteOperation("WriteEventLogTable", instances, title, linkName);
}

void TTraceWriter::WriteCadenzaHeader()
{
   fFile.WriteOperation("WriteCadenzaHeader");
}
