#include <stdexcept>

#include <gmock/gmock.h>

#include "support/MakeStore.h"
#include "support/TRecordingWriter.h"

using TReportClass = TReportParameters::TReportClass;
using TReportProperty = TReportParameters::TReportProperty;
using testing::ElementsAre;
using testing::ElementsAreArray;

namespace {

/// Shows a grid's frame too: table width, column widths, and what it is.
class TFrameWriter : public TRecordingWriter
{
public:
   void WriteGrid(TTableGrid* grid) override
   {
      std::string frame = std::to_string(grid->fTableWidth) + "% of";
      for (const int width : grid->fColumnWidths)
         frame += " " + std::to_string(width);
      frame += grid->fFirstRowIsHeader ? ", first row" : "";
      frame += grid->fFirstColumnIsHeader ? ", first column" : "";
      frame += grid->fSortable ? ", sortable" : "";
      frame += grid->fMarked ? ", marked" : "";
      frame += grid->fTransposed ? ", transposed" : "";
      fLines.push_back(frame);
      TRecordingWriter::WriteGrid(grid);
   }
};

std::string MakeFans(int count)
{
   std::string mof = "class Fan { [Key] uint32 Id; string Name; };";
   for (int i = 0; i < count; ++i)
      mof += "instance of Fan { Id = " + std::to_string(i) + "; Name = \"fan" + std::to_string(i) +
             "\"; };";
   return mof;
}

TReportClass MakeTable(const std::string& cimClass, std::vector<TReportProperty> properties)
{
   TReportClass table;
   table.SetClass(cimClass);
   table.SetProperties(std::move(properties));
   return table;
}

TReportProperty Column(const std::string& name, const std::string& assocClass = "",
                       const std::string& assocTarget = "")
{
   return {name, "50%", assocClass, assocTarget, ""};
}

/// The lines that a definition gives over a collection. What Validate prints is dropped.
std::vector<std::string> WriteTable(const TReportClass& table, const std::string& mof,
                                    bool marked = false, bool expand = true)
{
   TFrameWriter writer;
   writer.Use(MakeNamespace(mof));
   testing::internal::CaptureStdout();
   writer.WriteTable(table, writer.GetInstances(table), expand, marked, {});
   testing::internal::GetCapturedStdout();
   return writer.fLines;
}

/// The rows alone, without the frames of the grids.
std::vector<std::string> WriteRows(const TReportClass& table, const std::string& mof)
{
   std::vector<std::string> rows;
   for (const std::string& line : WriteTable(table, mof))
      if (line.front() == '|')
         rows.push_back(line);
   return rows;
}

}  // namespace

TEST(TableLayout, AColumnTableIsCutAtTheMaximumAndTheRestIsMadeToMeasure)
{
   TReportClass table = MakeTable("Fan", {Column("Id"), Column("Name")});
   table.SetTitle("Fans");
   table.SetTableWidth("80%");
   table.SetTableSortable();
   table.SetMaxInstancesPerTable(2);
   EXPECT_THAT(WriteTable(table, MakeFans(3), true),
               ElementsAre("WriteTableTitle \"Fans\", false, false",     //
                           "80% of 50 50, first row, sortable, marked",  //
                           "WriteGrid",                                  //
                           "| Id | Name |",                              //
                           "| 0 (raw: N/A) | fan0 |",                    //
                           "| 1 (raw: N/A) | fan1 |",                    //
                           "80% of 50 50, first row, sortable, marked",  //
                           "WriteGrid",                                  //
                           "| Id | Name |",                              //
                           "| 2 (raw: N/A) | fan2 |"));
}

TEST(TableLayout, TheLastGridOfARowTableKeepsItsProportionsAndIsNotMarked)
{
   TReportClass table = MakeTable("Fan", {Column("Name")});
   table.SetReportStyle(TReportClass::kRowStyle);
   table.SetRowReportHeaderWidth("30%");
   table.SetMaxInstancesPerTable(6);
   EXPECT_THAT(WriteTable(table, MakeFans(8), true),
               ElementsAre("100% of 30 11 11 11 11 11 11, first column, marked", "WriteGrid",
                           "| Name | fan0 (raw: N/A) | fan1 (raw: N/A) | fan2 (raw: N/A) | fan3 "
                           "(raw: N/A) | fan4 (raw: N/A) | fan5 (raw: N/A) |",
                           "52% of 57 21 21, first column", "WriteGrid",
                           "| Name | fan6 (raw: N/A) | fan7 (raw: N/A) |"));
}

