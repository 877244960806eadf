#include "trace/TTraceWriter.h"

#include <gmock/gmock.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <sstream>

using testing::EndsWith;
using testing::HasSubstr;
using TReportClass = TReportParameters::TReportClass;
using TReportProperty = TReportParameters::TReportProperty;

namespace {

/// A writer with its folder; the run has the output directory "out".
class TTraceWriterTest : public testing::Test
{
protected:
   TTraceWriterTest()
      : fFolder(mkdtemp((testing::TempDir() + "traceXXXXXX").data())),
        fWriter(fFolder, "html", "/base")
   {}

   ~TTraceWriterTest() override { std::filesystem::remove_all(fFolder); }

   std::string Finish()
   {
      fWriter.GetFile().Finish();
      std::stringstream text;
      text << std::ifstream(fFolder + "/trace.ndjson").rdbuf();
      return text.str();
   }

   std::string fFolder;
   TTraceWriter fWriter;
};

TReportProperty MakeSpeed()
{
   TReportProperty speed("Speed", "40%", "CIM_FanOf", "CIM_Chassis", "RPM");
   speed.SetSecondaryAssociationTarget("CIM_Slot");
   speed.SetArrayValueSeparator(TReportProperty::kSeparatorSlash);
   speed.SetMonospaced();
   return speed;
}

}  // namespace

TEST_F(TTraceWriterTest, RecordsCallsAndLogLinesInOrder)
{
   fWriter.GetFile().WriteLogLine(3, "Entering TWriter::BaseInitialize");
   fWriter.Initialize({}, {}, "out");
   fWriter.OpenReportFile("out" + TOSSpecific::kFileSeparator + "fans");
   fWriter.WriteTableTitle("Fans \"left\"", false, true);
   std::string linkText;
   std::string linkTarget;
   fWriter.WriteRawDataLink(linkText, linkTarget);
   fWriter.GetFile().WriteEnd();
   EXPECT_EQ(
      "{\"log\":3,\"text\":\"Entering TWriter::BaseInitialize\"}\n"
      "{\"op\":\"Initialize\",\"args\":[]}\n"
      "{\"op\":\"OpenReportFile\",\"args\":[\"fans\"]}\n"
      "{\"op\":\"WriteTableTitle\",\"args\":[\"Fans \\\"left\\\"\",false,true]}\n"
      "{\"op\":\"WriteRawDataLink\",\"args\":[]}\n"
      "{\"end\":\"ok\"}\n",
      Finish());
   EXPECT_EQ(" - [Show Rawdata Report]", linkText);
   EXPECT_EQ("cv_rawData", linkTarget);
}

TEST_F(TTraceWriterTest, WritesEverySettingOfADefinition)
{
   TReportClass fans;
   fans.SetClass("CIM_Fan");
   fans.SetTitle("Fans");
   fans.SetReportStyle(TReportClass::kRowStyle);
   fans.SetRowReportHeaderWidth("30%");
   fans.SetProperties({MakeSpeed()});
   fans.SetAssociatorsFilter("a", "b", "c", "d");
   fans.GetInstanceSorter().AddProperty("Name", true, false);
   TReportParameters report;
   report.SetLinkName("fans");
   report.SetReportName("All fans");
   report.SetClasses({fans});
   fWriter.WriteMergedLogReport(report);
   EXPECT_EQ(
      "{\"op\":\"WriteMergedLogReport\",\"args\":[{\"link\":\"fans\",\"name\":\"All fans\","
      "\"showTitle\":true,\"linkSortable\":false,\"classes\":[{\"class\":\"CIM_Fan\","
      "\"title\":\"Fans\",\"hasTitle\":true,\"subTitle\":false,\"width\":\"100%\",\"style\":1,"
      "\"headerWidth\":\"30%\",\"properties\":[{\"property\":\"Speed\",\"width\":\"40%\","
      "\"assocClass\":\"CIM_FanOf\",\"assocTarget\":\"CIM_Chassis\",\"secondaryTarget\":\"CIM_"
      "Slot\",\"label\":\"RPM\",\"separator\":3,\"monospaced\":true}],\"uniqueId\":\"\","
      "\"hasAssociatedClass\":false,\"filter\":[\"a\",\"b\",\"c\",\"d\"],\"excludeProps\":false,"
      "\"sort\":[[\"Name\",true,false]],\"sortable\":false,\"associated\":[],\"max\":2147483647}]"
      "}]}\n",
      Finish());
}

