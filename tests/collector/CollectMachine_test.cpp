#include "CollectMachine.h"

#include <gmock/gmock.h>

#include "collector/TFixtureRoot.h"
#include "machine/TMachine.h"
#include "support/DescribeStore.h"

using namespace NZANQSX20;
using testing::HasSubstr;
using testing::Not;

namespace {

/// What holds of every collection: it can be written and read back as it is.
void ExpectSound(TMemoryStore& store, const std::string& text)
{
   EXPECT_THAT(text, Not(HasSubstr("Source=\"qsxreport\""))) << "a subject has failed";
   for (const TMemoryStore::TDuplicatePath& duplicate : store.FindDuplicatePaths())
      ADD_FAILURE() << "two of " << duplicate.fPath;
   for (const TStoredClass* storedClass : store.GetSchema().GetClasses())
      for (const TStoredInstance* instance : storedClass->GetInstances())
         for (const TSlot key : storedClass->GetKeySlots())
            EXPECT_NE(instance->Find(key), nullptr) << store.GetPath(*instance);
}

std::string Collect(const std::string& tree)
{
   const TFixtureRoot root(tree);
   const auto store = CollectMachine(TMachine(root.GetPath()), {"1.2.3"});
   const std::string text = DescribeInstances(store);
   ExpectSound(*store, text);
   return text;
}

/// The lines of one instance, without its path and the type numbers.
std::string Find(const std::string& text, const std::string& path)
{
   const std::size_t start = text.find('\n' + path + '\n');
   if (start == std::string::npos)
      return "no " + path;
   const std::size_t first = start + path.size() + 2;
   std::size_t end = first;
   while (text.compare(end, 3, "   ") == 0)
      end = text.find('\n', end) + 1;
   return text.substr(first, end - first);
}

class TServer : public testing::Test
{
protected:
   static void SetUpTestSuite() { fText = Collect(TFixtureRoot::ReadTree("server-system")); }

   static void ExpectProperty(const std::string& path, const std::string& property,
                              const std::string& value)
   {
      EXPECT_THAT(Find(fText, path),
                  testing::ContainsRegex("   " + property + " [0-9]+ \\{" + value));
   }

