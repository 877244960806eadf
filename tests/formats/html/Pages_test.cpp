#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "TPages.h"

namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

TTableGrid MakeGrid(const std::vector<std::vector<std::string>>& rows)
{
   TTableGrid grid;
   grid.fFirstRowIsHeader = true;
   grid.fCells = T2DArray<TTableCell>(rows.size(), rows[0].size());
   grid.fColumnWidths.assign(rows[0].size(), 30);
   for (std::size_t r = 0; r < rows.size(); ++r)
      for (std::size_t c = 0; c < rows[r].size(); ++c)
         grid.fCells(r, c).fText = rows[r][c];
   return grid;
}

/// Every slot that a text of the collection can reach, filled with one text.
void WriteEverySlot(TPages& pages, const std::string& text)
{
   TReportFlow& flow = pages.GetFlow();
   flow.BeginIndexGroup(text);
   pages.Open("raw");
   flow.WriteReportTitle(text, text, "report");
   flow.CloseReportFile();
   pages.Open("report");
   flow.WriteReportTitle(text, " - [" + text + "]", "raw");
   flow.WriteNote(text);
   flow.WriteTableTitle({text, false, false});
   TTableGrid grid = MakeGrid({{text, text, text}, {text, text, text}, {text, text, text}});
   for (std::size_t c = 0; c < 3; ++c)
      grid.fCells(1, c).fSecondText = text + "2";
   grid.fCells(1, 1).fMonospaced = true;
   flow.WriteGrid(grid);
   flow.WriteTableTitle({text, true, true});
   grid.fFirstColumnIsHeader = grid.fMarked = true;
   flow.WriteGrid(grid);
   flow.WriteTableTitle({text, false, false});
   flow.BeginRowTable("60%", "40%", text);
   pages.AddCell(text, true);
   pages.AddCell(text);
   flow.EndTable();
   flow.BeginColumnTable("60%", text, true);
   pages.AddCell(text, true);
   flow.EndTableRow();
   for (const ECellKind kind : {ECellKind::kScore, ECellKind::kFrequencies}) {
      TCell cell;
      cell.fText = cell.fSecondText = text;
      cell.fKind = kind;
      flow.BeginTableRow();
      flow.AddCell(cell);
   }
   flow.CloseReportFile();
   flow.WriteIndexEntry("report", text, true);
   flow.WriteIndexEntry("", text, false);
   flow.EndRun();
}

TRunFacts MakeFacts(const std::string& text)
{
   return {text, text, text, text, text, text, text, text, text, {}};
}

/// The text as a page holds it.
std::string Escape(std::string text)
{
   const std::pair<char, const char*> escapes[] = {
      {'&', "&amp;"}, {'<', "&lt;"}, {'>', "&gt;"}, {'"', "&quot;"}, {'\'', "&#39;"}};
   for (const auto& [character, escape] : escapes)
      for (std::size_t at = text.find(character); at != std::string::npos;
           at = text.find(character, at + 1))
         text.replace(at, 1, escape);
   return text;
}

const char* const kPayloads[] = {
   "</td><script>alert(1)</script>",
   "\"><img src=x onerror=alert(1)>",
   "' onmouseover='alert(1)",
   "</title></style><!-- <![CDATA[",
   "&lt;b&gt; &#x3C;b>",
   "javascript:alert(1)//",
   "<font face=\"Courier\">x</font>",
   "<a href=\"lsi_rawData_results0.txt\">View Results</a>",
   "{{x}} ${x} <%= x %>",
};

/// A text of the same words' lengths, as the length of words tells how a column is set.
std::string MakeHarmless(std::string text)
{
   for (char& c : text)
      if (c != ' ')
         c = 'w';
   return text;
}

