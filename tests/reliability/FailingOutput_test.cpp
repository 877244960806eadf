// Runs whose every system call that makes or changes a file fails in turn. With QSX_TORTURE set
// all failures are tried at all calls, otherwise a sample.

#include <sys/stat.h>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <random>

#include "cli/TToolRun.h"

using testing::AnyOf;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

constexpr int kRun = 4;
constexpr int kKilled = 128 + SIGKILL;
constexpr std::size_t kSample = 15;

struct TFailure
{
   int fCall = 0;
   /// "short", "interrupt", "kill", "killed" or the number of an error.
   std::string fWith;
   bool fOnward = false;

   bool IsError() const { return std::isdigit(static_cast<unsigned char>(fWith[0])) != 0; }

   /// Short and interrupted calls are called again.
   bool IsContinued() const { return fWith == "short" || fWith == "interrupt"; }
};

std::vector<TFailure> GetFailures(int calls)
{
   std::vector<TFailure> all;
   for (int call = 1; call <= calls; ++call) {
      for (const char* with : {"short", "interrupt", "kill", "killed"})
         all.push_back({call, with, false});
      for (const int error : {ENOSPC, EIO, EACCES, EROFS, EFBIG})
         for (const bool onward : {false, true})
            all.push_back({call, std::to_string(error), onward});
   }
   if (std::getenv("QSX_TORTURE") == nullptr) {
      std::vector<TFailure> sample;
      std::sample(all.begin(), all.end(), std::back_inserter(sample), kSample, std::mt19937(4711));
      all.swap(sample);
   }
   all.push_back({1, "short", true});
   all.push_back({1, "interrupt", true});
   return all;
}

class FailingOutput : public TToolTest
{
protected:
   /// With the failure that is wished for.
   TResult RunWatched(const std::string& wishes, const std::string& command)
   {
      return RunShell("export QSX_FAIL_COUNT=count " + wishes +
                      "; LD_PRELOAD='" QSX_PRELOAD "' '" QSX_TOOL "' " + command);
   }

   /// Each failure at the calls that the command makes, in a folder as the shell made it before.
   void CheckFailures(const std::string& before, const std::string& command, int leastCalls)
   {
      fBefore = before;
      fCommand = command;
      Prepare();
      const std::string former = GetOutput();
      ASSERT_EQ(0, RunWatched("", command).fExitCode);
      const std::string whole = GetOutput();
      ASSERT_NE(former, whole);
      const int calls = std::stoi(Read("count"));
      ASSERT_LE(leastCalls, calls);
      for (const TFailure& failure : GetFailures(calls)) {
         SCOPED_TRACE("call " + std::to_string(failure.fCall) + " of " + std::to_string(calls) +
                      (failure.fOnward ? " and on" : "") + " fails with " + failure.fWith);
         const bool wasKilled = CheckFailure(failure, former, whole);
         CheckLeftovers(wasKilled, failure.fCall == calls);
         if (HasFailure())
            return;
      }
   }

private:
   void Prepare() { ASSERT_EQ(0, RunShell("rm -rf out* .out* && { " + fBefore + "; }").fExitCode); }

   /// All that is there under the output's name.
   std::string GetOutput()
   {
      return RunShell("find . -path './out*' -type f | LC_ALL=C sort | xargs -r sha256sum").fOutput;
   }

   /// Whether it was killed.
   bool CheckFailure(const TFailure& failure, const std::string& former, const std::string& whole)
   {
      Prepare();
      const TResult result = RunWatched("QSX_FAIL_CALL=" + std::to_string(failure.fCall) +
                                           " QSX_FAIL_WITH=" + failure.fWith +
                                           " QSX_FAIL_ONWARD=" + (failure.fOnward ? "1" : ""),
                                        fCommand);
      const std::string output = GetOutput();
      EXPECT_THAT(output, AnyOf(former, whole));
      EXPECT_THAT(result.fExitCode, AnyOf(0, failure.IsError()       ? kRun
                                             : failure.IsContinued() ? 0
                                                                     : kKilled));
      if (result.fExitCode == 0) {
         EXPECT_EQ(whole, output);
      }
      if (result.fExitCode == kRun) {
         EXPECT_EQ(former, output);
         EXPECT_THAT(result.fError, HasSubstr("out"));
         EXPECT_THAT(result.fError, HasSubstr(std::strerror(std::stoi(failure.fWith))));
      }
      return result.fExitCode == kKilled;
   }

   void CheckLeftovers(bool wasKilled, bool atLastCall) const
   {
      using std::filesystem::perms;
      for (const auto& entry : std::filesystem::directory_iterator(fFolder)) {
         const std::string name = entry.path().filename();
         if (name == "count" || name.rfind("out", 0) == 0)
            continue;
         // Nobody is left to take it away. Nobody else can look into a folder either, until the
         // last call is to move it into place.
         EXPECT_TRUE(wasKilled) << name;
         EXPECT_THAT(name, StartsWith(".out"));
         if (entry.is_directory() && !atLastCall) {
            EXPECT_EQ(perms::owner_all, entry.status().permissions());
         }
      }
   }

