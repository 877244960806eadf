#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "TPages.h"
#include "common/SystemLabels.h"
#include "html/HtmlSystems.h"

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::HasSubstr;
using testing::Not;

using TTexts = std::vector<std::string>;

TRunFacts MakeFacts(const TTexts& labels)
{
   TRunFacts facts;
   for (const std::string& label : labels) {
      facts.fComparedSystems.emplace_back();
      facts.fComparedSystems.back().fLabel = label;
   }
   return facts;
}

/// "=" is a cell that repeats the base.
TTableGrid MakeGrid(const std::vector<TTexts>& rows, bool isMarked, bool hasRowLabels)
{
   TTableGrid grid;
   grid.fFirstRowIsHeader = true;
   grid.fFirstColumnIsHeader = hasRowLabels;
   grid.fMarked = isMarked;
   grid.fCells = T2DArray<TTableCell>(rows.size(), rows[0].size());
   for (std::size_t r = 0; r < rows.size(); ++r)
      for (std::size_t c = 0; c < rows[r].size(); ++c) {
         grid.fCells(r, c).fText = rows[r][c];
         grid.fCells(r, c).fSame = rows[r][c] == "=";
      }
   return grid;
}

/// A run with one report, as the library writes it.
class TComparedPages : public TPages
{
public:
   explicit TComparedPages(const TTexts& labels) : TPages(MakeFacts(labels))
   {
      GetFlow().BeginIndexGroup("Group");
      Open("disks");
      GetFlow().WriteReportTitle("Disks", "", "");
      GetFlow().WriteTableTitle({"Drives", false, false});
   }

   void AddDifference(const std::string& name, const std::vector<TTexts>& rows)
   {
      GetFlow().WriteGrid(MakeGrid({{"Name"}, {name}}, false, false));
      GetFlow().WriteTableTitle({"Differences", true, true});
      if (!rows.empty())
         GetFlow().WriteGrid(MakeGrid(rows, true, true));
   }

   void AddInstance(const std::string& heading, const std::string& name)
   {
      GetFlow().WriteTableTitle({heading, true, true});
      GetFlow().WriteGrid(MakeGrid({{"Name"}, {name}}, true, false));
   }

   void End()
   {
      GetFlow().CloseReportFile();
      GetFlow().WriteIndexEntry("disks", "Disks", true);
      AddPage("fans", false);
      GetFlow().EndRun();
   }
};

}  // namespace

TEST(Comparison, EqualAndEmptyLabelsAreToldApartByTheirFiles)
{
   const struct
   {
      TTexts fLabels;
      TTexts fFiles;
      TTexts fDistinct;
   } cases[] = {
      {{"a", "b"}, {"x.mof", "y.mof"}, {"a", "b"}},
      {{"a", "a", "b"}, {"p/x.mof", "y/", "z"}, {"a (x.mof)", "a (y)", "b"}},
      {{"", "b"}, {"p/x.mof", "y.mof"}, {"x.mof", "b"}},
      {{"a", "a"}, {"p/x.mof", "q/x.mof"}, {"a (p/x.mof)", "a (q/x.mof)"}},
      {{"a", "a"}, {"x.mof", "x.mof"}, {"a (x.mof, system 1)", "a (x.mof, system 2)"}},
      {{"", ""}, {}, {"system 1", "system 2"}},
   };

   for (const auto& c : cases) {
      TTexts labels = c.fLabels;
      MakeLabelsDistinct(labels, c.fFiles);
      EXPECT_THAT(labels, ElementsAreArray(c.fDistinct));
   }
}

TEST(Comparison, HeadingsNameSystemsWhateverTheirLabels)
{
   const THtmlSystems systems(MakeFacts({"a", "a, b", "b"}));
   EXPECT_THAT(TComparedHeading("Missing from a, b, b", systems).fSystems, ElementsAre(1, 2));
   EXPECT_THAT(TComparedHeading("Unique to b, a", systems).fSystems, ElementsAre(2, 0));
   EXPECT_THAT(TComparedHeading("Missing from c", systems).fSystems, ElementsAre());
   EXPECT_EQ("AB", THtmlSystems::GetLetter(27));
}

TEST(Comparison, TheFrontPageTellsWhatDiffersBetweenTwo)
{
   TComparedPages pages({"<one>", "two"});
   pages.AddDifference(
      "sda", {{"Data Source", "Size", "Version"}, {"<one>", "1", "v1"}, {"two", "2", "v2"}});
   pages.AddDifference("sdb", {});
   pages.AddInstance("Missing from two", "sdc");
   pages.End();
   const std::string front = pages.Read("index.html");
   EXPECT_EQ("", FindUnbalancedTag(front));
   EXPECT_THAT(front, HasSubstr("<h1>1 of 1 report differs</h1>"));
   EXPECT_THAT(front, HasSubstr("3 instances: 2 differ, 1 missing."));
   EXPECT_THAT(front, HasSubstr("No data to compare: <bdi>fans</bdi>."));
   EXPECT_THAT(front, HasSubstr("<a href=\"disks.html#t2\">sda</a> <small>Drives</small></th>"
                                "<td>Version</td><td class=\"majority\">v1</td>"
                                "<td class=\"outlier\">v2</td>"))
      << "a version says more than the property ahead of it";
   EXPECT_THAT(front, HasSubstr("<td class=\"majority\">present</td>"
                                "<td class=\"outlier\">missing</td>"));
   const std::string page = pages.Read("disks.html");
   EXPECT_EQ("", FindUnbalancedTag(page));
   EXPECT_THAT(page, HasSubstr("<p class=\"page-meta\">2 differ, 1 missing.</p>"));
   EXPECT_THAT(page, HasSubstr(">A</span>&lt;one&gt;</th>"));
   EXPECT_THAT(page,
               HasSubstr("Missing from <span class=\"sys\" aria-hidden=\"true\">B</span>two"));
   EXPECT_THAT(page, HasSubstr("In properties that this report does not show."));
}

