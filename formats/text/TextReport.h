#pragma once

#include <optional>
#include <string>
#include <vector>

#include "common/DocumentReport.h"
#include "text/TextTable.h"

/// The report of a run as plain text: a file per page and the index, or all in one file with the
/// index ahead.
///
/// Shape: pages are written as they come; memory holds their names.
class TTextReport final : public TDocumentReport
{
public:
   TTextReport(TDocumentOptions options, std::string oneFileName);

   void BeginRun(const std::string& outputDirectory, const TRunFacts& facts) override;
   void BeginPage(const std::string& linkName) override;
   void EndPage() override;
   void EndRun(const TReportIndex& index) override;

   void WriteReportTitle(const std::string& title, const std::string& linkText,
                         const std::string& linkTarget) override;
   void WriteTableTitle(const TTableTitle& title) override;
   void WriteNote(const std::string& text) override;
   void BeginTable(const TTableShape& shape) override;
   void WriteRows(const TTableRows& rows) override;
   void EndTable() override;

private:
   struct TPage
   {
      std::string fFile;
      /// Units: bytes of the one file.
      std::uint64_t fStart = 0;
      std::uint64_t fLength = 0;
   };

   void CopyPages(TOutputFile& file, const TReportIndex& index);

   std::vector<TPage> fPages;
   std::optional<TTextTable> fTable;
   bool fHasTitle = false;
};
