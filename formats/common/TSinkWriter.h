#pragma once

#include <map>
#include <memory>
#include <optional>

#include "common/RecordZones.h"
#include "common/ReportFlow.h"
#include "common/SameItems.h"
#include "common/health/HealthJudge.h"
#include "writer/TWriter.h"
#include "writer/ValueText.h"

/// A concrete writer over a sink: it works out the texts of all cells, and the sink gives them
/// their form. Each format derives from it and brings its sink.
///
/// Shape: texts reach the sink as the store has them; EncodeValueText changes nothing, so that a
///        sink can encode every text once, whether the library passed it through that operation
///        (cells) or not (titles, labels, links).
/// Throws: TOutputError from the sink; a store failure while a label is looked up passes through.
class TSinkWriter : public TWriter
{
public:
   void Initialize(boost::shared_ptr<ICIMNamespace> cimNamespace, TContext params,
                   std::string outputDirectory) override;

   void BeginIndex() override {}

   void EndIndexGroup() override;
   void BeginIndexGroup(std::string heading) override;
   void EndIndex() override;
   /// Leaves both texts empty: no report writes a page of raw data for these controllers.
   void WriteRawDataLink(std::string& linkText, std::string& linkTarget) override;
   void WriteEventLogReport(TReportParameters params) override;
   void WriteMergedLogReport(TReportParameters params) override;

   void WriteReportPreamble() override {}

   void OpenReportFile(std::string path) override;
   void CloseReportFile() override;

   void BeginReportBody() override {}

   void EndReportBody() override;
   void WriteReportTitle(std::string title, std::string linkText, std::string linkTarget) override;
   void WriteIndexEntry(std::string linkName, std::string displayName,
                        const bool& hasData) override;
   void WriteTableBreak() override;
   void WriteTableTitle(std::string title, const bool& subTitle, const bool& emphasised) override;
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
   void WriteGrid(TTableGrid* grid) override;
   void WriteCadenzaHeader() override;
   std::string GetArrayValueSeparatorText(TReportProperty::ArrayValueSeparator separator) override;
   std::string EncodeValueText(std::string text) override;

protected:
   /// The output format's name is what reports test against "html".
   /// comparedFiles: the collections of a comparison, the base first; labels that are equal get the
   /// names of their files.
   TSinkWriter(std::unique_ptr<TReportSink> sink, std::string outputFormat,
               std::string baseDirectory, std::vector<std::string> comparedFiles = {},
               TCollectionFacts collection = {});
   ~TSinkWriter() = default;

private:
   void WriteSameItems();
   std::string ReadLabel(const std::string& className, const std::string& property);

   // SinkWriterCells.cpp
   void WriteLabel(const std::string& label, const TReportProperty& property);
   void WriteValue(const std::string& text, const std::string& untranslated, bool isMonospaced,
                   ESeverity severity = ESeverity::kNotTold);
   std::string ReadText(const boost::shared_ptr<ICIMInstance>& instance,
                        const TReportProperty& property);
   std::string ReadLines(const boost::shared_ptr<ICIMInstance>& instance,
                         const TReportProperty& property);

   // SinkWriterLogs.cpp
   void WriteLogReport(const TReportParameters& params);
   void WriteLogTable(TReportClass reportClass, const TInstances& instances);
   std::optional<TLogColumns> CompleteLog(const TLogTable& log, std::optional<TLogColumns> columns);
   void TakeLogColumns();
   bool HasProperty(const std::string& className, const std::string& property);
   ESeverity ReadSeverity(const boost::shared_ptr<ICIMInstance>& record,
                          const TReportProperty& property);

   std::unique_ptr<TReportSink> fSink;
   const std::vector<std::string> fComparedFiles;
   const TCollectionFacts fCollection;
   std::optional<THealthJudge> fJudge;
   std::optional<TReportFlow> fFlow;
   const TLabelLookup fGetLabel = [this](const std::string& className,
                                         const std::string& property) {
      return ReadLabel(className, property);
   };
   /// Kept from cell to cell, so that a column of date-times looks its qualifier up once.
   TValueText fValueText = MakeValueText(*this, TValueText::kQualifierOptional);
   /// Of the cell in work; kept so that a cell needs no new vector.
   TProperties fCellProperties;

   /// The last title that is no sub-title.
   std::string fTableTitle;

   /// Missing: empty unless it is a comparison whose format lists what is the same.
   std::optional<TSameItems> fSameItems;
   /// Of the page at hand.
   std::string fLinkName;

   /// By class and property.
   std::map<std::string, std::shared_ptr<TRecordZones>> fZones;
   /// The class of the log that WriteLogTable has in work. Missing: empty.
   std::string fLogClass;
   /// Of the header row of the table that is written cell by cell.
   std::string fHeaderClass;
   std::vector<std::string> fHeaderProperties;
   /// The log whose records tell their severity and whose table doesn't show it. Missing: null.
   const TLogTable* fHiddenSeverity = nullptr;

   // The page of the device analysis, from PrepareCadenzaReport on.
   bool fIsCadenzaPage = false;
   std::string fCommonValuesLabel;
};

/// What joins the elements of an array in a cell, in every format that has a sink.
std::string GetSeparatorText(TReportParameters::TReportProperty::ArrayValueSeparator separator);