TEST(TableLayout, TheMaximumExactlyIsOneGrid)
{
   TReportClass table = MakeTable("Fan", {Column("Name")});
   table.SetMaxInstancesPerTable(2);
   EXPECT_EQ(3u, WriteRows(table, MakeFans(2)).size());
   EXPECT_EQ(6u, WriteRows(table, MakeFans(4)).size());
}

TEST(TableLayout, AKeptGridKeepsASecondTextWhereTheNextInstanceHasNoValue)
{
   TReportClass table = MakeTable("Port", {Column("Name"), Column("State")});
   table.SetMaxInstancesPerTable(1);
   EXPECT_THAT(WriteRows(table, R"(
      class Port { [Key] uint32 Id; string Name; [Values{"down", "up"}] uint16 State; };
      instance of Port { Id = 0; Name = "a"; State = 1; };
      instance of Port { Id = 1; };)"),
               ElementsAre("| Name | State |", "| a (raw: N/A) | up (raw: 1) |",  //
                           "| Name | State |", "|  (raw: N/A) |  (raw: 1) |"));
}

TEST(TableLayout, AFirstColumnWithoutTranslationMakesTheRowNotAvailable)
{
   EXPECT_THAT(WriteRows(MakeTable("Port", {Column("Kind"), Column("State")}), R"(
      class Port { [Key] uint32 Id; [Values{"0", "Front"}] uint16 Kind;
                   [Values{"down", "up", "2"}] uint16 State; };
      instance of Port { Id = 0; Kind = 0; State = 1; };
      instance of Port { Id = 1; Kind = 1; State = 1; };
      instance of Port { Id = 2; Kind = 1; State = 2; };
      instance of Port { Id = 3; State = 1; };)"),
               ElementsAre("| Kind | State |",
                           "| N/A (raw: 0) | up |",             // the rest of the row goes without
                           "| Front (raw: 1) | up (raw: 1) |",  //
                           "| Front (raw: 1) | 2 |",            // equal texts are told once
                           "|  | up (raw: 1) |"));
}

TEST(TableLayout, ACellAcrossAnAssociation)
{
   const std::string mof = R"(
      class Fan { [Key] string Name; };
      class Sensor { [Key] string Name; };
      class Level : Sensor { [Values{"low", "high"}] uint16 Level; };
      [Association] class FanSensor { [Key] Fan REF Fan; [Key] Sensor REF Sensor; };
      instance of Fan as $f { Name = "f"; };
      instance of Level as $a { Name = "a"; Level = 1; };
      instance of Sensor as $b { Name = "b"; };
      instance of Level as $c { Name = "c"; Level = 0; };
      instance of FanSensor { Fan = $f; Sensor = $a; };
      instance of FanSensor { Fan = $f; Sensor = $b; };
      instance of FanSensor { Fan = $f; Sensor = $c; };)";
   TReportProperty secondary = Column("Level");
   secondary.SetSecondaryAssociationTarget("Level");
   EXPECT_THAT(WriteRows(MakeTable("Fan", {Column("Name"), Column("Name", "FanSensor", ""),
                                           Column("Level", "", "Level"),
                                           Column("Level", "FanSensor", "Sensor"), secondary}),
                         mof),
               ElementsAre("| Name | Name | Level | Level | Level |",
                           // The far names' second text is separators alone; the instance without
                           // a level hides the one behind it; a secondary value has no second text.
                           "| f (raw: N/A) | a, b, c (raw: , , ) | high, low (raw: 1, 0) | "
                           "high (raw: 1) | high, low |"));
}

