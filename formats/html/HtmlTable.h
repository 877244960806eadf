#pragma once

#include <optional>
#include <string>
#include <vector>

#include "common/Table.h"
#include "html/BodySpool.h"
#include "html/HtmlCells.h"
#include "html/HtmlSink.h"

// Around the tables under one title.
constexpr TMarkup kGroupBegin = "<div class=\"group\">\n"_html;
constexpr TMarkup kGroupEnd = "</div>\n"_html;

/// What stands above a table.
struct THtmlHeading
{
   /// What screen readers call the table.
   std::string fName;
   /// The visible title. Missing: empty under a title that another table has.
   std::string fTitle;
   /// 2 or 3, as in h2.
   unsigned fLevel = 2;
   bool fIsSubTable = false;
   bool fIsEmphasised = false;
   /// A table above, under the same title, has the switch for the untranslated values of both.
   bool fHasSwitchAbove = false;
   /// Empty unless it is a comparison.
   const THtmlSystems* fSystems = nullptr;
};

/// Writes one table into the body of a page, over as many files as it takes.
///
/// Shape: a section around a heading and a table, within a group of tables that share a switch for
///        their untranslated values; the group is the caller's. A table of more than kRowsPerFile
///        rows goes on in the next file, heading and header row and all; rows are counted over all
///        of them.
/// Owner: everything is the caller's and outlives the table.
class THtmlTable
{
public:
   /// Virtual rows, once a script shows them, take the place of what follows the first file.
   static constexpr std::uint64_t kRowsPerFile = 2000;
   /// Units: bytes of the body; with its frame a file stays below 2 MB, unless one row is larger.
   static constexpr std::uint64_t kBytesPerFile = 1'500'000;

   THtmlTable(THtmlSink& out, TBodySpool& body, THtmlPage& page, const TTableShape& shape,
              THtmlHeading heading);

   void WriteRows(const TTableRows& rows);
   void End();

   /// Whether the group that is open now has its switch from this table. After End.
   bool HasSwitch() const { return !fParts.empty() && NeedsSwitch(fParts.back()); }

   /// Rows of a column table, columns of values of a row table.
   std::uint64_t GetInstanceCount() const { return IsColumnTable() ? fRow : fInstances; }

private:
   /// What of the table stands in one file.
   struct TPart
   {
      std::size_t fFile = 0;
      std::size_t fHeadPlace = 0;
      std::uint64_t fFirstRow = 0;
      std::uint64_t fLastRow = 0;
      std::vector<EColumnLook> fLooks;
      bool fHasSecondTexts = false;
      /// Units: characters, for the least width of all columns.
      std::size_t fLeastWidth = 0;
   };

   void BeginPart(const TTableRows& rows, std::size_t firstRow);
   void EndPart();
   void WriteRow(const TTableRows& rows, std::size_t row);
   void WriteRowNumber();
   void WriteCells(const TTableRows& rows, std::size_t row);
   void WriteAttributeCell(const TCell& cell, const TDriveAttribute& attribute);

   void WritePartHead(const TPart& part);
   void WriteTableTag(const TPart& part);
   void WriteHeading(const TPart& part);
   void WriteCount(const TPart& part);
   void WriteColumns(const TPart& part);
   void WriteHeaderRow(const TPart& part);

   bool IsColumnTable() const { return fShape.fKind == ETableKind::kColumns; }

   bool IsComparison() const
   {
      return fHeading.fSystems != nullptr && !fHeading.fSystems->IsEmpty();
   }

   /// In a comparison a table is of one instance.
   bool HasRowNumbers() const
   {
      return IsColumnTable() && !fShape.fHasRowLabels && !IsComparison();
   }

   /// What differs from the first row.
   bool IsDifference() const { return fShape.fMarked && fShape.fHasRowLabels && IsColumnTable(); }

   void WriteTitle();
   bool WriteSystemLabel(const TCell& cell);

   bool NeedsSwitch(const TPart& part) const
   {
      return part.fHasSecondTexts && (part.fFirstRow > 1 || !fHeading.fHasSwitchAbove);
   }

   bool IsSplit() const { return fParts.size() > 1; }

   THtmlSink& fOut;
   TBodySpool& fBody;
   THtmlPage& fPage;
   const TTableShape fShape;
   const THtmlHeading fHeading;
   const unsigned fNumber;
   std::vector<TPart> fParts;
   bool fIsPartOpen = false;
   std::uint64_t fRow = 0;
   /// The most value cells in a row.
   std::uint64_t fInstances = 0;
   /// Of a table of drive attributes.
   TClosestAttributes fAttributes;
   /// The first row of a table of differences.
   std::vector<std::string> fBaseline;
};
