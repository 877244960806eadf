#include <limits>

#include <gtest/gtest.h>

#include "CIMStore.h"

using TType = TCIMValue::TCIMType;

namespace {

template <typename TAction>
int GetStatus(TAction action)
{
   try {
      action();
   } catch (const TQSXException& exception) {
      return exception.fStatusCode.fStatusCode;
   }
   return 0;
}

TCIMDateTime Time(const std::string& text)
{
   TCIMDateTime result;
   EXPECT_TRUE(TCIMDateTime::Parse(text, result)) << text;
   return result;
}

TCIMValue Bytes(std::initializer_list<unsigned int> numbers)
{
   std::vector<TCIMValue> elements;
   for (const unsigned int number : numbers)
      elements.push_back(TCIMValue::Unsigned(TType::kUInt8, number));
   return TCIMValue::Array(TType::kUInt8, elements);
}

}  // namespace

TEST(TCIMValue, ToStringIsTheTextOfEveryType)
{
   const std::vector<std::pair<TCIMValue, std::string>> cases = {
      {TCIMValue(), ""},
      {TCIMValue::Boolean(true), "TRUE"},
      {TCIMValue::Unsigned(TType::kChar16, 0x20AC), "\xE2\x82\xAC"},
      {TCIMValue::Unsigned(TType::kUInt8, 300), "44"},  // cut to its width
      {TCIMValue::Signed(TType::kSInt64, std::numeric_limits<std::int64_t>::min()),
       "-9223372036854775808"},
      {TCIMValue::Unsigned(TType::kUInt64, std::numeric_limits<std::uint64_t>::max()),
       "18446744073709551615"},
      {TCIMValue::Real(TType::kReal64, 0.1), "0.1"},
      {TCIMValue::Real(TType::kReal32, 0.1), "0.1"},  // shortest for its own width
      {TCIMValue("a,b"), "a,b"},
      {TCIMValue(TCIMDateTime(2000, 1, 1, 1, 1, 1, 1, 1)), "20000101010101.000001+001"},
      {TCIMValue(TCIMReference(nullptr, "B.b=2,a=\"x\"", {})), "B.a=\"x\",b=2"},
      {Bytes({1, 2}), "1,2"},
   };
   for (const auto& item : cases)
      EXPECT_EQ(item.second, item.first.ToString(10));
   EXPECT_EQ("ff", TCIMValue::Unsigned(TType::kUInt8, 255).ToString(16));
}

TEST(TCIMValue, OrdersAllValuesStrictly)
{
   const double nan = std::numeric_limits<double>::quiet_NaN();
   const std::vector<TCIMValue> ascending = {
      TCIMValue::Null(TType::kString),
      TCIMValue::Boolean(false),
      TCIMValue::Boolean(true),
      TCIMValue::Signed(TType::kSInt64, -2),
      TCIMValue::Signed(TType::kSInt8, -1),
      TCIMValue::Unsigned(TType::kUInt8, 1),
      TCIMValue::Unsigned(TType::kUInt64, std::numeric_limits<std::uint64_t>::max()),
      TCIMValue::Real(TType::kReal64, -1.5),
      TCIMValue::Real(TType::kReal32, 2),
      TCIMValue::Real(TType::kReal64, nan),
      TCIMValue("10"),
      TCIMValue("9"),
      TCIMValue(Time("20090102030405.000000+060")),
      TCIMValue(Time("20090102030405.000000+000")),
      TCIMValue(Time("00000001000000.000000:000")),
      Bytes({}),
      Bytes({1}),
      Bytes({1, 0}),
      Bytes({2}),
   };
   for (std::size_t i = 0; i < ascending.size(); ++i) {
      for (std::size_t j = 0; j < ascending.size(); ++j)
         EXPECT_EQ(i < j, ascending[i] < ascending[j]) << i << " and " << j;
      EXPECT_TRUE(ascending[i] == ascending[i]) << i;
   }
   EXPECT_TRUE(TCIMValue::Signed(TType::kSInt8, 5) == TCIMValue::Unsigned(TType::kUInt64, 5));
}

