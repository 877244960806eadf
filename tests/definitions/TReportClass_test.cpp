#include <gtest/gtest.h>

#include "definitions/TReportParameters.h"

using TReportClass = TReportParameters::TReportClass;
using TReportProperty = TReportParameters::TReportProperty;

namespace {

std::string Validate(const TReportClass& reportClass)
{
   testing::internal::CaptureStdout();
   reportClass.Validate();
   return testing::internal::GetCapturedStdout();
}

TReportClass MakeFans()
{
   TReportClass fans;
   fans.SetClass("CIM_Fan");
   fans.SetTitle("Fans");
   return fans;
}

}  // namespace

TEST(TReportParameters, ReadsTheNumberAheadOfThePercentSign)
{
   EXPECT_EQ(100, TReportParameters::ConvertPercent("100%"));
   EXPECT_EQ(7, TReportParameters::ConvertPercent("7"));
   EXPECT_EQ(0, TReportParameters::ConvertPercent(""));
   EXPECT_EQ(0, TReportParameters::ConvertPercent("wide"));
}

TEST(TReportClass, TellsColumnsThatAreTooNarrowOrDoNotAddUp)
{
   TReportClass fans = MakeFans();
   fans.SetProperties({{"Name", "98%", "", "", ""}, {"Speed", "1%", "", "", ""}});
   EXPECT_EQ(
      "Report: column 'Speed' width is less than 2% for the Fans report definition (CIM class "
      "CIM_Fan)\n"
      "Report: columns add to 99% for the Fans report definition (CIM class CIM_Fan)\n",
      Validate(fans));
}

TEST(TReportClass, TestsARowTableByItsLabelColumnAlone)
{
   TReportClass fans = MakeFans();
   fans.SetReportStyle(TReportClass::kRowStyle);
   EXPECT_EQ(
      "Report: Row report header width is 0% for the Fans report definition (CIM class CIM_Fan)\n",
      Validate(fans));
   fans.SetRowReportHeaderWidth("30%");
   EXPECT_EQ("", Validate(fans));
}

TEST(TReportClass, ResetLeavesWhatTheNextTableInherits)
{
   TReportClass fans = MakeFans();
   fans.SetRowReportHeaderWidth("30%");
   fans.SetMaxInstancesPerTable(2);
   fans.SetAssociatedClasses({MakeFans()});
   fans.Reset();
   EXPECT_EQ("CIM_Fan", fans.GetClass());
   EXPECT_EQ("Fans", fans.GetTitle());
   EXPECT_FALSE(fans.HasTitle());
   EXPECT_EQ("30%", fans.GetRowReportHeaderWidth());
   EXPECT_EQ(1u, fans.GetAssociatedClasses().size());
   EXPECT_EQ(TReportClass::kNoMaximum, fans.GetMaxInstancesPerTable());
}
