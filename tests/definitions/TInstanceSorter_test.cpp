#include <algorithm>
#include <random>

#include <gmock/gmock.h>
#include <boost/make_shared.hpp>

#include "definitions/TReportParameters.h"
#include "support/TScriptedInstance.h"

using TInstanceSorter = TReportParameters::TInstanceSorter;
using testing::ElementsAre;

namespace {

using THandle = boost::shared_ptr<ICIMInstance>;
using THandles = std::vector<THandle>;

THandle MakeInstance(const TCIMValue& key, const TCIMValue& second = TCIMValue())
{
   return boost::make_shared<TScriptedInstance>(
      std::map<std::string, TScriptedProperty>{{"Key", {key, {}, 0}}, {"Second", {second, {}, 0}}});
}

THandle MakeFailing(int status)
{
   return boost::make_shared<TScriptedInstance>(
      std::map<std::string, TScriptedProperty>{{"Key", {{}, {}, status}}});
}

THandles MakeInstances(const std::vector<std::string>& keys)
{
   THandles handles;
   for (const std::string& key : keys)
      handles.push_back(MakeInstance(key));
   return handles;
}

std::vector<std::string> ReadTexts(const THandles& handles, const std::string& name = "Key")
{
   std::vector<std::string> texts;
   for (const THandle& handle : handles)
      texts.push_back(handle->GetProperty(name, {})->GetValueString());
   return texts;
}

TInstanceSorter SortBy(const std::string& property, bool ascending = true, bool numeric = false)
{
   TInstanceSorter sorter;
   sorter.AddProperty(property, ascending, numeric);
   return sorter;
}

int Compare(const TCIMValue& a, const TCIMValue& b, bool numeric = false)
{
   TInstanceSorter::TPropertyInfo info{"Key", true, numeric};
   return TInstanceSorter().Compare(info, MakeInstance(a), MakeInstance(b));
}

}  // namespace

TEST(TInstanceSorter, ComparesTextInThreeWays)
{
   struct TCase
   {
      const char* fLess;
      const char* fGreater;
      bool fEmbeddedNumeric;
      bool fEqual;
   };

   const TCase cases[] = {
      {"abc", "ABC", false, true},
      {"", "", false, true},
      {"", "7", false, false},
      {"", "0", false, true},  // an empty text is the number 0
      {"9", "10", false, false},
      {"10A", "9A", false, false},
      {"9A", "10A", true, false},
      {"ab", "abc", false, false},
      {"a", "\xc3\xa4", false, false},  // bytes compare unsigned
      {"BANK 2", "SLOT 2", true, true},
      {"x", "y", true, true},
      {"slot 1", "slot 1.2", true, false},
      {"99999999999999999998", "99999999999999999999", false, true},  // both saturate
   };
   for (const TCase& test : cases) {
      SCOPED_TRACE(std::string(test.fLess) + " and " + test.fGreater);
      EXPECT_EQ(test.fEqual ? 0 : -1, Compare(test.fLess, test.fGreater, test.fEmbeddedNumeric));
      EXPECT_EQ(test.fEqual ? 0 : 1, Compare(test.fGreater, test.fLess, test.fEmbeddedNumeric));
   }
}

TEST(TInstanceSorter, OffersItsFormsOfText)
{
   std::string text = "aZ 9\xE4";
   EXPECT_EQ("AZ 9\xE4", TInstanceSorter::uppercaseString(text));
   EXPECT_EQ("AZ 9\xE4", text);
   std::vector<int> numbers = {7};
   text = "slot 10, port 02";
   TInstanceSorter::TokenizeEmbeddedNumeric(text, numbers);
   EXPECT_THAT(numbers, ElementsAre(7, 10, 2));
}

TEST(TInstanceSorter, TheFirstValueDecidesWhetherTextIsCompared)
{
   const TCIMValue nine(static_cast<unsigned short>(9));
   EXPECT_EQ(1, Compare("10", nine)) << "as texts that are numbers";
   EXPECT_EQ(-1, Compare(nine, "10")) << "as values of unlike types";
   EXPECT_EQ(-1, Compare(nine, static_cast<unsigned short>(10)));
}

TEST(TInstanceSorter, ANullKeyIsReadAgainInItsRawForm)
{
   const auto translated = boost::make_shared<TScriptedInstance>(
      std::map<std::string, TScriptedProperty>{{"Key", {TCIMValue(), TCIMValue("5"), 0}}});
   THandles handles{MakeInstance("6"), translated, MakeInstance("4")};
   SortBy("Key").SortInstances(handles);
   EXPECT_EQ(translated, handles[1]);
}

TEST(TInstanceSorter, SortsByAllKeysAndKeepsTheOrderOfEquals)
{
   TInstanceSorter sorter = SortBy("Key", false);
   sorter.AddProperty("Second", true, true);
   THandles handles{MakeInstance("a", "slot 10"), MakeInstance("B", "slot 2"),
                    MakeInstance("b", "slot 1"), MakeInstance("A", "slot 9"),
                    MakeInstance("b", "bank 2")};
   sorter.SortInstances(handles);
   EXPECT_THAT(ReadTexts(handles), ElementsAre("b", "B", "b", "A", "a"));
   EXPECT_THAT(ReadTexts(handles, "Second"),
               ElementsAre("slot 1", "slot 2", "bank 2", "slot 9", "slot 10"));
}

