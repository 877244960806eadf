#pragma once

#include <fstream>
#include <stdexcept>

#include "writer/TEmptyWriter.h"

// A page for each report, and an index of them; docs/embedding.md tells of the other operations.
class TMarkdownWriter final : public TEmptyWriter
{
public:
   // clang-format off
   void BeginIndex() override { Open(fIndex, fOutputDirectory + "/index"); }
   void BeginIndexGroup(std::string heading) override { fIndex << "\n## " << heading << "\n\n"; }
   void WriteIndexEntry(std::string link, std::string name, const bool& hasData) override
   { fIndex << (hasData && !link.empty() ? "- [" + name + "](" + link + ".md)\n" : "- " + name + ": no data\n"); }
   void OpenReportFile(std::string path) override { Open(fPage, path); }
   void CloseReportFile() override { fPage.close(); }
   void WriteReportTitle(std::string title, std::string, std::string) override { fPage << "# " << title << '\n'; }
   void WriteTableTitle(std::string title, const bool&, const bool&) override { fPage << "\n## " << title << "\n\n"; }
   void WriteGrid(TTableGrid* grid) override
   {
      for (std::size_t row = 0; row < grid->fCells.GetRows(); ++row) {
         for (std::size_t column = 0; column < grid->fCells.GetColumns(); ++column) WriteCell(grid->fCells(row, column).fText);
         EndTableRow();
      }
      EndTable();
   }
   void EndTableRow() override { fPage << "|\n"; for (; fRows == 0 && fCells > 0; --fCells) fPage << (fCells > 1 ? "|---" : "|---|\n"); ++fRows; }
   void EndTable() override { fPage << '\n'; fRows = fCells = 0; }
   void WriteHeaderCell(boost::shared_ptr<ICIMClass> cimClass, TReportProperty column) override { WriteCell(GetTableHeaderLabel(*cimClass, column, {})); }
   void WriteHeaderTextCell(std::string text, TReportProperty) override { WriteCell(text); }
   void WriteTextCell(TReportProperty, std::string text) override { WriteCell(text); }
   void WriteValueCell(boost::shared_ptr<ICIMInstance> instance, TReportProperty column) override
   { WriteCell(GetValuesFromProperties(GetProperties(instance, column.GetProperty(), column.GetAssociationClass(), column.GetAssociationTarget()), ", ", false)); }
   std::string EncodeValueText(std::string text) override { for (char& c : text) if (c == '|' || c == '\n') c = ' '; return text; }
private:
   void WriteCell(const std::string& text) { fPage << "| " << text << ' '; fCells += fRows == 0; }
   static void Open(std::ofstream& file, const std::string& path) { file.open(path + ".md"); if (!file) throw std::runtime_error(path + ".md can't be written"); }

   // clang-format on
   std::ofstream fIndex, fPage;
   int fRows = 0, fCells = 0;
};
