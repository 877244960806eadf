#include <sys/utsname.h>

#include <array>

#include "TCollected.h"
#include "machine/TMachine.h"
#include "subjects/MachineClock.h"
#include "subjects/Subjects.h"
#include "text/KeyValues.h"
#include "text/Secrets.h"
#include "text/Text.h"

namespace NZANQSX20 {

namespace {

const TNeed kSystem = {"Operating system", {"ZANSG_OperatingSystem"}};
const TNeed kBoot = {"Boot configuration", {"ZANSG_OperatingSystem"}};
const TNeed kInit = {"Init configuration", {"ZANSG_OperatingSystem"}};
const TNeed kRingBuffer = {"Kernel ring buffer", {"ZANSG_OperatingSystem"}};

constexpr unsigned kLinux = 36;

constexpr std::array kBootFiles = {
   "/boot/grub/grub.cfg",      "/boot/grub2/grub.cfg",         "/etc/lilo.conf",
   "/boot/loader/loader.conf", "/boot/extlinux/extlinux.conf", "/proc/cmdline"};
constexpr std::array kInitFiles = {"/etc/inittab", "/etc/systemd/system.conf"};

/// What the distribution is called, without what several of them add to it.
std::string GetVendor(const TKeyValues& release)
{
   const std::string name(release.GetUnquoted("NAME"));
   return name.substr(0, name.find(" GNU/Linux"));
}

void SetRelease(const TMachine& machine, TCollected& collected, TEntry& system)
{
   TReading reading = machine.Read("/etc/os-release");
   if (!reading)
      reading = machine.Read("/usr/lib/os-release");
   if (!collected.Has(reading, kSystem))
      return;
   const TKeyValues release(reading.fText, '=');
   const std::string_view build = release.GetUnquoted("BUILD_ID");
   const std::string pointRelease = machine.ReadLine("/etc/debian_version");
   system.Set("Name", release.GetUnquoted("PRETTY_NAME"))
      .Set("ProductVendor", GetVendor(release))
      .Set("BuildID", build.empty() ? std::string_view(pointRelease) : build);
}

std::string GetPlatform(const TMachine& machine)
{
   const std::string told = machine.ReadLine("/proc/sys/kernel/arch");
   utsname names = {};
   if (!told.empty() || !machine.IsThisMachine() || uname(&names) != 0)
      return told;
   return names.machine;
}

void SetKernel(const TMachine& machine, TEntry& system)
{
   const std::string release = machine.ReadLine("/proc/sys/kernel/osrelease");
   // The version of the distribution is a part of its name.
   system.Set("Version", release.substr(0, release.find('-')))
      .Set("KernelName", machine.ReadLine("/proc/sys/kernel/ostype"))
      .Set("KernelRelease", release)
      .Set("KernelVersion", machine.ReadLine("/proc/sys/kernel/version"))
      .Set("HardwarePlatform", GetPlatform(machine));
}

/// The first of the files that can be read. A file that is there and can't be is a gap.
template <std::size_t count>
void SetFile(const TMachine& machine, TCollected& collected, TEntry& system,
             const std::array<const char*, count>& paths, const TNeed& need,
             const std::string& property)
{
   for (const char* path : paths) {
      const TReading reading = machine.Read(path);
      if (!collected.HasIfPresent(reading, need))
         continue;
      system.Set((property + "Name").c_str(), path)
         .Set((property + "Contents").c_str(), HideSecrets(reading.fText));
      return;
   }
}

void SetRingBuffer(const TMachine& machine, TCollected& collected, TEntry& system)
{
   const TReading reading = machine.RunTool("dmesg", {});
   if (collected.Has(reading, kRingBuffer))
      system.Set("KernelRingBufferName", "dmesg").Set("KernelRingBufferContents", reading.fText);
}

void AddTimeZone(const TMachine& machine, TCollected& collected, const TMachineClock& clock)
{
   constexpr std::string_view kZones = "/zoneinfo/";
   const std::string target = machine.ReadLink("/etc/localtime");
   const std::size_t at = target.find(kZones);
   const std::string zone = at == std::string::npos ? machine.ReadLine("/etc/timezone")
                                                    : target.substr(at + kZones.size());
   TEntry timeZone = collected.Add("ZANSG_TimeZone");
   timeZone.Set("SettingID", "0").Set("TheTimeZone", zone);
   if (clock.fNow)
      timeZone.Set("LocalDateTime", machine.MakeTime(*clock.fNow));
}

}  // namespace

void CollectOperatingSystem(const TMachine& machine, TCollected& collected)
{
   const TMachineClock clock = ReadClock(machine);
   TEntry system = collected.GetSingle("ZANSG_OperatingSystem");
   // The name by which it goes where no file tells a distribution's.
   system.Set("Name", "Linux").Set("OSType", kLinux);
   SetRelease(machine, collected, system);
   SetKernel(machine, system);
   if (clock.fBoot)
      system.Set("LastBootUpTime", machine.MakeTime(*clock.fBoot));
   if (clock.fUpTime)
      system.Set("UpTime", MakeInterval(*clock.fUpTime));
   SetFile(machine, collected, system, kBootFiles, kBoot, "BootConfigurationFile");
   SetFile(machine, collected, system, kInitFiles, kInit, "InitConfigurationFile");
   SetRingBuffer(machine, collected, system);
   AddTimeZone(machine, collected, clock);
}

}  // namespace NZANQSX20
