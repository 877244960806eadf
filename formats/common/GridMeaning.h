#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "common/DriveAttributes.h"
#include "common/Table.h"

struct TTableGrid;

/// What a grid holds beside its texts.
struct TGridMeaning
{
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
