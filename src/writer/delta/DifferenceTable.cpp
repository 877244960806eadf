#include <algorithm>

#include "writer/StoreWalk.h"
#include "writer/delta/DeltaRecords.h"

using namespace Delta;

namespace {

using TReportClass = TWriter::TReportClass;
using TReportProperty = TWriter::TReportProperty;
using TInstanceDelta = TWriter::TInstanceDelta;

/// Width in percent of the column of labels.
constexpr int kLabelColumnWidth = 18;
constexpr int kPageWidth = 100;
constexpr const char* kSameText = "--- SAME ---";

/// A property that differs: by a finding, or without one by the compared texts of an association.
struct TDifferenceColumn
{
   TReportProperty* fProperty;
   boost::shared_ptr<ICIMInstance> fFinding;
};

/// The rows of the grid: 0 for a namespace that has none.
std::vector<std::size_t> AssignRows(const TInstanceDelta& record, std::size_t namespaceCount)
{
   std::vector<bool> flagged(namespaceCount, false);
   for (const auto& finding : record.fDeltas)
      if (ReadType(finding) == kDeltaProperty)
         for (std::size_t index : ReadNamespaceIndices(finding, namespaceCount))
            flagged[index] = true;
   for (const auto& [name, values] : record.fAssocProperties)
      for (std::size_t index = 1; index < namespaceCount; ++index)
         if (!values[index].empty())
            flagged[index] = true;

   std::vector<std::size_t> rows(namespaceCount, 0);
   std::size_t row = 0;
   for (std::size_t index = 0; index < namespaceCount; ++index)
      if (flagged[index])
         rows[index] = ++row;
   return rows;
}

/// The first finding of a property, whatever its type.
boost::shared_ptr<ICIMInstance> FindFinding(const TInstanceDelta& record,
                                            const std::string& property)
{
   for (const auto& finding : record.fDeltas)
      if (ReadText(finding, "Property") == property)
         return finding;
   return boost::shared_ptr<ICIMInstance>();
}

std::vector<TDifferenceColumn> FindColumns(const TInstanceDelta& record, TReportClass& reportClass)
{
   std::vector<TDifferenceColumn> columns;
   for (TReportProperty& property : reportClass.GetProperties()) {
      const std::string name = property.GetProperty();
      const auto finding = FindFinding(record, name);
      if (finding || record.fAssocProperties.count(name))
         columns.push_back({&property, finding});
   }
   return columns;
}

int GetWidth(const TReportClass& reportClass, const TReportProperty& property)
{
   if (reportClass.GetReportStyle() == TReportClass::kRowStyle)
      return kPageWidth - TReportParameters::ConvertPercent(reportClass.GetRowReportHeaderWidth());
   return TReportParameters::ConvertPercent(property.GetColumnWidth());
}

/// The difference grids of one record.
class TDifferenceGrids
{
public:
   TDifferenceGrids(TWriter& writer, TInstanceDelta& record, TReportClass& reportClass,
                    const std::vector<std::string>& labels)
      : fWriter(writer),
        fRecord(record),
        fReportClass(reportClass),
        fLabels(labels),
        fTableWidth(TReportParameters::ConvertPercent(reportClass.GetTableWidth())),
        fRows(AssignRows(record, labels.size())),
        fRowCount(fRows.empty() ? 0 : *std::max_element(fRows.begin(), fRows.end()))
   {}

   /// Splits the columns over as many grids as the page needs and writes them.
   void Write(const boost::shared_ptr<ICIMClass>& cimClass)
   {
      const auto columns = FindColumns(fRecord, fReportClass);
      for (std::size_t first = 0; first < columns.size();) {
         int total = 0;
         const std::size_t count = CountColumns(columns, first, total);
         WriteGrid(*cimClass, columns, first, count, total);
         first += count;
      }
   }

private:
   /// How many columns the next grid takes, at least one, and its width.
   std::size_t CountColumns(const std::vector<TDifferenceColumn>& columns, std::size_t first,
                            int& total) const
   {
      const double scale = fTableWidth / 100.0;
      total = kLabelColumnWidth;
      std::size_t count = 0;
      for (std::size_t index = first; index < columns.size(); ++index) {
         const int scaled =
            static_cast<int>(scale * GetWidth(fReportClass, *columns[index].fProperty));
         if (count > 0 && total + scaled > kPageWidth)
            break;
         total += scaled;
         ++count;
      }
      return count;
   }

