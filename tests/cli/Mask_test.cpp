#include "cli/TToolRun.h"

using testing::HasSubstr;
using testing::Not;

namespace {

constexpr const char* kMOF = R"(
class T_ComputerSystem { [Key] string Name; string SerialNumber; string Note; };
instance of T_ComputerSystem { Name = "dbrandt"; SerialNumber = "KX83B7104"; Note = "dbrandt is up"; };
)";

class TMaskTest : public TToolTest
{
protected:
   TMaskTest() { Write("a.mof", kMOF); }
};

}  // namespace

TEST_F(TMaskTest, WritesTheCollectionAndTheMapForItsOwnerAlone)
{
   const TResult result = Run("mask a.mof -o b.mof --map b.map --term KX83", "umask 022;");
   EXPECT_EQ(0, result.fExitCode) << result.fError;
   EXPECT_THAT(result.fError, HasSubstr("wrote b.mof"));
   EXPECT_THAT(Read("b.mof"), Not(HasSubstr("brandt")));
   EXPECT_THAT(Read("b.mof"), Not(HasSubstr("KX83B7104")));
   EXPECT_THAT(Read("b.map"), HasSubstr("host name\tdbrandt\t"));
   EXPECT_EQ("644 b.mof\n600 b.map\n", RunShell("stat -c '%a %n' b.mof b.map").fOutput);
}

TEST_F(TMaskTest, TwoMaskedCollectionsOfOneMachineCompare)
{
   Run("mask a.mof -o b.mof");
   Write("later.mof", std::string(kMOF) + R"(instance of T_ComputerSystem { Name = "other"; };)");
   Run("mask later.mof -o c.xml.gz");
   Run("convert b.mof -o b.txt --format mof");
   Run("convert c.xml.gz -o c.txt --format mof");
   const TResult result = RunShell("diff b.txt c.txt");
   EXPECT_THAT(result.fOutput, Not(HasSubstr("<")));
   EXPECT_THAT(result.fOutput, HasSubstr("> instance of T_ComputerSystem"));
}

TEST_F(TMaskTest, SaysWhatItCannotDo)
{
   Write("key", "short");
   Write("blank.mof", "class A { string X; };");

   struct TCase
   {
      const char* fArguments;
      int fExitCode;
      const char* fError;
   };

   const TCase cases[] = {
      {"mask a.mof -o -", 2, "a masked collection needs a file"},
      {"collect -o b.mof --term Zander", 2, "--term, --terms, --key and --map need --mask"},
      {"mask a.mof -o b.mof --term a", 2, "the term 'a' is too short"},
      {"mask a.mof -o b.mof --terms none", 3, "none: can't be read: No such file"},
      {"mask a.mof -o b.mof --key key", 3, "key: holds 5 bytes; a key needs 16 at least"},
      {"mask a.mof -o b.mof --map key", 4, "key: the file exists; --force replaces it"},
      {"mask blank.mof -o c.mof", 0, "these stand-ins are of this run alone"},
   };
   for (const TCase& each : cases) {
      const TResult result = Run(each.fArguments);
      EXPECT_EQ(each.fExitCode, result.fExitCode) << each.fArguments;
      EXPECT_THAT(result.fError, HasSubstr(each.fError));
   }
   EXPECT_EQ("a.mof blank.mof c.mof key", List());
}
