// A run whose every system call that makes or changes a file fails in turn. With QSX_TORTURE set
// all failures are tried at all calls, otherwise a sample.

#include <sys/stat.h>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <random>

#include "cli/TToolRun.h"

using testing::AnyOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

namespace {

constexpr int kRun = 4;
constexpr int kKilled = 128 + SIGKILL;
constexpr std::size_t kSample = 15;

struct TFailure
{
   int fCall = 0;
   /// "short", "kill", "killed" or the number of an error.
   std::string fWith;
   bool fOnward = false;
};

std::vector<TFailure> GetFailures(int calls)
{
   std::vector<TFailure> all;
   for (int call = 1; call <= calls; ++call) {
      for (const char* with : {"short", "kill", "killed"})
         all.push_back({call, with, false});
      for (const int error : {ENOSPC, EIO, EACCES, EROFS, EFBIG})
         for (const bool onward : {false, true})
            all.push_back({call, std::to_string(error), onward});
   }
   if (std::getenv("QSX_TORTURE") != nullptr)
      return all;
   std::vector<TFailure> sample;
   std::sample(all.begin(), all.end(), std::back_inserter(sample), kSample, std::mt19937(4711));
   return sample;
}

class FailingOutput : public TToolTest
{
protected:
   TResult RunWatched(const std::string& wishes)
   {
      return RunShell("export QSX_FAIL_COUNT=count " + wishes +
                      "; LD_PRELOAD='" QSX_FAILING_SYSTEM "' '" QSX_TOOL "' report '" QSX_EXAMPLES
                      "/windows-server' --mode mek -q -o out");
   }

   /// All that was written, or the empty text when the folder is absent.
   std::string GetOutput()
   {
      return RunShell(
                "[ ! -d out ] || { cd out && find . -type f | LC_ALL=C sort | xargs sha256sum; }")
         .fOutput;
   }

   void CheckLeftovers(bool wasKilled) const
   {
      for (const auto& entry : std::filesystem::directory_iterator(fFolder)) {
         const std::string name = entry.path().filename();
         if (name == "count" || name == "out")
            continue;
         // Nobody is left to take it away; nobody else can look into it either.
         EXPECT_TRUE(wasKilled) << name;
         EXPECT_THAT(name, StartsWith(".out.qsxreport-"));
         EXPECT_EQ(std::filesystem::perms::owner_all, entry.status().permissions());
      }
   }
};

}  // namespace

TEST_F(FailingOutput, IsWholeOrAbsent)
{
   ASSERT_EQ(0, RunWatched("").fExitCode);
   const std::string whole = GetOutput();
   const int calls = std::stoi(Read("count"));
   ASSERT_LT(200, calls);

   for (const TFailure& failure : GetFailures(calls)) {
      SCOPED_TRACE("call " + std::to_string(failure.fCall) + (failure.fOnward ? " and on" : "") +
                   " fails with " + failure.fWith);
      RunShell("rm -rf out .out*");
      const TResult result = RunWatched("QSX_FAIL_CALL=" + std::to_string(failure.fCall) +
                                        " QSX_FAIL_WITH=" + failure.fWith +
                                        " QSX_FAIL_ONWARD=" + (failure.fOnward ? "1" : ""));
      const bool isError = std::isdigit(static_cast<unsigned char>(failure.fWith[0])) != 0;
      const std::string output = GetOutput();
      EXPECT_THAT(output, AnyOf(IsEmpty(), whole));
      EXPECT_THAT(result.fExitCode, AnyOf(0, isError                    ? kRun
                                             : failure.fWith == "short" ? 0
                                                                        : kKilled));
      if (result.fExitCode == 0) {
         EXPECT_EQ(whole, output);
      }
      if (result.fExitCode == kRun) {
         EXPECT_THAT(output, IsEmpty());
         EXPECT_THAT(result.fError, HasSubstr("out"));
         EXPECT_THAT(result.fError, HasSubstr(std::strerror(std::stoi(failure.fWith))));
      }
      CheckLeftovers(result.fExitCode == kKilled);
      if (HasFailure())
         return;
   }
}

TEST_F(FailingOutput, ToAClosedStreamIsNoResult)
{
   Write("a.mof", "class A { [Key] string Name; };");
   const TResult check = Run("check a.mof >&-");
   EXPECT_EQ(kRun, check.fExitCode);
   EXPECT_THAT(check.fError, HasSubstr("standard output can't be written"));
   EXPECT_EQ(kRun, Run("catalogue a.mof >/dev/full").fExitCode);
   // Nothing that is said gets into a page that took the stream's place.
   ASSERT_EQ(0, Run("report a.mof -o open -q").fExitCode);
   ASSERT_EQ(0, Run("report a.mof -o closed <&- >&- 2>&-").fExitCode);
   EXPECT_EQ("", RunShell("diff -r open closed").fOutput);
}