TEST(TInstanceSorter, ReadsAKeyOnceAndOnlyWhenItIsCompared)
{
   TInstanceSorter sorter = SortBy("Key");
   sorter.AddProperty("Second", true, false);
   THandles handles = MakeInstances({"8", "3", "5", "1", "9", "2", "7", "4", "6"});
   sorter.SortInstances(handles);
   for (const THandle& handle : handles) {
      const auto& instance = dynamic_cast<const TScriptedInstance&>(*handle);
      EXPECT_EQ(1, instance.CountReads("Key"));
      EXPECT_EQ(0, instance.CountReads("Second"));
   }
   THandles single{MakeFailing(27)};
   EXPECT_NO_THROW(sorter.SortInstances(single)) << "one instance is compared with nothing";
}

TEST(TInstanceSorter, TimesAndNumbersSortAsTheirValuesDo)
{
   const auto time = [](const std::string& text) {
      TCIMDateTime dateTime;
      EXPECT_TRUE(TCIMDateTime::Parse(text, dateTime));
      return TCIMValue(dateTime);
   };
   using TType = TCIMValue::TCIMType;
   const std::vector<std::vector<TCIMValue>> ordered = {
      {TCIMValue::Null(TType::kDateTime), time("00000000000000.000000+000"),
       time("20090102030405.000000+060"), time("20090102030405.000000+000"),
       time("20090102030405.000001+000")},
      {TCIMValue::Null(TType::kDateTime), time("20990102030405.000000+000"),
       time("00000001000000.000000:000")},
      {TCIMValue::Null(TType::kSInt8), TCIMValue::Signed(TType::kSInt8, -3),
       TCIMValue::Unsigned(TType::kUInt32, 0), TCIMValue::Signed(TType::kSInt32, 7)},
      {TCIMValue::Unsigned(TType::kUInt64, 1), TCIMValue::Unsigned(TType::kUInt64, ~0ULL)},
      {TCIMValue::Unsigned(TType::kUInt32, 1), time("00000001000000.000000:000")},
   };
   for (const std::vector<TCIMValue>& keys : ordered) {
      for (const bool isAscending : {true, false}) {
         THandles handles;
         for (const TCIMValue& key : keys)
            handles.push_back(MakeInstance(key));
         THandles expected = handles;
         if (!isAscending)
            std::reverse(expected.begin(), expected.end());
         std::rotate(handles.begin(), handles.begin() + 1, handles.end());
         SortBy("Key", isAscending).SortInstances(handles);
         EXPECT_EQ(expected, handles) << keys.back().ToString(10);
      }
   }
}

// Readers know the order in which std::sort leaves equal instances; ranks must not change it.
TEST(TInstanceSorter, EqualNumbersStandAsEqualTextsDo)
{
   THandles numbers;
   THandles texts;
   for (unsigned short i = 0; i < 300; ++i) {
      const auto key = static_cast<unsigned short>(i * 7 % 5);
      numbers.push_back(MakeInstance(key, std::to_string(i)));
      texts.push_back(MakeInstance(std::to_string(key), std::to_string(i)));
   }
   for (const bool isAscending : {true, false}) {
      SortBy("Key", isAscending).SortInstances(numbers);
      SortBy("Key", isAscending).SortInstances(texts);
      EXPECT_EQ(ReadTexts(texts, "Second"), ReadTexts(numbers, "Second"));
   }
   TInstanceSorter sorter = SortBy("Key");
   sorter.AddProperty("Second", true, false);
   sorter.SortInstances(numbers);
   EXPECT_THAT(ReadTexts(numbers, "Second"), testing::Contains("295"));
   EXPECT_EQ("0", ReadTexts(numbers, "Second").front());
   EXPECT_EQ("297", ReadTexts(numbers, "Second").back());
}

TEST(TInstanceSorter, AnInterruptedSortLosesNoInstance)
{
   for (std::size_t failing = 0; failing < 40; ++failing) {
      THandles handles;
      for (std::size_t i = 0; i < 40; ++i)
         handles.push_back(i == failing ? MakeFailing(27)
                                        : MakeInstance(std::to_string(i * 7 % 40)));
      const THandles before = handles;
      EXPECT_THROW(SortBy("Key").SortInstances(handles), TQSXException);
      EXPECT_EQ(before, handles);
   }
}

// "9" < "10" as numbers, "10" < "1A" and "1A" < "9" as texts.
TEST(TInstanceSorter, KeysThatCompareInACircleLoseNoInstance)
{
   std::mt19937 random(1);
   const std::vector<std::string> circle{"9", "10", "1A"};
   for (std::size_t count : {3u, 17u, 100u, 1000u}) {
      std::vector<std::string> keys;
      for (std::size_t i = 0; i < count; ++i)
         keys.push_back(circle[random() % circle.size()]);
      THandles handles = MakeInstances(keys);
      THandles before = handles;
      SortBy("Key").SortInstances(handles);
      std::sort(before.begin(), before.end());
      std::sort(handles.begin(), handles.end());
      EXPECT_EQ(before, handles);
   }
}