TEST(Pages, EveryTextStaysText)
{
   for (const std::string payload : kPayloads) {
      const std::string word = MakeHarmless(payload);
      TPages harmless(MakeFacts(word));
      WriteEverySlot(harmless, word);
      TPages pages(MakeFacts(payload));
      WriteEverySlot(pages, payload);
      ASSERT_EQ(pages.GetFiles().size(), harmless.GetFiles().size()) << payload;
      for (const std::string file : {"index.html", "report.html"}) {
         const std::string page = pages.Read(file);
         EXPECT_EQ(GetTags(page), GetTags(harmless.Read(file))) << file << ": " << payload;
         EXPECT_EQ(Count(page, Escape(payload)), Count(harmless.Read(file), word))
            << file << ": " << payload;
      }
   }
}

TEST(Pages, ThePolicyAllowsNothingInline)
{
   TPages pages(MakeFacts("word"));
   WriteEverySlot(pages, "word");
   for (const std::string file : {"index.html", "report.html"}) {
      const std::string page = pages.Read(file);
      EXPECT_THAT(page, HasSubstr("default-src 'none'; style-src 'self'; script-src 'self'; "));
      EXPECT_THAT(page, Not(HasSubstr("unsafe-inline")));
      EXPECT_EQ(Count(page, "<script"), Count(page, "<script src=\"pages.js\"></script>"));
      EXPECT_THAT(page, Not(HasSubstr(" style=")));
   }
   EXPECT_THAT(pages.Read("pages.css"), HasSubstr("light-dark("));
   EXPECT_THAT(pages.Read("pages.js"), HasSubstr("localStorage"));
}

struct TCallCase
{
   const char* fReason;
   std::function<void(TPages&)> fCalls;
   std::size_t fTables;
};

const TCallCase kCalls[] = {
   {"several row tables, ended once",
    [](TPages& pages) {
       for (const std::string drive : {"drive 1", "drive 2", "drive 3"}) {
          pages.GetFlow().BeginRowTable("60%", "40%", "Drives");
          pages.AddCell("Name", true);
          pages.AddCell(drive);
          pages.GetFlow().EndTableRow();
       }
       pages.GetFlow().EndTable();
    },
    3},
   {"a row left open, a table left open",
    [](TPages& pages) {
       pages.GetFlow().BeginColumnTable("100%", "", true);
       pages.GetFlow().BeginTableRow();
       pages.AddCell("Label", true);
       pages.GetFlow().BeginTableRow();
       pages.AddCell("drive 1");
       pages.GetFlow().BeginTableRow();
       pages.AddCell("drive 2");
    },
    1},
   {"cells outside of everything",
    [](TPages& pages) {
       pages.AddCell("Name", true);
       pages.AddCell("drive 1");
       pages.GetFlow().EndTableRow();
       pages.GetFlow().EndTableRow();
       pages.GetFlow().EndTable();
       pages.GetFlow().EndTable();
    },
    1},
   {"a grid and a title inside of a table",
    [](TPages& pages) {
       pages.GetFlow().BeginRowTable("60%", "40%", "Drives");
       pages.AddCell("Name", true);
       pages.AddCell("drive 1");
       pages.GetFlow().WriteGrid(MakeGrid({{"Name"}, {"drive 2"}}));
       pages.GetFlow().BeginRowTable("60%", "40%", "Drives");
       pages.AddCell("Name", true);
       pages.AddCell("drive 3");
       pages.GetFlow().WriteTableTitle({"Next", false, false});
    },
    3},
   {"tables without rows",
    [](TPages& pages) {
       pages.GetFlow().BeginRowTable("60%", "40%", "Drives");
       pages.GetFlow().EndTable();
       pages.GetFlow().BeginColumnTable("60%", "Drives", true);
       pages.AddCell("drive 1", true);
       pages.GetFlow().EndTable();
       pages.GetFlow().WriteNote("drive 1");
    },
    0},
};

TEST(Pages, AnyOrderOfCallsGivesWellFormedHtml)
{
   for (const TCallCase& test : kCalls) {
      TPages pages;
      pages.Open("report");
      test.fCalls(pages);
      pages.GetFlow().EndRun();
      const std::string page = pages.Read("report.html");
      EXPECT_EQ(FindUnbalancedTag(page), "") << test.fReason;
      EXPECT_EQ(Count(page, "<table"), test.fTables) << test.fReason;
      EXPECT_THAT(page, HasSubstr("drive 1")) << test.fReason;
   }
}

