#include "machine/TMachine.h"

#include <unistd.h>

#include <chrono>

#include <gtest/gtest.h>

#include "collector/TFixtureRoot.h"
#include "machine/TFileProcess.h"
#include "machine/ToolRun.h"

using namespace NZANQSX20;

namespace {

// What would hang or lead out of the root on a careless reader.
constexpr const char* kTree = R"(== /proc/number
0x1f
== /etc/pipe fifo
== /etc/endless sparse
== /etc/outside -> /etc/../../../../../../../etc/passwd
== /etc/passwd
inside
== /sys/class/net/eth0 -> ../../devices/pci0/net/eth0
== /sys/devices/pci0/net/eth0/address
02:00:00:00:00:01
\
== /qsxreport-tools/ip_-j_route
[]
)";

TEST(TMachine, ReadsRegularFilesInsideTheRootAlone)
{
   const TFixtureRoot root(kTree);
   const TMachine machine(root.GetPath());
   EXPECT_EQ(machine.Read("/etc/pipe").fReason, EReason::kNotReadable);
   EXPECT_EQ(machine.Read("/etc/endless", 1000).fReason, EReason::kTooLong);
   EXPECT_EQ(machine.Read("/etc/missing").fReason, EReason::kNotPresent);
   EXPECT_EQ(machine.Read("/etc/outside").fText, "inside\n");
   EXPECT_EQ(machine.ReadLine("/sys/class/net/eth0/address"), "02:00:00:00:00:01");
   EXPECT_EQ(machine.ReadNumber("/proc/number"), 31u);
   EXPECT_EQ(machine.Resolve("/sys/class/net/eth0"), "/sys/devices/pci0/net/eth0");
   EXPECT_EQ(machine.ReadLinkName("/sys/class/net/eth0"), "eth0");
   EXPECT_EQ(machine.List("/etc"),
             (std::vector<std::string>{"endless", "outside", "passwd", "pipe"}));
}

TEST(TMachine, ReadsWhatToolsPrintedUnderARoot)
{
   const TFixtureRoot root(kTree);
   const TMachine machine(root.GetPath());
   EXPECT_EQ(machine.RunTool("ip", {"-j", "route"}).fText, "[]\n");
   EXPECT_EQ(machine.RunTool("lspci", {}).fReason, EReason::kNotInstalled);
   EXPECT_THROW(machine.RunTool("sh", {}), std::logic_error);
}

TEST(TMachine, RefusesDevicesOfThisMachine)
{
   EXPECT_EQ(TMachine().Read("/dev/zero").fReason, EReason::kNotReadable);
}

TEST(TFileProcess, GivesUpAReadThatHangsAndGoesOn)
{
   const auto answer = [](const TFileRequest& request) -> TReading {
      if (request.fPath == "/stuck/a")
         pause();
      return {request.fPath, EReason::kNone, request.fPath};
   };
   TFileProcess process(answer, std::chrono::milliseconds(200));
   EXPECT_EQ(process.Ask({EQuestion::kContent, "/fine"}).fText, "/fine");
   EXPECT_EQ(process.Ask({EQuestion::kContent, "/stuck/a"}).fReason, EReason::kTimedOut);
   // What lies beside it isn't waited for again.
   EXPECT_EQ(process.Ask({EQuestion::kContent, "/stuck/b"}).fReason, EReason::kTimedOut);
   EXPECT_EQ(process.Ask({EQuestion::kContent, "/fine"}).fText, "/fine");
}

TEST(ToolRun, EndsAToolAtTheCapOrTheDeadlineWithAllItStarted)
{
   // A program that prints without end stands for a tool that has gone mad.
   const TReading endless = RunProgram("/usr/bin/yes", "yes", {});
   EXPECT_EQ(endless.fReason, EReason::kTooLong);
   EXPECT_EQ(endless.fText.size(), kToolOutputCap);
   const auto deadline = std::chrono::milliseconds(100);
   EXPECT_EQ(RunProgram("/usr/bin/sleep", "sleep", {"60"}, deadline).fReason, EReason::kTimedOut);
   const TReading environment = RunProgram("/usr/bin/env", "env", {});
   EXPECT_EQ(environment.fText, "LC_ALL=C\nPATH=/usr/sbin:/usr/bin:/sbin:/bin\n");
   EXPECT_EQ(RunProgram("/usr/bin/cat", "cat", {}).fText, "");
   EXPECT_EQ(RunProgram("/usr/bin/missing", "missing", {}).fReason, EReason::kNotPresent);
}

}  // namespace