   void WriteGrid(ICIMClass& cimClass, const std::vector<TDifferenceColumn>& columns,
                  std::size_t first, std::size_t count, int total)
   {
      TTableGrid grid;
      grid.fCells = T2DArray<TTableCell>(fRowCount + 1, count + 1);
      grid.fRows = static_cast<int>(fRowCount + 1);
      grid.fColumns = static_cast<int>(count + 1);
      grid.fFirstRowIsHeader = grid.fFirstColumnIsHeader = grid.fMarked = true;
      grid.fTableWidth = total;
      grid.fColumnWidths.assign(count + 1, 0);
      FillLabels(grid);

      const double factor = static_cast<double>(total) / fTableWidth;
      grid.fColumnWidths[0] = static_cast<int>(kLabelColumnWidth / (total / 100.0));
      for (std::size_t column = 1; column <= count; ++column) {
         const TDifferenceColumn& difference = columns[first + column - 1];
         grid.fColumnWidths[column] =
            static_cast<int>(GetWidth(fReportClass, *difference.fProperty) / factor);
         grid.fCells(0, column).fText =
            fWriter.GetTableHeaderLabel(cimClass, *difference.fProperty, NamespaceContext(0));
         if (difference.fFinding)
            FillFromFinding(grid, column, difference);
         else
            FillFromAssociation(grid, column, *difference.fProperty);
      }
      fWriter.WriteGrid(&grid);
   }

   void FillLabels(TTableGrid& grid) const
   {
      grid.fCells(0, 0).fText = "Data Source";
      if (fRowCount == 0)
         return;
      // Where the baseline has no row, the lowest namespace that has one replaces its label.
      grid.fCells(1, 0).fText = fLabels[0];
      for (std::size_t index = 0; index < fRows.size(); ++index)
         if (fRows[index])
            grid.fCells(fRows[index], 0).fText = fLabels[index];
   }

   void FillFromFinding(TTableGrid& grid, std::size_t column, const TDifferenceColumn& difference)
   {
      const TReportProperty& property = *difference.fProperty;
      const std::string separator =
         fWriter.GetArrayValueSeparatorText(property.GetArrayValueSeparator());
      const auto indices = ReadNamespaceIndices(difference.fFinding, fLabels.size());
      for (std::size_t index : indices) {
         const auto properties =
            fWriter.GetProperties(fRecord.GetInstance(index), property.GetProperty(),
                                  property.GetAssociationClass(), property.GetAssociationTarget());
         const std::string text = fWriter.GetValuesFromProperties(properties, separator, false);
         if (fRows[index])
            SetCell(grid, index, column, property, text);
      }
      for (std::size_t index = 1; index < fRows.size(); ++index)
         if (fRows[index] && std::find(indices.begin(), indices.end(), index) == indices.end())
            MarkSame(grid.fCells(fRows[index], column));
   }

   void FillFromAssociation(TTableGrid& grid, std::size_t column, const TReportProperty& property)
   {
      const std::vector<std::string>& values = fRecord.fAssocProperties[property.GetProperty()];
      for (std::size_t index = 1; index < values.size(); ++index)
         if (!values[index].empty())
            SetCell(grid, index, column, property, values[index]);
   }

   void SetCell(TTableGrid& grid, std::size_t index, std::size_t column,
                const TReportProperty& property, const std::string& text) const
   {
      TTableCell& cell = grid.fCells(fRows[index], column);
      cell.fMonospaced = property.IsMonospaced();
      cell.fText = text;
   }

   static void MarkSame(TTableCell& cell)
   {
      cell.fText = kSameText;
      cell.fSame = cell.fSameShade = cell.fSameCentred = true;
   }

   TWriter& fWriter;
   TInstanceDelta& fRecord;
   TReportClass& fReportClass;
   const std::vector<std::string>& fLabels;
   const int fTableWidth;
   const std::vector<std::size_t> fRows;
   const std::size_t fRowCount;
};

/// Whether the record has differences of its own, or stands here as context for another one.
bool HasDifferences(const TInstanceDelta& record)
{
   return !record.fAssocProperties.empty() ||
          std::any_of(record.fDeltas.begin(), record.fDeltas.end(),
                      [](const auto& finding) { return ReadType(finding) == kDeltaProperty; });
}

}  // namespace

void TWriter::WritePropertyDeltaTable(boost::shared_ptr<TInstanceDelta> record)
{
   const auto classDelta = record->fClassDelta.lock();
   TReportClass& reportClass = *classDelta->fReportClass;
   reportClass.ClearTitle();
   if (!HasDifferences(*record)) {
      // Namespace 0 in the context, whichever namespace the instance came from.
      if (const auto instance = record->GetInstance(record->FindFirstNamespace()))
         WriteTable(reportClass, {instance}, false, false, NamespaceContext(0));
   } else {
      if (record->fInstances.empty())
         record->fInstances.resize(1);
      record->fInstances[0] = ResolveInstance(fNamespace, record->fName, 0);
      if (record->GetInstance(record->FindFirstNamespace())) {
         WriteTable(reportClass, {record->fInstances[0]}, false, false, NamespaceContext(0));
         WriteTableTitle("Differences", true, true);
         TDifferenceGrids(*this, *record, reportClass, fNamespaceLabels)
            .Write(fNamespace->GetClass(reportClass.GetClass(), NamespaceContext(0)));
      }
   }
   WriteTableBreak();
   for (const auto& child : record->fAssociatedDeltas)
      WritePropertyDeltaTable(child);
}