TEST(Pages, WhatComesBeforeAPageStandsOnTheNextOne)
{
   TPages pages;
   pages.GetFlow().WriteTableTitle({"Early", false, false});
   pages.GetFlow().WriteGrid(MakeGrid({{"Name"}, {"drive 1"}}));
   pages.AddPage("report");
   pages.GetFlow().WriteTableTitle({"Late", false, false});
   pages.GetFlow().EndRun();
   const std::string page = pages.Read("report.html");
   EXPECT_LT(page.find(">Title of report<"), page.find("Early"));
   EXPECT_THAT(page, HasSubstr("drive 1"));
   ASSERT_EQ(pages.GetNotices().size(), 1u);
   EXPECT_THAT(pages.GetNotices()[0], HasSubstr("\"Late\""));
}

TEST(Pages, TitlesWithoutATableSayThatThereIsNoData)
{
   TPages pages;
   pages.Open("report");
   pages.GetFlow().WriteTableTitle({"Empty", false, false});
   pages.GetFlow().WriteTableTitle({"Full", false, false});
   pages.GetFlow().WriteGrid(MakeGrid({{"Name"}, {"drive 1"}}));
   pages.Open("nothing");
   pages.GetFlow().EndRun();
   const std::string page = pages.Read("report.html");
   EXPECT_EQ(Count(page, "No data."), 1u);
   EXPECT_LT(page.find("No data."), page.find("Full"));
   EXPECT_EQ(Count(pages.Read("nothing.html"), "No data."), 1u);
}

TEST(Pages, CellsAreShownAsTheyAreMeant)
{
   TTableGrid grid = MakeGrid(
      {{"Data Source", "Value", "Other"}, {"base", "1", "2"}, {"second", "7", ""}, {"", "", ""}});
   grid.fFirstColumnIsHeader = grid.fMarked = true;
   grid.fCells(1, 1).fSecondText = "N/A";
   grid.fCells(1, 2).fSecondText = "raw two";
   grid.fCells(2, 2).fText = "--- SAME ---";
   grid.fCells(2, 2).fSame = true;
   TPages pages;
   pages.Open("report");
   pages.GetFlow().WriteGrid(grid);
   pages.GetFlow().EndRun();
   const std::string page = pages.Read("report.html");
   EXPECT_THAT(page, HasSubstr("<th scope=\"row\">base</th>"));
   EXPECT_THAT(page, HasSubstr("2<span class=\"raw\">raw two</span>"));
   EXPECT_THAT(page, HasSubstr("<td class=\"changed\">7</td><td class=\"same\">same</td>"));
   EXPECT_THAT(page, Not(HasSubstr("N/A")));
   EXPECT_EQ(Count(page, "<tr id="), 2u) << "rows left over by the layout are not shown";
}

TEST(Pages, OnlyTheLibrarysOwnMarkupIsMarkup)
{
   const std::string command = "<font face=\"Courier\">tool <all> & \"more\"</font>";
   const TTableGrid grid =
      MakeGrid({{"Command", "Raw Result"},
                {command, "<a href=\"fc_rawData_results3.txt\">View Results</a>"},
                {"<font face=\"Courier\"", "<a href=\"../x_results3.txt\">View Results</a>"},
                {"", "<a href=\"fc_rawData_results3.txt\" id=\"x\">View Results</a>"}});
   TPages pages;
   for (const std::string page : {"fc_rawData", "report"}) {
      pages.Open(page);
      pages.GetFlow().WriteGrid(grid);
   }
   pages.GetFlow().EndRun();
   const std::string raw = pages.Read("fc_rawData.html");
   EXPECT_THAT(raw, HasSubstr("<td class=\"mono\">tool &lt;all&gt; &amp; &quot;more&quot;</td>"));
   EXPECT_THAT(raw, HasSubstr("<a href=\"fc_rawData_results3.txt\">View Results</a>"));
   EXPECT_EQ(Count(raw, "_results3.txt\">"), 1u);
   EXPECT_THAT(pages.Read("report.html"), HasSubstr(Escape(command)));
}

