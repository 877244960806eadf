#include "html/THtmlWriter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/TTemporaryFolder.h"
#include "support/TTestStore.h"

namespace {

using testing::HasSubstr;
using testing::Not;
using TType = TTestStore::TType;
using TProperty = TReportParameters::TReportProperty;

TProperty Column(const std::string& name)
{
   return TProperty(name, "20%", "", "", "");
}

/// A run of the writer over a store, with one page open.
class HtmlWriter : public testing::Test
{
protected:
   void BeginRun(const std::string& linkName)
   {
      fWriter.Initialize(fStore.GetNamespace(), {}, fFolder.GetPath());
      fWriter.BeginIndex();
      fWriter.BeginIndexGroup("Group");
      if (!linkName.empty())
         fWriter.OpenReportFile(fFolder.GetPath(linkName));
   }

   std::string EndRun(const std::string& file)
   {
      fWriter.CloseReportFile();
      fWriter.EndIndex();
      return fFolder.Read(file);
   }

   TTestStore fStore;
   TTemporaryFolder fFolder;
   THtmlWriter fWriter{THtmlOptions()};
};

TEST_F(HtmlWriter, TheFrontPageTellsWhichSystemItIs)
{
   fStore.AddClass("ZANSG_ComputerSystem", "",
                   {TTestStore::Key("Name"), TTestStore::Property("ProductName", TType::kString)});
   fStore.AddInstance("ZANSG_ComputerSystem", {{"Name", "node-1"}, {"ProductName", "Server -"}});
   BeginRun("");
   const std::string page = EndRun("index.html");
   EXPECT_THAT(page, HasSubstr("<h1>node-1</h1><p><bdi>Server</bdi></p>"));
   EXPECT_THAT(page, HasSubstr("<title>node-1: front page</title>"));
   EXPECT_THAT(page, Not(HasSubstr("Collected"))) << "what is not known is left out";
}

TEST_F(HtmlWriter, CellsOfATableByHand)
{
   using NZANQSX20::TCIMValue;
   fStore.AddClass("ZANSG_Fan", "",
                   {TTestStore::Key("Name"),
                    TTestStore::Property("State", TType::kUInt16,
                                         {{"ValueMap", TTestStore::Strings({"2"})},
                                          {"Values", TTestStore::Strings({"OK"})}}),
                    TTestStore::Property("CurrentReading", TType::kSInt32),
                    TTestStore::Property("UnitModifier", TType::kSInt32)});
   const auto fan =
      fStore.AddInstance("ZANSG_Fan", {{"Name", "<Fan>"},
                                       {"State", TCIMValue::Unsigned(TType::kUInt16, 2)},
                                       {"CurrentReading", TCIMValue::Signed(TType::kSInt32, 235)},
                                       {"UnitModifier", TCIMValue::Signed(TType::kSInt32, -1)}});
   BeginRun("fans");
   fWriter.BeginColumnTable("100%", "ZANSG_Fan", true);
   fWriter.BeginTableRow(true);
   fWriter.WriteHeaderCell(fStore.GetClass("ZANSG_Fan"), Column("Name"));
   fWriter.WriteHeaderCell(boost::shared_ptr<ICIMClass>(), Column("Missing"));
   fWriter.EndTableRow();
   fWriter.EndTableHeader();
   fWriter.BeginTableRow(true);
   fWriter.WriteValueCell(fan, Column("Name"));
   fWriter.WriteValueCell(fan, Column("State"));
   fWriter.WriteNumericSensorCell(fan, Column("CurrentReading"));
   fWriter.WriteRegisterValueCell(fan, fan->GetProperty("Name", {}));
   fWriter.EndTable();
   const std::string page = EndRun("fans.html");
   EXPECT_THAT(page, HasSubstr("<th scope=\"col\">Name</th><th scope=\"col\">Missing</th>"));
   EXPECT_THAT(page, HasSubstr("<th scope=\"row\">&lt;Fan&gt;</th>"
                               "<td>OK<span class=\"raw\">2</span></td>"
                               "<td class=\"num\">23.5</td><td class=\"mono\">&lt;Fan&gt;</td>"));
}

TEST_F(HtmlWriter, ScoresAreBarsAndValuesStandBesideTheirFrequencies)
{
   const std::vector<std::string> texts = {"CadenzaType", "CadenzaCimType", "CadenzaPropertyName",
                                           "CadenzaValue", "CadenzaFrequency"};
   std::vector<NZANQSX20::TPropertyDecl> declarations = {TTestStore::Key("CadenzaScore")};
   for (const std::string& text : texts)
      declarations.push_back(TTestStore::Property(text, TType::kString));
   for (const std::string list : {"CadenzaCommonValues", "CadenzaCommonFrequencies"}) {
      declarations.push_back(TTestStore::Property(list, TType::kString));
      declarations.back().fIsArray = true;
   }
   fStore.AddClass("ZANSG_CadenzaDevices", "", declarations);
   const auto device = fStore.AddInstance(
      "ZANSG_CadenzaDevices", {{"CadenzaScore", "40.5"},
                               {"CadenzaCommonValues", TTestStore::Strings({"1.21", "<1.22>"})},
                               {"CadenzaCommonFrequencies", TTestStore::Strings({"90%"})}});
   BeginRun("");
   fWriter.PrepareCadenzaReport();
   fWriter.OpenReportFile(fFolder.GetPath("cadenzadevices"));
   fWriter.WriteReportTitle(std::string(200, 'x'), "", "");
   fWriter.BeginColumnTable("100%", "", false);
   for (const std::string label : {"CadenzaCommonValues", "CadenzaCommonFrequencies"})
      fWriter.WriteHeaderCell(boost::shared_ptr<ICIMClass>(), Column(label));
   fWriter.EndTableRow();
   fWriter.WriteCadenzaRow(device, Column("CadenzaScore"), Column(texts[0]), Column(texts[1]),
                           Column(texts[2]), Column(texts[3]), Column(texts[4]),
                           Column("CadenzaCommonValues"), Column("CadenzaCommonFrequencies"), 0);
   fWriter.EndTableRow();
   fWriter.CloseReportFile();
   fWriter.WriteIndexEntry("cadenzadevices", "Device Analysis", true);
   const std::string page = EndRun("cadenzadevices.html");
   EXPECT_THAT(page, HasSubstr("<h1>Device Analysis</h1>")) << "a long title is no heading";
   EXPECT_THAT(page, HasSubstr(">CadenzaCommonValues / CadenzaCommonFrequencies</th>"));
   EXPECT_THAT(page, HasSubstr("width=\"40.5%\""));
   EXPECT_THAT(page, HasSubstr("<span>1.21</span> <span class=\"num\">90%</span>"));
   EXPECT_THAT(page, HasSubstr("<span>&lt;1.22&gt;</span> <span class=\"num\"></span>"));
}

TEST_F(HtmlWriter, BytesAreDumpedAndOtherRawDataStays)
{
   using NZANQSX20::TCIMValue;
   NZANQSX20::TPropertyDecl bytes = TTestStore::Property("rawData", TType::kUInt8);
   bytes.fIsArray = true;
   fStore.AddClass("OMC_SCSISenseRawData", "", {TTestStore::Key("InstanceID"), bytes});
   const std::vector<TCIMValue> values(17, TCIMValue::Unsigned(TType::kUInt8, 255));
   const auto sense = fStore.AddInstance(
      "OMC_SCSISenseRawData",
      {{"InstanceID", "s0"}, {"rawData", TCIMValue::Array(TType::kUInt8, values)}});
   BeginRun("sense");
   for (const std::string name : {"rawData", "InstanceID"}) {
      fWriter.WriteHeaderTextCell(name, Column(name));
      fWriter.WriteRawDataCell(sense->GetProperty(name, {}));
      fWriter.EndTableRow();
   }
   fWriter.WriteHeaderTextCell("nothing", Column("nothing"));
   fWriter.WriteRawDataCell(boost::shared_ptr<ICIMProperty>());
   const std::string page = EndRun("sense.html");
   EXPECT_THAT(page, HasSubstr("<td class=\"mono\">0000  ff ff ff ff ff ff ff ff ff ff ff ff ff ff "
                               "ff ff\n0010  ff</td>"));
   EXPECT_THAT(page, HasSubstr("<td class=\"mono\">s0</td>"));
   EXPECT_THAT(page, HasSubstr("<td class=\"mono\"></td>"));
}

TEST_F(HtmlWriter, ALogOfAnyLengthIsOneTable)
{
   fStore.AddClass("ZANSG_LogRecord", "",
                   {TTestStore::Key("RecordID"), TTestStore::Property("Message", TType::kString)});
   for (int i = 0; i < 2500; ++i)
      fStore.AddInstance("ZANSG_LogRecord",
                         {{"RecordID", std::to_string(i)}, {"Message", "all is well"}});
   TReportParameters::TReportClass log;
   log.SetClass("ZANSG_LogRecord");
   log.SetTitle("Records");
   log.SetProperties({Column("RecordID"), Column("Message")});
   TReportParameters report;
   report.SetLinkName("log");
   report.SetReportName("Log");
   report.SetClasses({log});
   BeginRun("");
   fWriter.WriteEventLogReport(report);
   const std::string page = EndRun("log.html");
   EXPECT_THAT(page, HasSubstr("2,000 of 2,500 rows"));
   EXPECT_THAT(page, Not(HasSubstr("id=\"t2\"")));
   EXPECT_THAT(fFolder.Read("index.html"), HasSubstr("href=\"log.html\">Log</a></th><td>2,500"));
}

TEST_F(HtmlWriter, AnEventLogShowsTheColumnsThatHaveValues)
{
   fStore.AddClass("ZANSG_LogRecord_HardEvent", "",
                   {TTestStore::Key("InstanceID"), TTestStore::Property("Empty", TType::kString),
                    TTestStore::Property("Message", TType::kString)});
   const auto event =
      fStore.AddInstance("ZANSG_LogRecord_HardEvent", {{"InstanceID", "e0"}, {"Message", "hard"}});
   BeginRun("corvanelogs");
   fWriter.WriteEventLogTable({event}, "Hard Event Log", "cvHardEventLog");
   const std::string page = EndRun("corvanelogs.html");
   EXPECT_THAT(page, HasSubstr("<th scope=\"col\">Message</th></tr>"));
   EXPECT_THAT(page, HasSubstr("<th scope=\"row\">hard</th></tr>"));
   EXPECT_THAT(page, Not(HasSubstr("Empty")));
}

}  // namespace
