#pragma once

#include <optional>
#include <string>
#include <vector>

#include "common/DocumentReport.h"
#include "json/JsonDocument.h"

/// The report of a run as JSON documents: one per page, and the index.
///
/// Shape: everything is written as it comes; memory holds the names of the pages.
class TJsonReport final : public TDocumentReport
{
public:
   /// The number that a change of the documents' form raises.
   static constexpr unsigned kVersion = 1;

   TJsonReport(TDocumentOptions options, std::string oneFileName);

   void BeginRun(const std::string& outputDirectory, const TRunFacts& facts) override;
   void BeginPage(const std::string& linkName) override;
   void EndPage() override;
   void EndRun(const TReportIndex& index) override;

   bool WantsSameItems() const override { return true; }

   void WriteReportTitle(const std::string& title, const std::string& linkText,
                         const std::string& linkTarget) override;
   void WriteTableTitle(const TTableTitle& title) override;
   void WriteNote(const std::string& text) override;
   void BeginTable(const TTableShape& shape) override;
   void WriteRows(const TTableRows& rows) override;
   void EndTable() override;

private:
   void BeginDocument(const std::string& file, const char* format);
   void EndDocument();
   void BeginItem(const char* type);
   void EndItem();
   void BreakLine();
   void WriteCell(const TCell& cell);
   void WriteFacts();
   void WriteSystems();
   void WriteHealth();
   void WriteFinding(const TFinding& finding);
   void WriteGroups(const TReportIndex& index);
   void WritePages(const TReportIndex& index);
   void WriteFileOf(const char* name, std::size_t page);

   struct TPage
   {
      std::string fLinkName;
      std::string fFile;
   };

   std::vector<TPage> fPages;
   std::optional<TJsonDocument> fDocument;
};