/// All rows of all files of the page, in the order of the files.
std::vector<std::string> ReadRows(const TPages& pages, std::size_t files)
{
   std::vector<std::string> rows;
   for (std::size_t i = 1; i <= files; ++i) {
      const std::string page =
         pages.Read(i == 1 ? "log.html" : "log~" + std::to_string(i) + ".html");
      EXPECT_EQ(FindUnbalancedTag(page), "");
      EXPECT_LT(page.size(), 2'000'000u);
      for (std::size_t at = page.find("<tr id=\""); at != std::string::npos;
           at = page.find("<tr id=\"", at + 1))
         rows.push_back(page.substr(at + 8, page.find('"', at + 8) - at - 8));
   }
   return rows;
}

std::size_t CountFiles(const TPages& pages, const std::string& stem)
{
   const std::vector<std::string> files = pages.GetFiles();
   return static_cast<std::size_t>(std::count_if(files.begin(), files.end(), [&](const auto& file) {
      return file == stem + ".html" || file.rfind(stem + "~", 0) == 0;
   }));
}

TEST(Pages, APageHoldsTheFirstRowsOfALongTableAndItsFilesAllOfThem)
{
   TPages pages;
   pages.Open("log");
   TReportFlow& flow = pages.GetFlow();
   flow.BeginColumnTable("100%", "log", true);
   pages.AddCell("Message", true);
   for (int i = 0; i < 4500; ++i) {
      flow.BeginTableRow();
      pages.AddCell("message " + std::to_string(i));
   }
   flow.WriteTableTitle({"After", false, false});
   flow.WriteGrid(MakeGrid({{"Name"}, {"drive 1"}}));
   flow.EndRun();

   const std::vector<std::string> rows = ReadRows(pages, 1);
   ASSERT_EQ(rows.size(), 2001u);
   EXPECT_EQ(rows[1999], "t1-r2000");
   EXPECT_EQ(rows[2000], "t2-r1");
   const std::string page = pages.Read("log.html");
   EXPECT_THAT(page, HasSubstr("id=\"t1\" data-page=\"0\" data-rows=\"4500\" data-from=\"1\" "
                               "data-to=\"1\">"));
   EXPECT_THAT(page, HasSubstr("<output>2,000 of 4,500 rows</output>"));
   EXPECT_THAT(page, HasSubstr("href=\"rows/log~1.txt\""));
   const std::string text = pages.Read("rows/log~1.txt");
   EXPECT_EQ(Count(text, "\n"), 4501u);
   EXPECT_THAT(text, StartsWith("\xEF\xBB\xBFMessage\nmessage 0\n"));
   const std::string script = pages.Read("rows/1.js");
   EXPECT_EQ(Count(script, "\x1E"), 4501u);
   EXPECT_THAT(script, StartsWith("qsxRows(0,1,1,\"\x0Emessage 0\x1E\x0Emessage 1\x1E"));
   EXPECT_THAT(script, HasSubstr("\");\nqsxTable(0,1,0,4500,\"log\",[\"Message\"]);\n"
                                 "qsxRows(0,2,1,\"\x0E"
                                 "drive 1\x1E\");\n"));
   EXPECT_EQ(pages.Read("rows/index.js"), "qsxPages(1,[[\"log\",\"log\"]]);\n");
}