   static std::string fText;
};

std::string TServer::fText;

TEST_F(TServer, TellsTheSystemInItsOwnTime)
{
   const std::string system = "ZANSG_OperatingSystem.Name=\"Debian GNU/Linux 12 (bookworm)\"";
   ExpectProperty(system, "ProductVendor", "Debian\\}");
   ExpectProperty(system, "UpTime", "00000001020304\\.");
   ExpectProperty(system, "LastBootUpTime", "20231114231320.000000.060");
   ExpectProperty(system, "MemoryLoad", "75\\}");
   ExpectProperty("ZANSG_TimeZone.SettingID=\"0\"", "TheTimeZone", "Europe/Zander\\}");
   ExpectProperty("ZANSG_ComputerSystem.Name=\"web01\"", "SerialNumber", "SN40817\\}");
   // A text that the maker left unfilled is no version.
   EXPECT_THAT(Find(fText, "ZANSG_ComputerSystem.Name=\"web01\""), HasSubstr("Version 13 null"));
   ExpectProperty("ZANSG_Account.Name=\"root\"", "LastLogon", "2023111423");
}

TEST_F(TServer, CountsCoresNotThreads)
{
   ExpectProperty("ZANSG_Processor.Core=0,DeviceID=\"CPU 0\"", "L1OperationalMode", "1\\}");
   ExpectProperty("ZANSG_Processor.Core=1,DeviceID=\"CPU 0\"", "HTEnabled", "TRUE");
   ExpectProperty("ZANSG_Processor.Core=0,DeviceID=\"CPU 1\"", "CurrentClockSpeed", "2400");
   EXPECT_THAT(fText, Not(HasSubstr("ZANSG_Processor.Core=2")));
}

TEST_F(TServer, JoinsMemoryModulesWithTheirErrors)
{
   const std::string module = "ZANSG_SPDData.Tag=\"DIMM_A1\"";
   ExpectProperty(module, "Capacity", "32768\\}");
   ExpectProperty(module, "MemoryType", "26\\}");
   ExpectProperty(module, "DimmSpeed", "2933\\}");
   ExpectProperty(module, "ErrorMethodology", "Multi-bit ECC\\}");
   ExpectProperty(module, "UncorrectedErrors", "1\\}");
   EXPECT_THAT(fText, HasSubstr("DIMM_A1: 1 uncorrected and 17 corrected errors"));
   EXPECT_THAT(fText, Not(HasSubstr("DIMM_A2")));
}

TEST_F(TServer, ReadsSoftwareWhateverItsNamesHold)
{
   const std::string process = "ZANSG_Process.Handle=\"42\"";
   ExpectProperty(process, "Name", "tricky\\) name\\}");
   ExpectProperty(process, "User", "www-data\\}");
   ExpectProperty(process, "ExecutionState", "4\\}");
   ExpectProperty(process, "KernelModeTime", "750\\}");
   ExpectProperty(process, "CreationDate", "20231114231325");
   // What a worker works on changes by the second.
   ExpectProperty("ZANSG_Process.Handle=\"43\"", "Name", "kworker/1:2\\}");
   ExpectProperty("ZANSG_LinuxKernelModule.Name=\"brandtraid\"", "Description", "Brandt RAID");
   // modinfo knows nothing of this one; the kernel does.
   ExpectProperty("ZANSG_LinuxKernelModule.Name=\"brandtnet\"", "Version", "3.2.6");
   ExpectProperty(
      "ZANSG_InstalledRPM.Architecture=\"amd64\",ProductName=\"zansh\","
      "ProductVersion=\"5.2.15-2\"",
      "Size", "7335936\\}");
   EXPECT_THAT(fText, Not(HasSubstr("ProductName=\"gone\"")));
   ExpectProperty("ZANSG_SystemServiceInfo.Name=\"backup.service\"", "CurrentState",
                  "failed \\(failed\\)");
   EXPECT_THAT(fText, HasSubstr("Service backup.service has failed (exit-code)"));
   ExpectProperty("CIM_BIOSElement.Name=\"Zander Firmware BIOS\"", "ReleaseDate", "20220929");
   ExpectProperty("ZANSG_FirmwareElement.Name=\"NVMe drive nvme0\"", "Version", "GDC5302Q");
}

TEST_F(TServer, KeepsSecretsOutOfConfigurationFiles)
{
   EXPECT_THAT(fText, HasSubstr("password_pbkdf2 ***\nlinux /vmlinuz"));
   EXPECT_THAT(fText, HasSubstr("username=zan,password=***,vers=3.0 0 0"));
   EXPECT_THAT(fText, HasSubstr("deb https://***@mirror.example/debian"));
   EXPECT_THAT(fText, HasSubstr("passwd:         files systemd"));
   EXPECT_THAT(fText, HasSubstr("PasswordAuthentication no"));
   EXPECT_THAT(fText, HasSubstr("blacklist floppy"));
   EXPECT_THAT(fText, Not(HasSubstr("an editor's copy")));
}

TEST(CollectMachine, NamesWhatASmallMachineLacks)
{
   const std::string text = Collect(R"(== /proc/sys/kernel/hostname
vm
== /proc/cpuinfo
processor	: 0
model name	: Virtual
== /proc/meminfo
MemTotal: 1024 kB
)");
   EXPECT_THAT(text, HasSubstr("ZANSG_Processor.Core=0,DeviceID=\"CPU 0\""));
   EXPECT_THAT(text, HasSubstr("QSX_NotCollected.Source=\"dmidecode\",Subject=\"Memory modules\""));
   EXPECT_THAT(text, HasSubstr("QSX_NotCollected.Source=\"dmesg\""));
   // No loadable modules and no board: the machine has none, nothing is missing.
   EXPECT_THAT(text, Not(HasSubstr("Subject=\"Kernel modules\"")));
   EXPECT_THAT(text, Not(HasSubstr("ZANSG_Card.")));
}

TEST(CollectMachine, TakesKernelMessagesWhereThereIsNoJournal)
{
   const std::string text = Collect(R"(== /proc/sys/kernel/hostname
vm
== /proc/stat
btime 1700000000
== /qsxreport-tools/dmesg_-r
<5>[    0.000000] Linux version 6.1.0
<11>[   12.500000] BUG: brandtnet stuck
Call Trace:
 <TASK>
<6>[99999999999999999999.1] late
<6>[    7] no fraction
)");
   EXPECT_THAT(text, HasSubstr("{BUG: brandtnet stuck\nCall Trace:\n <TASK>}"));
   EXPECT_THAT(text, HasSubstr("20231114221332.500000+000"));
   EXPECT_THAT(text, HasSubstr("{late}"));
   EXPECT_THAT(text, HasSubstr("{no fraction}"));
}

TEST(CollectMachine, CollectsWhatABrokenMachineStillTells)
{
   const std::string text = Collect(R"(== /proc/sys/kernel/hostname
\xff\xfeweb\x07
== /proc/stat
btime notanumber
cpu
== /proc/uptime sparse
== /proc/meminfo fifo
== /proc/cpuinfo
processor	: 0
processor
\
== /proc/1/stat
1 (init
== /proc/2/stat fifo
== /proc/99999999999999999999/stat
x
== /etc/os-release
NAME=
== /etc/passwd
:::::
root
root:x:0:0:\xc3\x28:/root:/bin/sh
root:x:0:0:again:/root:/bin/sh
\
== /etc/fstab fifo
== /boot/grub/grub.cfg sparse
== /etc/sysctl.d/loop.conf -> loop.conf
== /var/lib/dpkg/status
Package: half
Status: install ok installed
)");
   EXPECT_THAT(text, HasSubstr("ZANSG_ComputerSystem.Name=\"\\\\xFF\\\\xFEweb\\\\x07\""));
   EXPECT_THAT(text, HasSubstr("Descriptions 13 {\\xC3(}"));
   EXPECT_THAT(text, HasSubstr("Source=\"/boot/grub/grub.cfg\",Subject=\"Boot configuration\""));
   EXPECT_THAT(text, HasSubstr("Source=\"/proc/meminfo\",Subject=\"Memory in use\""));
   EXPECT_THAT(text, HasSubstr("Source=\"/etc/sysctl.d/loop.conf\""));
}

}  // namespace
