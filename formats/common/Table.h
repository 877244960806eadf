#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "common/DriveAttributes.h"
#include "common/EventSeverity.h"
#include "common/LogColumns.h"
#include "common/StateWords.h"

// Tables as the formats see them: one shape, then runs of rows. Grids and tables written cell by
// cell look alike here.

enum class ETableKind
{
   kColumns,  // a row per instance, labels above
   kRows      // a row per property, labels in front
};

enum class ECellKind : unsigned char
{
   kText,
   kResultFile,  // a link to a text file beside the page; the second text is its name
   kScore,       // a number of the device analysis, on a scale to 100
   kFrequencies  // lines of values; the second text has the frequency of each
};

/// A cell. Owner: whoever gave it; valid until the rows it came from change.
struct TCell
{
   std::string_view fText;
   /// The untranslated value. Missing: empty.
   std::string_view fSecondText;
   ECellKind fKind = ECellKind::kText;
   /// What the text says of the thing.
   EState fState = EState::kNone;
   /// Of the cell with the time of a record: what the record tells and no column shows.
   ESeverity fSeverity = ESeverity::kNotTold;
   bool fIsLabel = false;
   bool fMonospaced = false;
   /// The cell repeats the baseline of a comparison.
   bool fSame = false;
};

/// What of a second text is worth showing beside a text.
/// Missing: empty where it is "N/A", repeats the text, holds separators alone, or there is no text.
/// Owner: a part of what was given.
std::string_view GetShownSecondText(std::string_view text, std::string_view secondText);

struct TTableShape
{
   ETableKind fKind = ETableKind::kColumns;
   /// Units: percent of the page. 0: not told.
   int fWidth = 0;
   /// Units: percent of the table, column by column; 0 or a missing one: not told.
   std::vector<int> fColumnWidths;
   /// The header row of a column table.
   std::vector<std::string> fLabels;
   /// The name that the library gave a table without a title: a text, a class name or nothing.
   std::string fCaption;
   bool fSortable = false;
   /// A comparison's table of an instance that some systems lack, or of differences.
   bool fMarked = false;
   /// A column table whose first column holds labels, too.
   bool fHasRowLabels = false;
   /// Of a table of drive attributes. Missing: any other table.
   std::optional<TDriveAttributeColumns> fDriveAttributes;
   /// Of a table of log records. Missing: any other table.
   std::optional<TLogColumns> fLog;
};

/// A run of rows of one table.
class TTableRows
{
public:
   virtual std::size_t GetRowCount() const = 0;
   virtual std::size_t GetCellCount(std::size_t row) const = 0;
   virtual TCell GetCell(std::size_t row, std::size_t column) const = 0;

protected:
   ~TTableRows() = default;
};

/// What the cell tells of its record. Missing: not told, also where the row has no such cell.
ESeverity GetSeverity(const TTableRows& rows, std::size_t row, std::size_t column);

/// Rows gathered cell by cell, their texts in one block.
class TCollectedRows final : public TTableRows
{
public:
   void BeginRow() { fRowStarts.push_back(fCells.size()); }

   /// Copies the texts of the cell.
   void AddCell(const TCell& cell);

   /// Copies all rows.
   void Append(const TTableRows& rows);

   /// Takes the last row away again.
   void DropRow();

   void Clear();

   bool IsEmpty() const { return fRowStarts.empty(); }

   std::size_t GetRowCount() const override { return fRowStarts.size(); }

   std::size_t GetCellCount(std::size_t row) const override;
   TCell GetCell(std::size_t row, std::size_t column) const override;

private:
   struct TStoredCell
   {
      std::size_t fOffset;
      std::size_t fLength;
      std::size_t fSecondLength;
      TCell fLook;
   };

   std::string fTexts;
   std::vector<TStoredCell> fCells;
   std::vector<std::size_t> fRowStarts;
};
