#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "TPages.h"
#include "html/THtmlWriter.h"
#include "support/TTemporaryFolder.h"
#include "support/TTestStore.h"

namespace {

using testing::HasSubstr;
using testing::Not;
using TType = TTestStore::TType;

constexpr const char* kAttributeClass = "OMC_IDESMARTAttrib";

struct TAttribute
{
   const char* fName;
   unsigned fValue;
   unsigned fWorst;
   unsigned fThreshold;
};

NZANQSX20::TCIMValue Number(unsigned number)
{
   return NZANQSX20::TCIMValue::Unsigned(TType::kUInt8, number);
}

/// The page with one table of these attributes, under a title. The collection calls the values
/// "Current".
std::string WriteAttributes(const std::vector<TAttribute>& attributes, const std::string& title)
{
   TTestStore store;
   store.AddClass(kAttributeClass, "",
                  {TTestStore::Key("attribName"),
                   TTestStore::Property("value", TType::kUInt8, {{"DisplayName", "Current"}}),
                   TTestStore::Property("worst", TType::kUInt8),
                   TTestStore::Property("threshold", TType::kUInt8)});
   TWriter::TInstances instances;
   for (const TAttribute& attribute : attributes)
      instances.push_back(
         store.AddInstance(kAttributeClass, {{"attribName", attribute.fName},
                                             {"value", Number(attribute.fValue)},
                                             {"worst", Number(attribute.fWorst)},
                                             {"threshold", Number(attribute.fThreshold)}}));
   TReportParameters::TReportClass table;
   table.SetClass(kAttributeClass);
   table.SetTitle(title);
   table.SetProperties({{"attribName", "", "", "", ""},
                        {"value", "", "", "", ""},
                        {"worst", "", "", "", ""},
                        {"threshold", "", "", "", ""}});
   TTemporaryFolder folder;
   THtmlWriter writer{THtmlOptions()};
   writer.Initialize(store.GetNamespace(), {}, folder.GetPath());
   writer.OpenReportFile(folder.GetPath("drive_health"));
   writer.WriteTable(table, instances, true, false, {});
   writer.CloseReportFile();
   writer.EndIndex();
   return folder.Read("drive_health.html");
}

TEST(DriveHealth, AttributesClosestToTheirThresholdsComeFirst)
{
   const std::string page = WriteAttributes(
      {{"Hours", 0, 0, 0}, {"<Spin>", 100, 20, 97}, {"Sectors", 36, 12, 36}, {"Rate", 117, 99, 6}},
      "SMART Attributes Data");
   EXPECT_THAT(page, HasSubstr("1 of 3 attributes with a threshold is at or below it"))
      << "one without a threshold can't be";
   const std::string figure = page.substr(page.find("<figure"), page.find("</figure>"));
   std::size_t at = 0;
   for (const char* part : {"Sectors</th>", "aria-label=\"Failed\"", "&lt;Spin&gt;</th>",
                            "aria-label=\"Attention\"", "Rate</th>"})
      EXPECT_NE(std::string::npos, at = figure.find(part, at)) << part;
   EXPECT_THAT(page, HasSubstr("aria-label=\"Value 117 of 200, worst 99, threshold 6\""));
   EXPECT_THAT(page, HasSubstr("class=\"f-base\" width=\"58.5%\""));
   EXPECT_THAT(page, HasSubstr("aria-label=\"Value 0 of 100, worst 0, no threshold\""));
   EXPECT_THAT(page, HasSubstr("<th scope=\"row\" id=\"t1-r3-c1\" class=\"has-failed\">"));
   EXPECT_THAT(page, HasSubstr("id=\"t1-r3-c2\"")) << "findings lead to the value";
   EXPECT_THAT(page, HasSubstr("</svg><span>36</span></td>")) << "the number stays";
   EXPECT_THAT(page, Not(HasSubstr("style=")));
}

TEST(DriveHealth, AFigureNeedsThresholdsAndShowsEightAtMost)
{
   EXPECT_THAT(WriteAttributes({{"Hours", 0, 0, 0}}, "SMART Attributes Data"),
               Not(HasSubstr("<figure")));
   EXPECT_THAT(WriteAttributes({{"Rate", 1, 1, 6}}, "Other"), Not(HasSubstr("class=\"bar\"")));
   const std::string page =
      WriteAttributes(std::vector<TAttribute>(9, {"Rate", 100, 100, 6}), "SMART Attributes Data");
   EXPECT_THAT(page, HasSubstr("0 of 9 attributes"));
   EXPECT_EQ(Count(page, "<svg class=\"bar\""), 8u + 9u);
}

}  // namespace
