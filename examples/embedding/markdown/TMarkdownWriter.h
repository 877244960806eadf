#pragma once

#include <fstream>

#include "writer/TWriter.h"

// A page for each report and an index of them. Reports whose tables come as grids need no more than this;
// docs/embedding.md tells what the operations left empty are for.
class TMarkdownWriter : public TWriter
{
public:
   // clang-format off
   void Initialize(boost::shared_ptr<ICIMNamespace> store, TContext, std::string folder) override
   { fNamespace = store; fOutputDirectory = folder; fMode = "default"; fOutputFormat = "markdown"; fIndex.open(folder + "/index.md"); }
   void BeginIndexGroup(std::string heading) override { fIndex << "\n## " << heading << "\n\n"; }
   void WriteIndexEntry(std::string link, std::string name, const bool& hasData) override
   { fIndex << (hasData && !link.empty() ? "- [" + name + "](" + link + ".md)\n" : "- " + name + ": no data\n"); }
   void EndIndex() override { fIndex.close(); }
   void OpenReportFile(std::string path) override { fPage.open(path + ".md"); }
   void CloseReportFile() override { fPage.close(); }
   void WriteReportTitle(std::string title, std::string, std::string) override { fPage << "# " << title << '\n'; }
   void WriteTableTitle(std::string title, const bool&, const bool&) override { fPage << "\n## " << title << '\n'; }
   void WriteGrid(TTableGrid* grid) override
   {
      const std::size_t columns = grid->fCells.GetColumns();
      for (std::size_t row = 0; row < grid->fCells.GetRows(); ++row) {
         for (std::size_t column = 0; column < columns; ++column) fPage << (column == 0 ? "\n| " : " | ") << grid->fCells(row, column).fText;
         for (std::size_t column = 0; row == 0 && column < columns; ++column) fPage << (column == 0 ? " |\n|---" : "|---");
         fPage << " |";
      }
      fPage << '\n';
   }
   std::string GetArrayValueSeparatorText(TReportProperty::ArrayValueSeparator) override { return ", "; }
   std::string EncodeValueText(std::string text) override { for (char& c : text) if (c == '|' || c == '\n') c = ' '; return text; }
   void WriteEventLogReport(TReportParameters params) override { WriteGenericReport(params); }
   void WriteMergedLogReport(TReportParameters params) override { WriteGenericReport(params); }
   void WriteTextCell(TReportProperty, std::string text) override { fPage << "- " << text << '\n'; }
   void WriteHeaderTextCell(std::string text, TReportProperty) override { fPage << "- **" << text << "**\n"; }
   void BeginIndex() override {} void EndIndexGroup() override {} void WriteRawDataLink(std::string&, std::string&) override {}
   void WriteReportPreamble() override {} void BeginReportBody() override {} void EndReportBody() override {} void WriteTableBreak() override {}
   void BeginColumnTable(std::string, std::string, bool) override {} void BeginRowTable(std::string, std::string, std::string) override {}
   void WriteHeaderCell(boost::shared_ptr<ICIMClass>, TReportProperty) override {} void EndTableHeader() override {}
   void BeginTableRow(const bool&) override {} void EndTableRow() override {} void EndTable() override {}
   void WriteValueCell(boost::shared_ptr<ICIMInstance>, TReportProperty) override {} void WriteCadenzaHeader() override {}
   void WriteNumericSensorCell(boost::shared_ptr<ICIMInstance>, TReportProperty) override {} void PrepareCadenzaReport() override {}
   void WriteCadenzaRow(boost::shared_ptr<ICIMInstance>, TReportProperty, TReportProperty, TReportProperty, TReportProperty,
                        TReportProperty, TReportProperty, TReportProperty, TReportProperty, int) override {}
   void WriteRawDataCell(boost::shared_ptr<ICIMProperty>) override {} void WriteDeclHeaderCell(boost::shared_ptr<const ICIMPropertyDecl>) override {}
   void WritePropertyValueCell(boost::shared_ptr<ICIMInstance>, boost::shared_ptr<ICIMProperty>) override {}
   void WriteRegisterValueCell(boost::shared_ptr<ICIMInstance>, boost::shared_ptr<ICIMProperty>) override {}
   void WriteEventLogTable(TInstances, std::string, std::string) override {}
   // clang-format on
private:
   std::ofstream fIndex, fPage;
};
