#pragma once

#include <optional>
#include <string>
#include <vector>

#include "common/Table.h"
#include "html/BodySpool.h"
#include "html/HtmlCells.h"
#include "html/HtmlSink.h"
#include "html/RowFiles.h"
#include "html/RowText.h"

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

/// Writes one table into the body of a page and all of its rows into the row files.
///
/// Shape: a section around a heading and a table, within a group of tables that share a switch for
///        their untranslated values; the group is the caller's. The page holds up to kRowsInPage
///        rows, fewer where they are large. Of a longer table a text file beside the page has all
///        rows, and the script shows them from the row files.
/// Owner: everything is the caller's and outlives the table.
class THtmlTable
{
public:
   static constexpr std::uint64_t kRowsInPage = 2000;
   /// Units: bytes of the body, with its frame the file stays below 2 MB.
   static constexpr std::uint64_t kBytesPerFile = 1'700'000;
   /// A table that begins behind this has too little room left. Units: bytes of the body.
   static constexpr std::uint64_t kBytesBeforeTable = 900'000;

   THtmlTable(THtmlSink& out, TBodySpool& body, THtmlPage& page, TRowFiles& rowFiles,
              const TTableShape& shape, THtmlHeading heading);

   void WriteRows(const TTableRows& rows);
   void End();

   /// Whether the group that is open has its switch from this table. After End.
   bool HasSwitch() const { return NeedsSwitch(); }

   /// Rows of a column table, columns of values of a row table.
   std::uint64_t GetInstanceCount() const { return IsColumnTable() ? fRow : fInstances; }

private:
   void Begin(const TTableRows& rows);
   void WriteRow(const TTableRows& rows, std::size_t row);
   void KeepRow(const TTableRows& rows, std::size_t row);
   void WriteRowNumber();
   void WriteCells(const TTableRows& rows, std::size_t row);
   void WriteAddress(const TCell& cell, std::size_t column);
   void WriteCell(TCell cell, std::size_t column, bool isHeader, bool isChanged);
   void WriteWholeText(std::string_view text, std::size_t column);
   void WriteAttributeCell(TCell cell, const TDriveAttribute& attribute);

   // In HtmlTableFrame.cpp.
   void WriteHead();
   void WriteSectionTag();
   void WriteTableTag();
   void WriteHeading();
   void WriteTitle();
   void WriteCount();
   void WriteTools();
   void WriteColumns();
   void WriteHeaderRow();
   void WriteTail();
   void WriteLongTableNote(std::uint64_t textBytes);
   std::string GetTextName() const;

   TCell ReadCell(const TTableRows& rows, std::size_t row, std::size_t column) const;
   bool IsHeaderCell(const TCell& cell, std::size_t column) const;
   bool IsChangedCell(const TCell& cell, std::size_t column) const;
   bool WriteSystemLabel(const TCell& cell);

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

   bool NeedsSwitch() const { return fHasSecondTexts && !fHeading.fHasSwitchAbove; }

   bool NeedsTools() const;

   bool CanSort() const { return HasRowNumbers() && fShape.fSortable && fRow > 1; }

   bool IsLong() const { return fText.IsOpen(); }

   EColumnLook GetLook(std::size_t column) const
   {
      return column < fLooks.size() ? fLooks[column] : EColumnLook::kText;
   }

   std::size_t GetColumnCount() const;

   THtmlSink& fOut;
   TBodySpool& fBody;
   THtmlPage& fPage;
   TRowFiles& fRowFiles;
   const TTableShape fShape;
   const THtmlHeading fHeading;
   const unsigned fNumber;
   const std::size_t fFile;
   std::size_t fHeadPlace = 0;
   bool fIsBegun = false;
   std::uint64_t fRow = 0;
   std::uint64_t fRowsInPage = 0;
   /// The most value cells in a row.
   std::uint64_t fInstances = 0;
   std::vector<EColumnLook> fLooks;
   bool fHasSecondTexts = false;
   /// Units: characters, for the least width of all columns.
   std::size_t fLeastWidth = 0;
   /// Of a table of drive attributes.
   TClosestAttributes fAttributes;
   /// The first row of a table of differences.
   std::vector<std::string> fBaseline;
   TRowText fText;
   unsigned fFirstRowFile = 0;
};