TEST(Comparison, OneOfManyStandsApart)
{
   const TTexts header = {"Data Source", "Size"};

   const struct
   {
      std::vector<TTexts> fRows;
      const char* fVerdict;
   } cases[] = {
      {{header, {"a", "1"}, {"c", "2"}}, "C</span>c stands apart"},
      {{header, {"a", "1"}, {"b", "2"}, {"c", "2"}}, "A</span>a stands apart"},
      {{header, {"a", "1"}, {"b", "="}, {"c", "2"}}, "C</span>c stands apart"},
      {{header, {"a", "1"}, {"b", "2"}, {"c", "3"}}, "no single outlier"},
      {{header, {"c", "2"}}, "no single outlier"},
   };

   for (const auto& c : cases) {
      TComparedPages pages({"a", "b", "c"});
      pages.AddDifference("sda", c.fRows);
      pages.End();
      EXPECT_THAT(pages.Read("index.html"), HasSubstr(c.fVerdict));
   }
   TComparedPages pages({"a", "b", "c"});
   pages.AddInstance("Missing from b, c", "own of a");
   pages.AddInstance("Unique to b", "own of b");
   pages.AddInstance("Unique to b, c", "not on a");
   pages.End();
   EXPECT_THAT(pages.Read("index.html"), HasSubstr("no single outlier"));
   EXPECT_THAT(pages.Read("index.html"), Not(HasSubstr(">own of b</a>")));
}

TEST(Comparison, AnItemIsNeverBothMissingAndUnique)
{
   TComparedPages pages({"a", "b", "c"});
   const auto add = [&pages](const char* heading, const TTexts& values) {
      pages.GetFlow().WriteTableTitle({heading, true, true});
      TTableGrid grid = MakeGrid({{"User", "Group", "Host"}, values}, true, false);
      grid.fMarked = true;
      pages.GetFlow().WriteGrid(grid);
   };
   add("Missing from b, c", {"root", "wheel", ""});
   add("Missing from b, c", {"anna", "staff", ""});
   add("Unique to b", {"root", "wheel", ""});
   add("Unique to c", {"root", "wheel", ""});
   add("Unique to c", {"anna", "staff", ""});
   pages.GetFlow().WriteTableTitle({"Hosts", false, false});
   add("Missing from b, c", {"root", "wheel", "h1"});
   add("Unique to b", {"root", "wheel", "h2"});
   add("Unique to c", {"root", "wheel", "h3"});
   pages.End();
   const std::string page = pages.Read("disks.html");
   EXPECT_EQ("", FindUnbalancedTag(page));
   EXPECT_THAT(page, HasSubstr("<p class=\"page-meta\">1 differs, 1 missing.</p>"));
   EXPECT_THAT(page, HasSubstr("The same on all systems, each under a key of its own: root."));
   EXPECT_THAT(page, HasSubstr("Missing from <span class=\"sys\" aria-hidden=\"true\">B</span>b"))
      << "anna is on two systems";
   EXPECT_THAT(page, Not(HasSubstr("Unique to")));
   EXPECT_THAT(page, HasSubstr("<td class=\"changed\">h2</td>"));
   EXPECT_THAT(page, Not(HasSubstr("<td class=\"changed\">wheel")));
}

TEST(Comparison, TheMajorityIsToldWithAllWhoHaveAnotherValue)
{
   TComparedPages pages({"a", "b", "c", "d", "e"});
   pages.AddDifference("bios", {{"Data Source", "Version"}, {"a", "1"}, {"c", "2"}, {"e", "3"}});
   pages.End();
   const std::string front = pages.Read("index.html");
   EXPECT_EQ("", FindUnbalancedTag(front));
   EXPECT_THAT(front,
               HasSubstr("<td class=\"majority\" rowspan=\"2\">1</td><td class=\"num "
                         "majority\" rowspan=\"2\">3 of 5</td><td class=\"outlier\">2</td>"));
   EXPECT_THAT(front, HasSubstr("<td class=\"outlier\">3</td><td class=\"on one\"><span "
                                "class=\"sys\" aria-hidden=\"true\">E</span>e"));
   EXPECT_THAT(front, HasSubstr("no single outlier"));
}
