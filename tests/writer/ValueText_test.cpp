#include <gmock/gmock.h>
#include <boost/make_shared.hpp>

#include "support/MakeStore.h"
#include "support/TRecordingWriter.h"
#include "support/TScriptedInstance.h"

namespace {

TWriter::TInstances FindInstances(TRecordingWriter& writer, const std::string& cimClass)
{
   TReportParameters::TReportClass reportClass;
   reportClass.SetClass(cimClass);
   return writer.GetInstances(reportClass);
}

TScriptedInstance MakeFailing(int status)
{
   return TScriptedInstance({{"Name", {TCIMValue("a"), {}, status}}});
}

}  // namespace

TEST(ValueText, TellsPropertiesInTheirReportAndRawForms)
{
   TRecordingWriter writer;
   writer.Use(MakeNamespace(R"(
      class Fan { [Key] string Name; [Values{"off", "on <fast>"}] uint16 State; string Notes[];
                  datetime Seen[]; [NoTimePrecision] datetime Built; string Empty[]; };
      instance of Fan { Name = "f"; State = 1; Notes = {"<a", "b"}; Empty = {};
         Seen = {"20090102030405.000000+060", "20090102030406.000000+060"};
         Built = "20090102030405.000000+060"; };)"));
   const auto fan = FindInstances(writer, "Fan").at(0);
   const auto tell = [&](const char* name, bool raw) {
      return writer.GetValueFromProperty(fan->GetProperty(name, {}), "; ", raw);
   };

   struct TCase
   {
      const char* fProperty;
      const char* fText;
      const char* fRaw;
   };

   const TCase cases[] = {
      {"State", "on &lt;fast>", "1"},
      {"Notes", "&lt;a; b", ""},  // the raw form of an array is not fetched
      {"Seen", "2009-01-02 03:04:05 2009-01-02 03:04:06 ", ""},
      {"Built", "2009-01-02 03:04:05", ""},
      {"Empty", "", ""},
   };
   for (const TCase& test : cases) {
      EXPECT_EQ(test.fText, tell(test.fProperty, false));
      EXPECT_EQ(test.fRaw, tell(test.fProperty, true)) << test.fProperty;
   }
   EXPECT_EQ("2009-01-02 03:04:05", writer.GetPropertyValue(fan, "Built", ", "));
   EXPECT_EQ("", writer.GetPropertyValue(fan, "Gone", ", "));
   EXPECT_EQ("", writer.GetValueFromProperty({}, "; ", false)) << "an empty handle";
   EXPECT_EQ("f; on &lt;fast>",
             writer.GetValuesFromProperties(
                {fan->GetProperty("Name", {}), fan->GetProperty("State", {})}, "; ", false));
}

TEST(ValueText, DisplayNamesFallBackToTheName)
{
   TRecordingWriter writer;
   writer.Use(MakeNamespace(R"(
      class Fan { [Key, DisplayName("Fan name")] string Name; uint32 Speed; };
      instance of Fan { Name = "f"; };)"));
   const auto fan = FindInstances(writer, "Fan").at(0);
   EXPECT_EQ("Fan name", writer.GetDisplayName(fan->GetProperty("Name", {})->GetDecl({})));
   EXPECT_EQ("Speed", writer.GetDisplayName(fan->GetProperty("Speed", {})->GetDecl({})));
   EXPECT_EQ("Value", writer.GetDisplayName({}));
}

TEST(ValueText, CutsAndPadsTexts)
{
   TRecordingWriter writer;
   EXPECT_EQ(std::string(54, 'x'), writer.TruncString(std::string(54, 'x')));
   EXPECT_EQ(std::string(54, 'x') + "...", writer.TruncString(std::string(55, 'x')));
   EXPECT_EQ("...", writer.TruncString("a", 0));
   EXPECT_EQ("abc", writer.TruncString("abc", -1));
   EXPECT_EQ("ab   ", writer.PadString("  a\tb\n", 5, true));
   EXPECT_EQ("  a ", writer.PadString("  a", 4, false));
   EXPECT_EQ("abc...", writer.PadString("abcd", 3, false));
   EXPECT_EQ("...", writer.PadString("a", 0, false));
   EXPECT_EQ(R"(a\\b\"c)", writer.EscapeString("a\\b\n\"c\r"));
}

TEST(ValueText, TurnsNumbersAndTextsIntoEachOther)
{
   TRecordingWriter writer;
   for (const auto& [text, number] :
        {std::pair{"-12", 12}, {"BANK 7 of 9", 7}, {"none", 0}, {"", 0}}) {
      std::string copy = text;
      EXPECT_EQ(number, writer.GetNumberInString(copy));
   }
   EXPECT_EQ(1, writer.GetLenOfInt(0, 10));
   EXPECT_EQ(2, writer.GetLenOfInt(255, 16));
   EXPECT_EQ("FF", writer.IntToStr(255, 16));
   EXPECT_EQ("0", writer.IntToStr(0, 2));
   EXPECT_EQ("2147483647", writer.IntToStr(2147483647, 10));
   for (const auto& [value, base] : {std::pair{-1, 10}, {5, 1}, {5, 17}}) {
      EXPECT_EQ(-1, writer.GetLenOfInt(value, base));
      EXPECT_EQ("", writer.IntToStr(value, base));
   }
}

TEST(InstanceAccess, OnlyAMissingPropertyIsQuiet)
{
   TRecordingWriter writer;
   writer.Use(MakeNamespace(R"(
      class Fan { [Key] string Name; string Blank; uint32 Speed; };
      instance of Fan { Name = "a<b"; Blank = " "; };)"));
   const auto fan = FindInstances(writer, "Fan").at(0);
   EXPECT_TRUE(writer.GetProperties(fan, "Gone", "", "").empty());
   EXPECT_TRUE(writer.GetProperties(fan, "Name", "NoSuchAssociation", "").empty());

   EXPECT_FALSE(writer.IsPropertyNull(fan, "Blank"));
   EXPECT_TRUE(writer.IsPropertyNull(fan, "Speed"));
   EXPECT_TRUE(writer.IsPropertyNull(fan, "Gone"));
   EXPECT_EQ("Fan", writer.GetUniqueId(fan, ""));
   EXPECT_EQ("Fan_a<b", writer.GetUniqueId(fan, "Name")) << "the value is not encoded";
   EXPECT_EQ("Fan", writer.GetUniqueId(fan, "Gone"));
   EXPECT_EQ("", writer.GetPropertyValueFromAssociation(fan, "Name", "", "Gone", ", "));

   const auto failing = boost::make_shared<TScriptedInstance>(MakeFailing(27));
   EXPECT_THROW(writer.GetProperties(failing, "Name", "", ""), TQSXException);
   EXPECT_TRUE(writer.GetProperties(failing, "Name", "Assoc", "").empty());
   EXPECT_TRUE(writer.IsPropertyNull(failing, "Name"));
   EXPECT_EQ("", writer.GetPropertyValue(failing, "Name", ""));
}

TEST(InstanceAccess, AFailedSortLeavesTheOrderOfTheStore)
{
   TRecordingWriter writer;
   writer.Use(MakeNamespace(R"(
      class Fan { [Key] string Name; };
      class Slotted : Fan { uint32 Slot; };
      instance of Slotted { Name = "c"; Slot = 3; };
      instance of Slotted { Name = "b"; Slot = 2; };
      instance of Fan { Name = "a"; };
      instance of Slotted { Name = "d"; Slot = 1; };)"));
   TReportParameters::TReportClass fans;
   fans.SetClass("Fan");
   fans.GetInstanceSorter().AddProperty("Slot", true, false);
   std::string names;
   for (const auto& fan : writer.GetInstances(fans))
      names += writer.GetPropertyValue(fan, "Name", "");
   EXPECT_EQ("acbd", names) << "the class's own ahead of its subclass's";
}
