#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "support/GridLines.h"
#include "writer/TWriter.h"

/// Writes down what is called on it, so that a test compares lines.
///
/// Shape: a line a call, the operation and its arguments: `WriteTableTitle "Memory", false, false`.
///        An instance stands as its path, a definition as its link name, a property as its name. A
///        grid has its lines behind it.
class TRecordingWriter : public TWriter
{
public:
   /// What the library calls, from Initialize on.
   std::vector<std::string> fLines;

   TRecordingWriter() { fOutputFormat = "html"; }

   /// For a test that calls a report of the writer without a run.
   void Use(boost::shared_ptr<ICIMNamespace> cimNamespace, const std::string& mode = "default")
   {
      fNamespace = cimNamespace;
      fMode = mode;
   }

   /// The lines of these operations alone.
   std::vector<std::string> GetLines(const std::vector<std::string>& operations) const
   {
      std::vector<std::string> lines;
      for (const std::string& line : fLines)
         if (std::count(operations.begin(), operations.end(), line.substr(0, line.find(' '))) != 0)
            lines.push_back(line);
      return lines;
   }

   void Initialize(boost::shared_ptr<ICIMNamespace> cimNamespace, TContext params,
                   std::string outputDirectory) override
   {
      Use(cimNamespace, params.count("mode") != 0 ? params["mode"].ToString(10) : "default");
      fOutputDirectory = outputDirectory;
      Record("Initialize");
   }

   void BeginIndex() override { Record("BeginIndex"); }

   void EndIndexGroup() override { Record("EndIndexGroup"); }

   void BeginIndexGroup(std::string heading) override { Record("BeginIndexGroup", heading); }

   void EndIndex() override { Record("EndIndex"); }

   void WriteRawDataLink(std::string& linkText, std::string& linkTarget) override
   {
      Record("WriteRawDataLink");
      linkText = " - [Show Rawdata Report]";
      linkTarget = "cv_rawData";
   }

   void WriteEventLogReport(TReportParameters params) override
   {
      Record("WriteEventLogReport", params);
   }

   void WriteMergedLogReport(TReportParameters params) override
   {
      Record("WriteMergedLogReport", params);
   }

   void WriteReportPreamble() override { Record("WriteReportPreamble"); }

   void OpenReportFile(std::string path) override
   {
      Record("OpenReportFile", path.substr(fOutputDirectory.size() + 1));
   }

   void CloseReportFile() override { Record("CloseReportFile"); }

   void BeginReportBody() override { Record("BeginReportBody"); }

   void EndReportBody() override { Record("EndReportBody"); }

   void WriteReportTitle(std::string title, std::string linkText, std::string linkTarget) override
   {
      Record("WriteReportTitle", title, linkText, linkTarget);
   }

   void WriteIndexEntry(std::string linkName, std::string displayName, const bool& hasData) override
   {
      Record("WriteIndexEntry", linkName, displayName, hasData);
   }

   void WriteTableBreak() override { Record("WriteTableBreak"); }

   void WriteTableTitle(std::string title, const bool& subTitle, const bool& emphasised) override
   {
      Record("WriteTableTitle", title, subTitle, emphasised);
   }

   void BeginColumnTable(std::string tableWidth, std::string caption, bool sortable) override
   {
      Record("BeginColumnTable", tableWidth, caption, sortable);
   }

   void BeginRowTable(std::string tableWidth, std::string labelColumnWidth,
                      std::string caption) override
   {
      Record("BeginRowTable", tableWidth, labelColumnWidth, caption);
   }

   void WriteHeaderCell(boost::shared_ptr<ICIMClass> cimClass, TReportProperty property) override
   {
      Record("WriteHeaderCell", cimClass->GetName({}), property);
   }

   void EndTableHeader() override { Record("EndTableHeader"); }

   void BeginTableRow(const bool& dataRow) override { Record("BeginTableRow", dataRow); }