   std::string fBefore;
   std::string fCommand;
};

}  // namespace

TEST_F(FailingOutput, IsWholeOrAbsent)
{
   CheckFailures("true", "report '" QSX_EXAMPLES "/windows-server' --mode mek -q -o out", 200);
}

TEST_F(FailingOutput, ThatReplacesAFolderIsWholeOrLeavesIt)
{
   CheckFailures(
      "mkdir out && echo mine >out/mine",
      "report '" QSX_EXAMPLES "/compare/one-server-two-times/before.mof' --force -q -o out", 50);
}

TEST_F(FailingOutput, ThatReplacesAFolderDoesWithAPlainFileSystem)
{
   const auto replace = [this](const std::string& wishes) {
      RunShell("rm -rf out .out* && mkdir out && echo mine >out/mine");
      return RunWatched("QSX_PLAIN_FILES=1 QSX_FAIL_WITH=" + std::to_string(EIO) + ' ' + wishes,
                        "report '" QSX_EXAMPLES
                        "/compare/one-server-two-times/before.mof' --force -q -o out");
   };
   EXPECT_EQ(0, replace("").fExitCode);
   EXPECT_EQ("", Read("out/mine"));
   EXPECT_EQ("count out", List());
   const int calls = std::stoi(Read("count"));
   for (const int call : {calls - 1, calls}) {
      EXPECT_THAT(replace("QSX_FAIL_CALL=" + std::to_string(call)).fError,
                  HasSubstr("out: can't be moved "));
      EXPECT_EQ("mine\n", Read("out/mine"));
      EXPECT_EQ("count out", List());
   }
   const TResult stranded = replace("QSX_FAIL_ONWARD=1 QSX_FAIL_CALL=" + std::to_string(calls));
   const std::string former = RunShell("cat .out*/mine && echo .out*").fOutput;
   ASSERT_THAT(former, StartsWith("mine\n.out."));
   EXPECT_THAT(stranded.fError, HasSubstr(former.substr(5, former.size() - 6)));
}

TEST_F(FailingOutput, OfOneFileIsWholeOrLeavesIt)
{
   CheckFailures("echo mine >out.xml.gz",
                 "convert '" QSX_EXAMPLES
                 "/compare/one-server-two-times/before.mof' --force -o out.xml.gz",
                 5);
}

TEST_F(FailingOutput, BelowFoldersThatCannotBeMadeLeavesNoneOfThem)
{
   for (int call = 1; call <= 6; ++call) {
      const TResult result = RunWatched(
         "QSX_FAIL_ONWARD=1 QSX_FAIL_WITH=" + std::to_string(EACCES) +
            " QSX_FAIL_CALL=" + std::to_string(call),
         "report '" QSX_EXAMPLES "/compare/one-server-two-times/before.mof' -q -o out/of/reach");
      EXPECT_EQ(kRun, result.fExitCode);
      EXPECT_THAT(result.fError, HasSubstr("out/of/reach"));
      EXPECT_THAT(result.fError, HasSubstr(std::strerror(EACCES)));
      EXPECT_EQ("count", List()) << call;
   }
}

TEST_F(FailingOutput, PastAFileSizeLimitLeavesNothing)
{
   const TResult result =
      Run("report '" QSX_EXAMPLES "/windows-server' -q -o out", "ulimit -f 20;");
   EXPECT_EQ(kRun, result.fExitCode);
   EXPECT_THAT(result.fError, HasSubstr("cannot write out"));
   EXPECT_THAT(result.fError, HasSubstr(std::strerror(EFBIG)));
   EXPECT_EQ("", List());
}

TEST_F(FailingOutput, ToAClosedStreamIsNoResult)
{
   Write("a.mof", "class A { [Key] string Name; };");
   const TResult check = Run("check a.mof >&-");
   EXPECT_EQ(kRun, check.fExitCode);
   EXPECT_THAT(check.fError, HasSubstr("standard output can't be written"));
   const TResult full = Run("catalogue a.mof >/dev/full");
   EXPECT_EQ(kRun, full.fExitCode);
   EXPECT_THAT(full.fError, HasSubstr(std::strerror(ENOSPC)));
   // Nothing that is said gets into a page that took the stream's place.
   ASSERT_EQ(0, Run("report a.mof -o open -q").fExitCode);
   ASSERT_EQ(0, Run("report a.mof -o closed <&- >&- 2>&-").fExitCode);
   EXPECT_EQ("", RunShell("diff -r open closed").fOutput);
}
