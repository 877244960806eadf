#include <gmock/gmock.h>

#include "html/THtmlWriter.h"
#include "run/TReport.h"
#include "support/MakeStore.h"
#include "support/TTemporaryFolder.h"

using testing::HasSubstr;
using testing::Not;

namespace {

/// The error of reading the instance, or the text of its property.
std::string ReadNumber(const std::string& type, const std::string& value)
{
   try {
      const auto cimNamespace = MakeNamespace("class A { [Key] string K; " + type + " N; };\n" +
                                              "instance of A { K = \"k\"; N = " + value + "; };");
      const auto instance =
         cimNamespace->GetInstance(TCIMReference(cimNamespace, "A.K=\"k\"", {}), {});
      return instance->GetProperty("N", {})->GetValueString();
   } catch (const NZANQSX20::TReadError& error) {
      return error.what();
   }
}

/// The cell that a sensor's reading has on a page of its own.
std::string ShowReading(const std::string& type, const std::string& reading,
                        const std::string& modifier)
{
   const auto cimNamespace =
      MakeNamespace("class CIM_NumericSensor { [Key] string D; " + type +
                    " CurrentReading; sint32 UnitModifier; };\n" +
                    "instance of CIM_NumericSensor { D = \"d\"; CurrentReading = " + reading +
                    "; UnitModifier = " + modifier + "; };");
   const auto sensor =
      cimNamespace->GetInstance(TCIMReference(cimNamespace, "CIM_NumericSensor.D=\"d\"", {}), {});
   const TTemporaryFolder folder;
   THtmlWriter writer{THtmlOptions()};
   const TReportParameters::TReportProperty column("CurrentReading", "100%", "", "", "");
   writer.BaseInitialize(cimNamespace, {});
   writer.Initialize(cimNamespace, {}, folder.GetPath());
   writer.BeginIndex();
   writer.OpenReportFile(folder.GetPath("sensors"));
   writer.BeginReportBody();
   writer.BeginColumnTable("100%", "Sensors", false);
   writer.BeginTableRow(true);
   writer.WriteTextCell(column, "[");
   writer.WriteNumericSensorCell(sensor, column);
   writer.WriteTextCell(column, "]");
   writer.EndTableRow();
   writer.EndTable();
   writer.EndReportBody();
   writer.CloseReportFile();
   writer.WriteIndexEntry("sensors", "Sensors", true);
   writer.EndIndex();
   writer.BaseDispose();
   const std::string page = folder.Read("sensors.html");
   std::string text;
   bool inTag = false;
   const std::size_t begin = page.find(">[<");
   for (std::size_t at = begin + 2; at < page.find(">]<"); ++at) {
      inTag = page[at] == '<' || (inTag && page[at] != '>');
      if (!inTag && page[at] != '>' && page[at] != '\n')
         text += page[at];
   }
   return text;
}

}  // namespace

TEST(Numbers, OutsideTheirTypeAreErrorsWithTheirPlace)
{
   const struct
   {
      const char* fType;
      const char* fValue;
      const char* fText;
   } cases[] = {
      {"uint8", "255", "255"},
      {"uint8", "256", "test.mof:2:"},
      {"uint8", "-1", "test.mof:2:"},
      {"sint8", "-128", "-128"},
      {"sint8", "-129", "test.mof:2:"},
      {"uint16", "65536", "test.mof:2:"},
      {"sint16", "0x8000", "test.mof:2:"},
      {"uint32", "4294967296", "test.mof:2:"},
      {"sint32", "-2147483649", "test.mof:2:"},
      {"uint64", "18446744073709551615", "18446744073709551615"},
      {"uint64", "18446744073709551616", "test.mof:2:"},
      {"sint64", "-9223372036854775808", "-9223372036854775808"},
      {"sint64", "9223372036854775808", "test.mof:2:"},
      {"uint64", "99999999999999999999999999", "test.mof:2:"},
      {"real64", "1e999", "test.mof:2:"},
      {"real32", "1e39", "test.mof:2:"},
      {"datetime", "\"20090229000000.000000+000\"", "test.mof:2:"},
      {"datetime", "\"20080229000000.000000+000\"", "2008-02-29 00:00:00"},
      {"datetime", "\"20091301000000.000000+000\"", "test.mof:2:"},
      {"datetime", "\"20090101240000.000000+000\"", "test.mof:2:"},
      {"datetime", "\"20090101000000.000000+9999\"", "test.mof:2:"},
      {"datetime", "\"99999999240000.000000:000\"", "test.mof:2:"},
      {"datetime", "\"99999999235959.999999:000\"", "99999999 days 23:59:59"},
   };

   for (const auto& row : cases)
      EXPECT_THAT(ReadNumber(row.fType, row.fValue), testing::StartsWith(row.fText))
         << row.fType << ' ' << row.fValue;
}

TEST(Numbers, OfSensorsAreRightOrLeftOut)
{
   const struct
   {
      const char* fType;
      const char* fReading;
      const char* fModifier;
      const char* fText;
   } cases[] = {
      {"sint32", "215", "-1", "21.5"},    {"sint32", "-5", "2", "-500"},
      {"sint32", "1", "308", "1e+308"},   {"sint32", "1", "309", ""},
      {"sint32", "0", "2147483647", ""},  {"sint32", "2147483647", "-2147483648", "0"},
      {"uint32", "2147483648", "0", ""},  {"uint64", "4294967297", "0", ""},
      {"sint64", "-2147483649", "0", ""},
   };

   for (const auto& row : cases)
      EXPECT_EQ(row.fText, ShowReading(row.fType, row.fReading, row.fModifier))
         << row.fType << ' ' << row.fReading << " * 10 ^ " << row.fModifier;
}