TEST_F(TTraceWriterTest, WritesAGridRowByRow)
{
   TTableGrid grid;
   grid.fColumnWidths = {30, 70};
   grid.fRows = 1;
   grid.fColumns = 2;
   grid.fFirstColumnIsHeader = true;
   grid.fCells = T2DArray<TTableCell>(1, 2);
   grid.fCells(0, 0).fText = "Speed";
   grid.fCells(0, 1) = {"fast", "7", true, false, false, true};
   fWriter.WriteGrid(&grid);
   EXPECT_EQ(
      "{\"op\":\"WriteGrid\",\"args\":[{\"columnWidths\":[30,70],\"tableWidth\":100,\"sortable\":"
      "false,\"firstRowIsHeader\":false,\"firstColumnIsHeader\":true,\"transposed\":false,\"rows\":"
      "1,\"columns\":2,\"marked\":false,\"cells\":[[[\"Speed\",\"\",false,false,false,false],"
      "[\"fast\",\"7\",true,false,false,true]]]}]}\n",
      Finish());
}

TEST_F(TTraceWriterTest, WritesEmptyHandlesAsNull)
{
   fWriter.WriteValueCell({}, {});
   fWriter.WriteDeclHeaderCell({});
   fWriter.WriteRawDataCell({});
   fWriter.WriteEventLogTable({nullptr}, "t", "l");
   const std::string trace = Finish();
   EXPECT_THAT(trace, HasSubstr("\"WriteValueCell\",\"args\":[null,{"));
   EXPECT_THAT(trace, HasSubstr("\"WriteDeclHeaderCell\",\"args\":[null]"));
   EXPECT_THAT(trace, HasSubstr("\"WriteRawDataCell\",\"args\":[null]"));
   EXPECT_THAT(trace, EndsWith("\"WriteEventLogTable\",\"args\":[[null],\"t\",\"l\"]}\n"));
}

TEST_F(TTraceWriterTest, StaysValidWhateverTheBytes)
{
   const struct
   {
      std::string fText;
      const char* fWritten;
   } cases[] = {
      {"caf\xC3\xA9 \xF0\x9F\x98\x80", "caf\xC3\xA9 \xF0\x9F\x98\x80"},
      {"caf\xE9", "caf\xEF\xBF\xBD"},
      // The letter behind the broken sequence stays.
      {"\xC3(", "\xEF\xBF\xBD("},
      {"\xED\xA0\x80", "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD"},
      {std::string("a\0b\n", 4), "a\\u0000b\\n"},
   };

   std::string expected;
   for (const auto& row : cases) {
      fWriter.BeginIndexGroup(row.fText);
      expected += std::string("{\"op\":\"BeginIndexGroup\",\"args\":[\"") + row.fWritten + "\"]}\n";
   }
   EXPECT_EQ(expected, Finish());
}

TEST_F(TTraceWriterTest, TellsHowTheRunEnded)
{
   fWriter.GetFile().WriteEnd(TQSXException(15));
   fWriter.GetFile().WriteEnd(std::invalid_argument("no columns"));
   EXPECT_EQ(
      "{\"end\":\"exception\",\"status\":15}\n"
      "{\"end\":\"exception\",\"status\":null,\"text\":\"no columns\"}\n",
      Finish());
}

TEST_F(TTraceWriterTest, GivesTheTextsThatTheLibraryAsksFor)
{
   EXPECT_EQ("&lt;a href=&quot;x&amp;y&quot;&gt;", fWriter.EncodeValueText("<a href=\"x&y\">"));
   EXPECT_EQ(", ", fWriter.GetArrayValueSeparatorText(TReportProperty::kSeparatorDefault));
   EXPECT_EQ(" ", fWriter.GetArrayValueSeparatorText(TReportProperty::kSeparatorBlank));
   EXPECT_EQ("; ", fWriter.GetArrayValueSeparatorText(TReportProperty::kSeparatorSemicolon));
   EXPECT_EQ(" / ", fWriter.GetArrayValueSeparatorText(TReportProperty::kSeparatorSlash));
   EXPECT_EQ("", Finish());
}

TEST(TTraceFile, TellsAWriteThatFailed)
{
   EXPECT_THROW(TTraceFile("/does/not/exist"), TOutputError);
}