TEST(TableLayout, SubTablesFollowTheGridOfTheirInstance)
{
   const std::string mof = MakeFans(3) + R"(
      class Blade { [Key] uint32 Number; };
      [Association] class FanBlade { [Key] Fan REF Fan; [Key] Blade REF Blade; };
      instance of Blade { Number = 9; };
      instance of Blade { Number = 8; };
      instance of FanBlade { Fan = "Fan.Id=1"; Blade = "Blade.Number=9"; };
      instance of FanBlade { Fan = "Fan.Id=1"; Blade = "Blade.Number=8"; };)";
   TReportClass blades = MakeTable("Blade", {Column("Number")});
   blades.SetTitle("Blades");
   blades.SetAssociatorsFilter("FanBlade", "Blade", "Fan", "Blade");
   blades.GetInstanceSorter().AddProperty("Number", true, false);
   TReportClass table = MakeTable("Fan", {Column("Name")});
   table.SetReportStyle(TReportClass::kRowStyle);
   table.SetRowReportHeaderWidth("30%");
   table.SetAssociatedClass();
   table.SetAssociatedClasses({blades});
   // After the first each grid is as wide as all that remains, though it holds one instance.
   EXPECT_THAT(
      WriteTable(table, mof),
      ElementsAre("100% of 30 70, first column", "WriteGrid", "| Name | fan0 (raw: N/A) |",
                  "100% of 30 70 0, first column", "WriteGrid", "| Name | fan1 (raw: N/A) |  |",
                  "WriteTableTitle \"Blades\", false, false",  //
                  "100% of 50, first row", "WriteGrid",        //
                  "| Number |", "| 8 (raw: N/A) |", "| 9 (raw: N/A) |",
                  "100% of 30 70, first column", "WriteGrid", "| Name | fan2 (raw: N/A) |"));

   table.SetReportStyle(TReportClass::kColumnStyle);
   EXPECT_THAT(WriteRows(table, MakeFans(2)),
               ElementsAre("| Name |", "| fan0 (raw: N/A) |", "| Name |", "| fan1 (raw: N/A) |"));
   EXPECT_EQ(5u, WriteTable(table, MakeFans(2), false, false).size()) << "one grid, not expanded";
}

TEST(TableLayout, TextsThatSomeTablesRewrite)
{
   EXPECT_THAT(WriteRows(MakeTable("CIM_NumericSensor", {Column("CurrentReading")}), R"(
      class CIM_NumericSensor { [Key] uint32 Id; string CurrentReading; };
      instance of CIM_NumericSensor { Id = 0; CurrentReading = "-12.5"; };
      instance of CIM_NumericSensor { Id = 1; CurrentReading = "none"; };
      instance of CIM_NumericSensor { Id = 2; CurrentReading = "1,234,567 rpm"; };)"),
               ElementsAre("| CurrentReading |", "| 1.25 (raw: N/A) |", "| 0 (raw: N/A) |",
                           "| 12345.7 (raw: N/A) |"));
   EXPECT_THAT(WriteRows(MakeTable("Product", {Column("ProductInstallDate")}), R"(
      class Product { [Key] uint32 Id; datetime ProductInstallDate; };
      instance of Product { Id = 0; ProductInstallDate = "20090102000000.000000+060"; };
      instance of Product { Id = 1; ProductInstallDate = "20090102030405.000000+060"; };)"),
               ElementsAre("| ProductInstallDate |", "| 2009-01-02  (raw: N/A) |",
                           "| 2009-01-02 03:04:05 (raw: N/A) |"));
   EXPECT_THAT(WriteRows(MakeTable("ZANSG_Process", {Column("UserModeTime")}), R"(
      class ZANSG_Process { [Key] uint32 Id; string UserModeTime; };
      instance of ZANSG_Process { Id = 0; UserModeTime = "90 seconds"; };)"),
               ElementsAre("| User Mode Time (millisecond) |", "| 90000 (raw: N/A) |"));
}

TEST(TableLayout, LabelsComeFromTheClassThatDeclaresTheProperty)
{
   const std::string mof = R"(
      class Fan { [Key] string Name; [DisplayName("Fan speed")] uint32 Speed; };
      class Chip { [Key] string Name; [DisplayName("Chip revision")] uint32 Revision; };
      instance of Fan { Name = "f"; };)";
   TReportProperty named = Column("Speed");
   named.SetLabelOverride("RPM");
   EXPECT_EQ("| Fan speed | RPM | Chip revision | Revision | Height |",
             WriteRows(MakeTable("Fan", {Column("Speed"), named, Column("Revision", "", "Chip"),
                                         Column("Revision", "", "Gone"), Column("Height")}),
                       mof)
                .front());
}

TEST(TableLayout, NoInstancesAndNoProperties)
{
   TReportClass table = MakeTable("Fan", {});
   table.SetTitle("Fans");
   EXPECT_THAT(WriteTable(table, MakeFans(0)),
               ElementsAre("WriteTableTitle \"Fans\", false, false"));
   EXPECT_THROW(WriteTable(table, MakeFans(1)), std::invalid_argument);
   testing::internal::GetCapturedStdout();
}
