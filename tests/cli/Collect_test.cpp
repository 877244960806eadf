#include "cli/TToolRun.h"

using testing::HasSubstr;

namespace {

class TCollectTest : public TToolTest
{
protected:
   TCollectTest()
   {
      RunShell("mkdir -p root/proc/sys/kernel root/etc");
      Write("root/proc/sys/kernel/hostname", "we/b 1\n");
   }
};

}  // namespace

TEST_F(TCollectTest, WritesAPrivateFileThatReportsAndTellsWhatItLacks)
{
   const TResult result = Run("collect --root root -o a.xml.gz", "umask 000;");
   EXPECT_EQ(0, result.fExitCode);
   EXPECT_THAT(result.fError, HasSubstr("not collected: Packages"
                                        ": not installed (rpm: no recorded output)"));
   EXPECT_EQ("600\n", RunShell("stat -c %a a.xml.gz").fOutput);
   EXPECT_THAT(Run("check a.xml.gz").fOutput, HasSubstr("Not collected\n"));
   EXPECT_EQ(0, Run("report a.xml.gz -o pages").fExitCode);
   EXPECT_EQ(4, Run("collect --root root -o a.xml.gz").fExitCode) << "the file exists";
}

TEST_F(TCollectTest, MakesANameOfTheHost)
{
   EXPECT_EQ(0, Run("collect --root root -q --format xml").fExitCode);
   EXPECT_THAT(List(), testing::MatchesRegex("root we_b_1-[0-9]+-[0-9]+.xml"));
}

TEST_F(TCollectTest, FailsWithoutAMachineAndLeavesNothing)
{
   EXPECT_EQ(3, Run("collect --root missing -o a.mof").fExitCode);
   EXPECT_EQ(2, Run("collect --root root -o a.txt").fExitCode);
   EXPECT_EQ(4, Run("collect --root root -o missing/a.mof").fExitCode);
   EXPECT_EQ("root", List());
}
