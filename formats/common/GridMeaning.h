#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "common/DriveAttributes.h"
#include "common/Table.h"

struct TTableGrid;

/// What a grid holds beside its texts.
struct TGridMeaning
{
   /// The property of each column that tells a state; empty for the others. Missing: no column
   /// does.
   std::vector<std::string_view> fStateColumns;
   std::optional<TDriveAttributeColumns> fDriveAttributes;
   std::optional<TLogColumns> fLog;
};

/// The label that a property of a class has in a header row. Missing: the empty text.
using TLabelLookup =
   std::function<std::string(const std::string& className, const std::string& property)>;

/// Grids come without their class: its title and labels tell. title is that of the report's table,
/// not of a table of associated instances.
/// Missing: nothing for a comparison's marked grid, where what stands out is the difference.
TGridMeaning FindGridMeaning(const TTableGrid& grid, std::string_view title,
                             const TLabelLookup& getLabel);

/// The columns of a log's grid. Missing: nothing where the grid has no such labels.
std::optional<TLogColumns> FindLogColumns(const TTableGrid& grid, const TLogTable& log,
                                          const TLabelLookup& getLabel);

/// Rows with the states of their cells. Owner: both are the caller's and outlive this view.
class TStateRows final : public TTableRows
{
public:
   TStateRows(const TTableRows& rows, const std::vector<std::string_view>& stateColumns)
      : fRows(rows), fStateColumns(stateColumns)
   {}

   std::size_t GetRowCount() const override { return fRows.GetRowCount(); }

   std::size_t GetCellCount(std::size_t row) const override { return fRows.GetCellCount(row); }

   TCell GetCell(std::size_t row, std::size_t column) const override;

private:
   const TTableRows& fRows;
   const std::vector<std::string_view>& fStateColumns;
};
