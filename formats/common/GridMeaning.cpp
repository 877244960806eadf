#include "common/GridMeaning.h"

#include "common/StateWords.h"
#include "writer/TTableGrid.h"

namespace {

struct TStateColumn
{
   std::string_view fTitle;
   const char* fClass;
   const char* fProperty;
};

constexpr TStateColumn kStateColumns[] = {
   {"Disk Information", "ZANSG_MediaAccessDevice", "DiskStatus"},
   {"Volumes/Mount Points", "ZANSG_LogicalDisk", "VolumeState"},
   {"SMART Status", "OMC_IDESMARTErrorLog", "smartStatus"},
   {"SMART Status", "OMC_IDESMARTErrorLog", "selftestExecutionStatus"},
   {"Corvane Manager Events", "ZANSG_LogRecord_RAIDMgrEvent", "Severity"},
   {"Chassis Event Log", "ZAN_StandardMessageLogEntry", "PerceivedSeverity"},
};

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

std::vector<std::string_view> FindStateColumns(const TTableGrid& grid, std::string_view title,
                                               const TLabelLookup& getLabel)
{
   std::vector<std::string_view> columns;
   for (const TStateColumn& known : kStateColumns) {
      std::size_t column = 0;
      if (known.fTitle != title ||
          !FindColumn(grid, getLabel(known.fClass, known.fProperty), column))
         continue;
      columns.resize(grid.fCells.GetColumns());
      columns[column] = known.fProperty;
   }
   return columns;
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
   meaning.fStateColumns = FindStateColumns(grid, title, getLabel);
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

TCell TStateRows::GetCell(std::size_t row, std::size_t column) const
{
   TCell cell = fRows.GetCell(row, column);
   if (column < fStateColumns.size() && !fStateColumns[column].empty())
      cell.fState = FindState(fStateColumns[column], cell.fText);
   return cell;
}