   void EndTableRow() override { Record("EndTableRow"); }

   void EndTable() override { Record("EndTable"); }

   void WriteValueCell(boost::shared_ptr<ICIMInstance> instance, TReportProperty property) override
   {
      Record("WriteValueCell", instance, property);
   }

   void WriteTextCell(TReportProperty property, std::string text) override
   {
      Record("WriteTextCell", property, text);
   }

   void WriteHeaderTextCell(std::string text, TReportProperty property) override
   {
      Record("WriteHeaderTextCell", text, property);
   }

   void WriteNumericSensorCell(boost::shared_ptr<ICIMInstance> instance,
                               TReportProperty property) override
   {
      Record("WriteNumericSensorCell", instance, property);
   }

   void WriteCadenzaRow(boost::shared_ptr<ICIMInstance> instance, TReportProperty score,
                        TReportProperty type, TReportProperty cimType, TReportProperty propertyName,
                        TReportProperty value, TReportProperty frequency,
                        TReportProperty commonValues, TReportProperty commonFrequencies,
                        int runningNumber) override
   {
      Record("WriteCadenzaRow", instance, score, type, cimType, propertyName, value, frequency,
             commonValues, commonFrequencies, runningNumber);
   }

   void PrepareCadenzaReport() override { Record("PrepareCadenzaReport"); }

   void WriteRawDataCell(boost::shared_ptr<ICIMProperty> property) override
   {
      Record("WriteRawDataCell", property);
   }

   void WriteDeclHeaderCell(boost::shared_ptr<const ICIMPropertyDecl> decl) override
   {
      Record("WriteDeclHeaderCell", decl->GetName({}));
   }

   void WritePropertyValueCell(boost::shared_ptr<ICIMInstance> instance,
                               boost::shared_ptr<ICIMProperty> property) override
   {
      Record("WritePropertyValueCell", instance, property);
   }

   void WriteRegisterValueCell(boost::shared_ptr<ICIMInstance> instance,
                               boost::shared_ptr<ICIMProperty> property) override
   {
      Record("WriteRegisterValueCell", instance, property);
   }

   void WriteEventLogTable(TInstances instances, std::string title, std::string linkName) override
   {
      Record("WriteEventLogTable", static_cast<int>(instances.size()), title, linkName);
   }

   void WriteGrid(TTableGrid* grid) override
   {
      Record("WriteGrid");
      AddGridLines(*grid, fLines);
   }

   void WriteCadenzaHeader() override { Record("WriteCadenzaHeader"); }

   std::string GetArrayValueSeparatorText(TReportProperty::ArrayValueSeparator separator) override
   {
      const char* texts[] = {", ", " ", "; ", " / "};
      return texts[separator];
   }

   /// Shows where a text has been encoded, and where not.
   std::string EncodeValueText(std::string text) override
   {
      const std::size_t mark = text.find('<');
      return mark == std::string::npos ? text : text.replace(mark, 1, "&lt;");
   }

private:
   static std::string Show(const std::string& text) { return '"' + text + '"'; }

   static std::string Show(bool value) { return value ? "true" : "false"; }

   static std::string Show(int value) { return std::to_string(value); }

   static std::string Show(const TReportProperty& property) { return property.GetProperty(); }

   static std::string Show(const TReportParameters& params) { return Show(params.GetLinkName()); }

   static std::string Show(const boost::shared_ptr<ICIMInstance>& instance)
   {
      return instance ? instance->GetReference({}).GetPath() : "none";
   }

   static std::string Show(const boost::shared_ptr<ICIMProperty>& property)
   {
      return property->GetDecl({})->GetName({}) + "=" + property->GetValueString();
   }

   template <typename... Arguments>
   void Record(const std::string& operation, const Arguments&... arguments)
   {
      std::string line = operation;
      [[maybe_unused]] const char* separator = " ";
      ((line += separator + Show(arguments), separator = ", "), ...);
      fLines.push_back(line);
   }
};