TEST(Pages, NoFileGrowsBeyondTwoMegabytes)
{
   TPages pages;
   pages.Open("log");
   TReportFlow& flow = pages.GetFlow();
   const std::string text(10'000, 'x');
   flow.WriteGrid(MakeGrid(std::vector<std::vector<std::string>>(301, {text})));
   for (int i = 0; i < 300; ++i) {
      flow.WriteTableTitle({"Table", false, false});
      flow.WriteGrid(MakeGrid({{"Name"}, {text}}));
   }
   flow.WriteGrid(MakeGrid({{"Name"}, {std::string(3'000'000, '\xC3')}}));
   flow.EndRun();
   const std::vector<std::string> rows = ReadRows(pages, CountFiles(pages, "log"));
   EXPECT_EQ(pages.Read("rows/log~302-r1-c1.txt").size(), 9'000'003u) << "a value of its own size";
   EXPECT_EQ(std::count(rows.begin(), rows.end(), "t301-r1"), 1);
   EXPECT_THAT(pages.Read("log.html"), HasSubstr(" of 300 rows</output>"));
   EXPECT_EQ(Count(pages.Read("rows/log~1.txt"), "\n"), 301u);
}

TEST(Pages, RowFilesHoldTextsOnly)
{
   TPages pages;
   pages.Open("log");
   TReportFlow& flow = pages.GetFlow();
   flow.WriteGrid(MakeGrid({{"a\"\\"}, {"</script>\"\\\n\r\x1E\x1F\xFF\xE2\x80\xA8"}}));
   flow.EndRun();
   EXPECT_EQ(pages.Read("rows/1.js"),
             "qsxRows(0,1,1,\"\x0E</script>\\\"\\\\\\n\\n\xE2\x90\x9E\xE2\x90\x9F\xEF\xBF\xBD"
             "\xE2\x80\xA8\x1E\");\nqsxTable(0,1,0,1,\"\",[\"a\\\"\\\\\"]);\n");
}

TEST(Pages, EntriesLeadToTheirPages)
{
   TPages pages;
   TReportFlow& flow = pages.GetFlow();
   flow.BeginIndexGroup("Hardware");
   // A page without an entry, and later another one of its name.
   pages.Open("fc_rawData");
   flow.WriteReportTitle("Tool data", " - [Show Standard Report]", "Qlogic");
   pages.Open("Qlogic");
   flow.WriteReportTitle("Qlogic", " - [Show Rawdata Report]", "fc_rawData");
   flow.CloseReportFile();
   flow.WriteIndexEntry("Qlogic", "Qlogic", true);
   pages.AddPage("Environmentals");
   pages.AddPage("environmentals", false);
   flow.WriteIndexEntry("", "Nowhere", false);
   flow.WriteIndexEntry("gone", "Gone", true);
   flow.EndIndexGroup();
   pages.AddPage("fc_rawData");
   // An entry ahead of its page, twice under one link name.
   for (const std::string log : {"/a/messages", "/b/messages"}) {
      flow.WriteIndexEntry("syslog_messages", log, true);
      pages.Open("syslog_messages");
      flow.WriteReportTitle(log, "", "");
      flow.CloseReportFile();
   }
   flow.EndRun();

   const std::string index = pages.Read("index.html");
   for (const std::string link :
        {"Environmentals.html\">Environmentals<", "fc_rawData-2.html\">fc_rawData<",
         "syslog_messages.html\">/a/messages<", "syslog_messages-2.html\">/b/messages<"})
      EXPECT_THAT(index, HasSubstr(link));
   EXPECT_THAT(index, HasSubstr("<span>environmentals</span><span class=\"num\">no data"));
   EXPECT_THAT(index, HasSubstr("<span>Nowhere</span><span class=\"num\">no data"));
   EXPECT_THAT(index, HasSubstr("<span>Gone</span><span class=\"num\">no page"));
   EXPECT_THAT(pages.Read("syslog_messages-2.html"), HasSubstr("<h1>/b/messages</h1>"));
   EXPECT_THAT(pages.Read("Qlogic.html"),
               HasSubstr("<a class=\"raw-link\" href=\"fc_rawData.html\">Show Rawdata Report</a>"));
   EXPECT_THAT(pages.Read("fc_rawData.html"), HasSubstr("href=\"Qlogic.html\">Show Standard"));
   EXPECT_THAT(pages.Read("environmentals-2.html"), HasSubstr("Title of environmentals"));
}

}  // namespace
