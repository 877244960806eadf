#include "machine/TMachine.h"

#include <gtest/gtest.h>

#include "collector/TFixtureRoot.h"

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

}  // namespace