TEST(TCIMValue, ConvertsWhatMakesSenseAndThrowsForTheRest)
{
   const TCIMValue wide = TCIMValue::Unsigned(TType::kUInt32, 0x12345);
   EXPECT_EQ(0x2345, static_cast<unsigned short>(wide));
   EXPECT_EQ(-1, static_cast<int>(TCIMValue::Signed(TType::kSInt8, -1)));
   EXPECT_TRUE(static_cast<bool>(wide));
   EXPECT_EQ("", static_cast<std::string>(TCIMValue()));
   EXPECT_EQ(15, GetStatus([] { static_cast<void>(static_cast<int>(TCIMValue())); }));
   EXPECT_EQ(15, GetStatus([] { static_cast<void>(static_cast<TCIMDateTime>(TCIMValue())); }));
   EXPECT_EQ(13, GetStatus([] { static_cast<void>(static_cast<int>(TCIMValue("5"))); }));
   EXPECT_EQ(13, GetStatus([] { static_cast<void>(static_cast<TCIMReference>(TCIMValue("A"))); }));
   EXPECT_EQ(13, GetStatus([] { static_cast<void>(static_cast<std::string>(Bytes({1}))); }));
   EXPECT_EQ(13, GetStatus([&] { static_cast<void>(static_cast<std::string>(wide)); }));
}

TEST(TCIMValue, CopiesNeverShareLaterChanges)
{
   TCIMValue original = Bytes({1, 2});
   const TCIMValue before = original;
   std::vector<TCIMValue>& elements = static_cast<std::vector<TCIMValue>&>(original);
   const TCIMValue between = original;
   elements[0] = TCIMValue("changed");
   EXPECT_EQ("1,2", before.ToString(10));
   EXPECT_EQ("1,2", between.ToString(10));
   EXPECT_EQ("changed,2", original.ToString(10));

   // A part of the value takes its place.
   original = TCIMValue(elements[0]);
   original = original;
   EXPECT_EQ("changed", original.ToString(10));
}

TEST(TCIMDateTime, ReadsAndShowsEveryForm)
{
   const std::vector<std::pair<std::string, std::string>> cases = {
      {"20090102030405.000006-480", "2009-01-02 03:04:05"},
      {"20200229235960.000000+000", "2020-02-29 23:59:60"},
      {"00000000000000.000000+000", "0000-00-00 00:00:00"},
      {"20090102******.******+***", "2009-01-02 **:**:**"},
      {"20090102030405.123***+000", "2009-01-02 03:04:05"},
      {"00000003040506.000000:000", "3 days 04:05:06"},
      {"00000001000000.000000:000", "1 day 00:00:00"},
      {"00000000040506.000000:000", "04:05:06"},
   };
   for (const auto& item : cases) {
      EXPECT_EQ(item.first, Time(item.first).ToString());
      EXPECT_EQ(item.second, Time(item.first).ToUIString());
   }
}

TEST(TCIMDateTime, RejectsWhatNoClockShows)
{
   for (const std::string text :
        {"", "20090102030405.000006+00", "20090102030405,000006+000", "20090102030405.000006 000",
         "20091302030405.000006+000", "20090229030405.000006+000", "20090102240405.000006+000",
         "20090102036005.000006+000", "2009**02030405.000006+000", "200901*2030405.000006+000",
         "2009010203040*.******+000", "00000003040506.000000:001", "2009010203040x.000006+000"}) {
      TCIMDateTime result;
      EXPECT_FALSE(TCIMDateTime::Parse(text, result)) << text;
   }
}

TEST(TCIMReference, BringsEqualPathsIntoOneText)
{
   const std::vector<std::pair<std::string, std::string>> cases = {
      {"//host/root/a:X.B=0x1F,A=\"q\\\"\\\\\"", "X.A=\"q\\\"\\\\\",B=31"},
      {"root/a:X.A=true,B=+5,C=-0,D=null,E=1.50,F=-.0", "X.A=TRUE,B=5,C=0,D=NULL,E=1.5,F=0"},
      {"X.A=\"a=b,c:d\"", "X.A=\"a=b,c:d\""},
      {"X.@=3", "X.@=3"},
      // No object path: the text is a class name.
      {"X", "X"},
      {"X.A=\"open", "X.A=\"open"},
      {"X.A=word", "X.A=word"},
   };
   for (const auto& item : cases) {
      const TCIMReference reference(nullptr, item.first, {});
      EXPECT_EQ(item.second, reference.GetPath());
      EXPECT_EQ(item.second, TCIMReference(nullptr, reference.GetPath(), {}).GetPath());
   }
   TCIMReference built(nullptr, {});
   built.SetClassName("X");
   built.AddKeyValue("B", TCIMValue(static_cast<unsigned short>(5)));
   built.AddKeyValue("A", "t");
   EXPECT_EQ("X.A=\"t\",B=5", built.GetPath());
   EXPECT_FALSE(built.GetCIMElement(false));
   EXPECT_EQ(15, GetStatus([&] { built.GetClass(); }));
}
