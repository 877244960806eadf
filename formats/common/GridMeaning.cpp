#include "common/GridMeaning.h"

#include "writer/TTableGrid.h"

namespace {

constexpr std::string_view kAttributesTitle = "SMART Attributes Data";
constexpr const char* kAttributeClass = "OMC_IDESMARTAttrib";

/// Missing: false where the header row has no such label.
bool FindColumn(const TTableGrid& grid, const std::string& label, std::size_t& column)
{
   if (label.empty())
      return false;
   for (std::size_t c = 0; c < grid.fCells.GetColumns(); ++c)
      if (grid.fCells(0, c).fText == label) {
         column = c;
         return true;
      }
   return false;
}

std::optional<TDriveAttributeColumns> FindDriveAttributes(const TTableGrid& grid,
                                                          const TLabelLookup& getLabel)
{
   const auto find = [&](const char* property, std::size_t& column) {
      return FindColumn(grid, getLabel(kAttributeClass, property), column);
   };
   TDriveAttributeColumns columns;
   const bool isThere = find("attribName", columns.fName) && find("value", columns.fValue) &&
                        find("worst", columns.fWorst) && find("threshold", columns.fThreshold);
   return isThere ? std::make_optional(columns) : std::nullopt;
}

}  // namespace

TGridMeaning FindGridMeaning(const TTableGrid& grid, std::string_view title,
                             const TLabelLookup& getLabel)
{
   TGridMeaning meaning;
   if (grid.fMarked || !grid.fFirstRowIsHeader || grid.fCells.GetRows() == 0)
      return meaning;
   if (title == kAttributesTitle)
      meaning.fDriveAttributes = FindDriveAttributes(grid, getLabel);
   return meaning;
}

std::optional<TLogColumns> FindLogColumns(const TTableGrid& grid, const TLogTable& log,
                                          const TLabelLookup& getLabel)
{
   if (!grid.fFirstRowIsHeader || grid.fCells.GetRows() == 0)
      return std::nullopt;
   std::vector<std::string> properties(grid.fCells.GetColumns());
   for (const std::string& property : log.GetProperties()) {
      std::size_t column = 0;
      if (FindColumn(grid, getLabel(log.fClass, property), column))
         properties[column] = property;
   }
   return log.FindColumns(properties);
}
