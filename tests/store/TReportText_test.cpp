#include <gtest/gtest.h>

#include "CIMStore.h"
#include "support/TTestStore.h"

using TType = TCIMValue::TCIMType;
using NZANQSX20::TQualifierDecl;

namespace {

struct TShown
{
   std::string fText;
   std::string fRaw;
   bool fHasRawValue;
};

/// A property with these qualifiers and this value, as a report shows it.
TShown Show(const TCIMValue& value, std::vector<TQualifierDecl> qualifiers)
{
   TTestStore store;
   store.AddClass("ZANSG_Shown", "",
                  {TTestStore::Property("P", value.GetType(), std::move(qualifiers))});
   const auto property = store.AddInstance("ZANSG_Shown", {{"P", value}})->GetProperty("P", {});
   return {property->GetValueString(), property->GetRawValueString(),
           !property->GetValue().IsNull()};
}

TCIMValue Number(std::int64_t number)
{
   return TCIMValue::Signed(TType::kSInt64, number);
}

std::string ShowUnit(const std::string& unit, std::int64_t number)
{
   return Show(Number(number), {{"Units", unit}}).fText;
}

}  // namespace

TEST(TReportText, TranslatesByTheFirstEntryOfTheMapThatFits)
{
   const std::vector<TQualifierDecl> map = {
      {"ValueMap", TTestStore::Strings({"..", "1", "5..7", "6", "..-3", "90..", "x"})},
      {"Values", TTestStore::Strings({"Other", "One", "Some", "Six", "Cold", "Hot"})}};
   const std::vector<std::pair<std::int64_t, std::string>> cases = {
      {1, "One"}, {6, "Some"}, {-3, "Cold"}, {-2, "Other"}, {90, "Hot"}, {8, "Other"}};
   for (const auto& item : cases) {
      const TShown shown = Show(Number(item.first), map);
      EXPECT_EQ(item.second, shown.fText);
      EXPECT_EQ(std::to_string(item.first), shown.fRaw);
      EXPECT_TRUE(shown.fHasRawValue);
   }
   // The map has an entry that the words lack.
   EXPECT_EQ("Unknown (x)", Show(TCIMValue("x"), map).fText);
   EXPECT_EQ("", Show(TCIMValue::Null(TType::kUInt8), map).fText);

   const TQualifierDecl words = {"Values", TTestStore::Strings({"Zero", "One"})};
   EXPECT_EQ("One", Show(Number(1), {words}).fText);
   EXPECT_EQ("Unknown (2)", Show(Number(2), {words}).fText);
   EXPECT_EQ("Unknown (-1)", Show(Number(-1), {words}).fText);
   EXPECT_EQ("1", Show(TCIMValue("1"), {words}).fText);
}

TEST(TReportText, TellsIntegersWithTheirUnit)
{
   EXPECT_EQ("1,234,567 KB", ShowUnit("KiloBytes", 1234567));
   EXPECT_EQ("999 Bytes", ShowUnit("Bytes", 999));
   EXPECT_EQ("-1,000 MB", ShowUnit("MegaBytes", -1000));
   EXPECT_EQ("1 hour 2 minutes 3 seconds 4 milliseconds", ShowUnit("MilliSeconds", 3723004));
   EXPECT_EQ("1 minute", ShowUnit("Seconds", 60));
   EXPECT_EQ("0 seconds", ShowUnit("MilliSeconds", 0));
   EXPECT_EQ("-9223372036854775808 RPM", ShowUnit("RPM", std::numeric_limits<std::int64_t>::min()));
   // A unit says nothing of a text.
   const TShown text = Show(TCIMValue("12"), {{"Units", "Bytes"}});
   EXPECT_EQ("12", text.fText);
   EXPECT_EQ("", text.fRaw);
   EXPECT_FALSE(text.fHasRawValue);
}

TEST(TReportText, ShowsPlainTypesAndArrays)
{
   EXPECT_EQ("True", Show(TCIMValue::Boolean(true), {}).fText);
   EXPECT_EQ("2000-01-01 01:01:01",
             Show(TCIMValue(TCIMDateTime(2000, 1, 1, 1, 1, 1, 1, 1)), {}).fText);
   EXPECT_EQ("2.5", Show(TCIMValue::Real(TType::kReal32, 2.5), {{"Units", "Volts"}}).fText);
   EXPECT_EQ("a, b", Show(TTestStore::Strings({"a", "b"}), {}).fText);

   const TCIMValue numbers = TCIMValue::Array(TType::kSInt64, {Number(0), Number(1)});
   const TShown words = Show(numbers, {{"Values", TTestStore::Strings({"Zero", "One"})}});
   EXPECT_EQ("Zero, One", words.fText);
   EXPECT_EQ("0,1", words.fRaw);
}

TEST(TReportText, ReadsEachQualifierFromTheMostDerivedDeclaration)
{
   TTestStore store;
   const TQualifierDecl map = {"ValueMap", TTestStore::Strings({"1", "2"})};
   const auto words = [](const char* first) {
      return TQualifierDecl{"Values", TTestStore::Strings({first, "Two"})};
   };
   store.AddClass("ZANSG_Base", "", {TTestStore::Property("P", TType::kUInt16, {map, words("a")})});
   store.AddClass("ZANSG_Derived", "ZANSG_Base",
                  {TTestStore::Property("P", TType::kUInt16, {words("b")})});
   const TCIMValue one(static_cast<unsigned short>(1));
   const auto show = [&](const std::string& name) {
      return store.AddInstance(name, {{"P", one}})->GetProperty("P", {})->GetValueString();
   };
   EXPECT_EQ("a", show("ZANSG_Base"));
   EXPECT_EQ("b", show("ZANSG_Derived"));
}
