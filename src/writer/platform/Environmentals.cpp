#include <cmath>
#include <sstream>

#include "writer/ReportFrame.h"
#include "writer/StoreWalk.h"
#include "writer/TWriter.h"
#include "writer/WriterLog.h"
#include "writer/platform/ColumnTable.h"

namespace {

using TReportClass = TReportParameters::TReportClass;
using TInstance = boost::shared_ptr<ICIMInstance>;

TReportClass MakeSensorTable()
{
   TReportClass sensors;
   sensors.SetClass("CIM_NumericSensor");
   sensors.SetTitle("Environmentals");
   sensors.SetProperties({{"ElementName", "25%", "", "", ""},
                          {"CurrentReading", "25%", "", "", ""},
                          {"BaseUnits", "50%", "", "", ""}});
   return sensors;
}

int GetInt(const TInstance& sensor, const std::string& property)
{
   return static_cast<int>(sensor->GetProperty(property, {})->GetValue({}));
}

/// The reading in its base unit. Single precision and the default stream format are meant: tools
/// compare the texts. Throws: TQSXException for a sensor without reading or modifier.
std::string GetReadingText(const TInstance& sensor)
{
   const auto reading = static_cast<float>(GetInt(sensor, "CurrentReading"));
   const auto modifier = static_cast<float>(GetInt(sensor, "UnitModifier"));
   const float factor =
      modifier < 0 ? 1.0f / std::pow(10.0f, -modifier) : std::pow(10.0f, modifier);
   std::ostringstream text;
   text << reading * factor;
   return text.str();
}

/// The texts are not encoded, unlike those of the generic tables; a concrete writer must not trust
/// them.
void FillSensorRow(TTableGrid& grid, std::size_t row, const TInstance& sensor)
{
   grid.fCells(row, 0).fText = sensor->GetProperty("ElementName", {})->GetValue({}).ToString(10);
   grid.fCells(row, 1).fText = GetReadingText(sensor);
   grid.fCells(row, 2).fText = sensor->GetProperty("BaseUnits", {})->GetValueString();
}

TTableGrid MakeGrid(const TReportClass& table, std::size_t instanceCount)
{
   TTableGrid grid;
   const auto& columns = table.GetProperties();
   grid.fCells = T2DArray<TTableCell>(instanceCount + 1, columns.size());
   grid.fRows = static_cast<int>(instanceCount) + 1;
   grid.fColumns = static_cast<int>(columns.size());
   for (const auto& column : columns)
      grid.fColumnWidths.push_back(TReportParameters::ConvertPercent(column.GetColumnWidth()));
   grid.fTableWidth = TReportParameters::ConvertPercent(table.GetTableWidth());
   grid.fSortable = table.IsTableSortable();
   grid.fFirstRowIsHeader = true;
   return grid;
}

/// The sensors that report a state, by name. Throws: TQSXException where a name can't be read; this
/// sort has no catch of its own, so that the report leaves through the guard of the run.
TInstances SelectSensors(TWriter& writer, const TInstances& sensors)
{
   TInstances selected;
   for (const auto& sensor : sensors)
      if (writer.GetPropertyValue(sensor, "OperationalStatus", ",") != "Unknown")
         selected.push_back(sensor);
   TReportParameters::TInstanceSorter byName;
   byName.AddProperty("ElementName", true, false);
   byName.SortInstances(selected);
   return selected;
}

void WriteSensorGrid(TWriter& writer, ICIMClass& cimClass, const TReportClass& table)
{
   writer.WriteTableTitle(table.GetTitle(), table.SubTitleEnabled(), false);
   const auto sensors = SelectSensors(writer, writer.GetInstances(table));
   TTableGrid grid = MakeGrid(table, sensors.size());
   const auto& columns = table.GetProperties();
   for (std::size_t column = 0; column < columns.size(); ++column)
      grid.fCells(0, column).fText = writer.GetTableHeaderLabel(cimClass, columns[column], {});
   for (std::size_t i = 0; i < sensors.size(); ++i)
      FillSensorRow(grid, i + 1, sensors[i]);
   writer.WriteGrid(&grid);
}

/// The columns ahead of the reading, the reading, and the unit behind it.
struct TServiceProcessorColumns
{
   explicit TServiceProcessorColumns(bool multiNode)
      : fReading("CurrentReading", multiNode ? "25%" : "33%", "", "", ""),
        fUnits("BaseUnits", multiNode ? "25%" : "33%", "", "", "")
   {
      fLeading.emplace_back("SensorDescription", multiNode ? "25%" : "34%", "", "", "");
      if (multiNode)
         fLeading.emplace_back("SourceNode", "25%", "", "", "");
   }

   TColumns GetAll() const
   {
      TColumns all = fLeading;
      all.push_back(fReading);
      all.push_back(fUnits);
      return all;
   }

   TColumns fLeading;
   TReportParameters::TReportProperty fReading;
   TReportParameters::TReportProperty fUnits;
};

void WriteServiceProcessorRow(TWriter& writer, const TInstance& sensor,
                              const TServiceProcessorColumns& columns)
{
   writer.BeginTableRow(true);
   for (const auto& column : columns.fLeading)
      writer.WriteValueCell(sensor, column);
   writer.WriteNumericSensorCell(sensor, columns.fReading);
   writer.WriteValueCell(sensor, columns.fUnits);
   writer.EndTableRow();
}

}  // namespace

void TWriter::WriteEnvironmentalsReport()
{
   LogTrace("Entering TWriter::WriteEnvironmentalsReport");
   const TReportClass table = MakeSensorTable();
   OpenReportFile(fOutputDirectory + TOSSpecific::kFileSeparator + "Environmentals");
   const auto cimClass = FindClass(fNamespace, table.GetClass());
   BeginReportBody();
   WriteReportTitle("Environmentals", "", "");
   if (cimClass)
      WriteSensorGrid(*this, *cimClass, table);
   // The body stays open, and the entry claims data even of an empty page: both are meant.
   CloseReportFile();
   WriteIndexEntry("Environmentals", "Environmentals", true);
   // The text misspells the function; tools match on it.
   LogTrace("Exiting TWriter::WriteEnviromentalsReport");
}

void TWriter::WriteEnvironmentals(TReportParametersBuilder builder)
{
   LogTrace("Entering TWriter::WriteEnvironmentals");
   const std::string className = "ZANSG_SP_NumericSensor";
   const auto cimClass = FindClassOrLogStatus(
      fNamespace, className, "Exiting TWriter::WriteEnvironmentals, ex.fStatusCode.fStatusCode=");
   if (!cimClass) {
      WriteIndexEntry("environmentals", "Environmentals", false);
      return;
   }
   const auto sensors = EnumerateInstances(cimClass);
   if (sensors.empty()) {
      LogTrace("Exiting TWriter::WriteEnvironmentals, instances are empty");
      WriteIndexEntry("environmentals", "Environmentals", false);
      return;
   }
   OpenReportPage(*this, fOutputDirectory, "environmentals");
   WriteReportTitle("Environmentals", "", "");
   const TServiceProcessorColumns columns(builder.IsMultiNode());
   BeginColumnTable("80%", className, true);
   WriteColumnHeader(*this, cimClass, columns.GetAll());
   for (const auto& sensor : sensors)
      WriteServiceProcessorRow(*this, sensor, columns);
   EndTable();
   CloseReportPage(*this);
   WriteIndexEntry("environmentals", "Environmentals", true);
   LogTrace("Exiting TWriter::WriteEnvironmentals");
}
