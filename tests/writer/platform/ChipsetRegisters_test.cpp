#include <gtest/gtest.h>

#include "writer/platform/ReportRun.h"

namespace {

/// A dump per text; each text holds the properties that are set.
std::string MakeDumps(const std::vector<std::string>& dumps)
{
   std::string mof =
      "class ZANSG_QTAChipsetErrorData { [Key] string Id; string Caption;"
      "string MachineType; string Register; string RegisterX1;";
   for (const char* number : {"0", "5", "05", "599", "600", "99999999999999999999", "7b"})
      mof += std::string("string Register") + number + ";";
   mof += "};";
   int index = 0;
   for (const auto& dump : dumps)
      mof += "instance of ZANSG_QTAChipsetErrorData { Id = \"" + std::to_string(index++) + "\";" +
             dump + "};";
   return mof;
}

}  // namespace

TEST(ChipsetRegisters, SortIntoGroupsByAddress)
{
   struct TCase
   {
      const char* fValue;
      const char* fCategory;
      bool fIsMisc;
   };

   const TCase cases[] = {
      {"08,C1,00,1234", "08C", true},   // listed, whatever its category
      {"08,c1,00,1234", "08c", false},  // the list is upper case only
      {"08,15,08,0", "081", false},     // the list's entry has a blank behind it
      {"00,10,05,0", "001", true},
      {"08,C100", "08C", false},  // one comma: the rest is repeated, 08C100C100
   };
   for (const auto& c : cases) {
      EXPECT_EQ(c.fCategory, QTARegisterGetCategory(c.fValue)) << c.fValue;
      EXPECT_EQ(c.fIsMisc, QTARegisterAddressInMisc(c.fValue)) << c.fValue;
   }
}

TEST(ChipsetRegisters, KeepOneInstanceToAGroup)
{
   const auto run = RunReport(MakeDumps({"MachineType = \"4711\"; Register0 = \"08,C1,00,1\";"
                                         "Register599 = \"08,60,00,2\"; Register5 = \"08,b0,10,3\";"
                                         "Register05 = \"08,B0,20,4\";",
                                         "Register0 = \"1,2,3,4\";", "Register0 = \"1,2,3,5\";",
                                         "Register0 = \"1,2,3,6\";"}),
                              &TWriter::WriteQTARegisterReport);
   EXPECT_EQ(R"(
WriteTableTitle "Collection Information", false, true
WriteRegisterValueCell ZANSG_QTAChipsetErrorData.Id="0", MachineType=4711
WriteTableTitle "Sorrel Registers MCK and Misc", false, true
WriteRegisterValueCell ZANSG_QTAChipsetErrorData.Id="0", Register0=08,C1,00,1
WriteTableTitle "Sorrel Registers 86xxx", false, true
WriteRegisterValueCell ZANSG_QTAChipsetErrorData.Id="0", Register599=08,60,00,2
WriteTableTitle "Sorrel Registers 89xxx", false, true
WriteTableTitle "Sorrel Registers 8bxxx", false, true
WriteRegisterValueCell ZANSG_QTAChipsetErrorData.Id="0", Register05=08,B0,20,4
WriteTableTitle "Sorrel Registers 8cxxx", false, true
WriteTableTitle "PCI Brandt 0 ", false, true
WriteRegisterValueCell ZANSG_QTAChipsetErrorData.Id="1", Register0=1,2,3,4
WriteTableTitle "PCI Brandt 1", false, true
WriteRegisterValueCell ZANSG_QTAChipsetErrorData.Id="2", Register0=1,2,3,5)",
             run.GetText({"WriteTableTitle", "WriteRegisterValueCell"}));
}

TEST(ChipsetRegisters, LeaveOutNumbersThatTheListsDoNotHave)
{
   const auto run = RunReport(
      MakeDumps({"Register600 = \"08,60,00,1\"; Register99999999999999999999 = \"08,60,00,2\";"
                 "RegisterX1 = \"08,60,00,3\"; Register = \"08,60,00,4\"; Caption = \"a,b\";"
                 "Register7b = \"08,60,00,5\"; Register5 = \"no field\";",
                 "Register600 = \"1,2,3,4\"; Register599 = \"1,2,3,4\";"}),
      &TWriter::WriteQTARegisterReport);
   EXPECT_EQ(R"(
WriteRegisterValueCell ZANSG_QTAChipsetErrorData.Id="0", MachineType=
WriteRegisterValueCell ZANSG_QTAChipsetErrorData.Id="0", Register7b=08,60,00,5
WriteRegisterValueCell ZANSG_QTAChipsetErrorData.Id="1", Register599=1,2,3,4)",
             run.GetText({"WriteRegisterValueCell"}));
   for (const auto& nothing : {std::string(), MakeDumps({})})
      EXPECT_EQ("\nWriteIndexEntry \"qta_reg\", \"QTA Chipset Registers\", false",
                RunReport(nothing, &TWriter::WriteQTARegisterReport).GetText());
}
