#include "cli/TToolRun.h"

using testing::HasSubstr;

namespace {

constexpr const char* kMOF = R"(
class A { [Key] string Name; uint8 Number = 7; };
instance of A { Name = "Fan \"1\""; };
)";

class TConvertTest : public TToolTest
{
protected:
   TConvertTest() { Write("a.mof", kMOF); }

   std::string Check(const std::string& file) { return Run("check --strict " + file).fOutput; }
};

}  // namespace

TEST_F(TConvertTest, TheNameTellsTheForm)
{
   struct TCase
   {
      const char* fName;
      const char* fForm;
   };

   for (const TCase& each :
        {TCase{"b.mof", "MOF, 1"}, TCase{"b.xml", "CIM-XML, 1"},
         TCase{"b.mof.gz", "MOF in gzip, 1"}, TCase{"b.xml.zst", "CIM-XML in Zstandard, 1"}}) {
      const TResult result = Run(std::string("convert a.mof -o ") + each.fName, "umask 027;");
      EXPECT_EQ(0, result.fExitCode) << result.fError;
      EXPECT_EQ("", result.fOutput);
      EXPECT_THAT(Check(each.fName), HasSubstr(each.fForm));
      EXPECT_EQ("640\n", RunShell(std::string("stat -c %a ") + each.fName).fOutput);
   }
   EXPECT_EQ("a.mof b.mof b.mof.gz b.xml b.xml.zst", List());
}

TEST_F(TConvertTest, StandardOutputIsMOFUnlessAFormatIsNamed)
{
   const TResult mof = Run("convert - -o - <a.mof");
   EXPECT_THAT(mof.fOutput, HasSubstr("instance of A\n{\n   Name = \"Fan \\\"1\\\"\";\n};\n"));
   EXPECT_EQ("", mof.fError);
   EXPECT_THAT(Run("convert a.mof -o - --format xml").fOutput, HasSubstr("<CIM CIMVERSION"));
}

TEST_F(TConvertTest, AFileAppearsWholeOrNotAtAll)
{
   Write("bad.mof", "class A {");
   Write("odd.xml", R"(<CIM><DECLARATION><DECLGROUP><VALUE.OBJECT><CLASS NAME="A B"/></VALUE.OBJECT>
      </DECLGROUP></DECLARATION></CIM>)");
   Write("there.mof", "kept");

   struct TCase
   {
      const char* fArguments;
      int fExitCode;
      const char* fError;
   };

   const TCase cases[] = {
      {"convert bad.mof -o b.mof", 3, "bad.mof:1:10: expected a property"},
      {"convert odd.xml -o b.mof", 4, "MOF has no form for the name \"A B\"; CIM-XML has"},
      {"convert a.mof -o there.mof", 4, "there.mof: the file exists; --force replaces it"},
      {"convert a.mof -o no/b.mof", 4, "no/b.mof: its folder can't be written: No such file"},
      {"convert a.mof -o b.txt", 2, "the name 'b.txt' tells no format: .mof or .xml"},
      {"convert a.mof -o b --format html", 2, "unknown format 'html'"},
      {"convert a.mof", 2, "--output FILE is missing"},
   };
   for (const TCase& each : cases) {
      const TResult result = Run(each.fArguments);
      EXPECT_EQ(each.fExitCode, result.fExitCode) << each.fArguments;
      EXPECT_THAT(result.fError, HasSubstr(each.fError));
   }
   EXPECT_EQ("a.mof bad.mof odd.xml there.mof", List());
   EXPECT_EQ("kept", Read("there.mof"));
   EXPECT_EQ(0, Run("convert a.mof -o there.mof --force").fExitCode);
   EXPECT_THAT(Read("there.mof"), HasSubstr("instance of A"));
}

TEST_F(TConvertTest, AFullDiskLeavesNoFile)
{
   std::string mof = "class A { string X; };\n";
   for (int i = 0; i < 20000; ++i)
      mof += "instance of A { X = \"some more text\"; };\n";
   Write("big.mof", mof);
   const TResult result = Run("convert big.mof -o b.mof", "ulimit -f 100;");
   EXPECT_EQ(4, result.fExitCode);
   EXPECT_THAT(result.fError, HasSubstr("cannot write b.mof: File too large"));
   EXPECT_EQ("a.mof big.mof", List());
}
