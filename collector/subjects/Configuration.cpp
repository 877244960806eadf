#include <algorithm>
#include <cstdlib>

#include "TCollected.h"
#include "machine/TMachine.h"
#include "subjects/Subjects.h"
#include "text/KeyValues.h"
#include "text/Secrets.h"
#include "text/Text.h"

namespace NZANQSX20 {

namespace {

const TNeed kFiles = {"Configuration files",
                      {"ZANSG_SysConfigElement", "ZANSG_SysConfigSettingData"}};
const TNeed kModuleFiles = {"Configuration of kernel modules",
                            {"ZANSG_LinuxModulesConfigurationSetting"}};

/// Units: bytes. A longer file is no configuration that somebody reads.
constexpr std::size_t kConfigurationCap = 256 * 1024;

/// A service and its files. A path that ends with "/" is a folder whose files of the ending count.
struct TService
{
   const char* fName;
   std::vector<const char*> fPaths;
   const char* fEnding = ".conf";
};

const std::vector<TService>& GetServices()
{
   static const std::vector<TService> services = {
      {"Boot loader", {"/etc/default/grub"}},
      {"Disk arrays", {"/etc/mdadm.conf", "/etc/mdadm/mdadm.conf"}},
      {"Kernel", {"/etc/sysctl.conf", "/etc/sysctl.d/"}},
      {"Kernel dump", {"/etc/kdump.conf", "/etc/default/kdump-tools"}},
      {"Logging",
       {"/etc/rsyslog.conf", "/etc/rsyslog.d/", "/etc/syslog.conf", "/etc/logrotate.conf",
        "/etc/systemd/journald.conf"}},
      {"Logical volumes", {"/etc/lvm/lvm.conf"}},
      {"Mounts", {"/etc/fstab", "/etc/auto.master"}},
      {"Multipath", {"/etc/multipath.conf"}},
      {"Name resolution",
       {"/etc/hosts", "/etc/host.conf", "/etc/nsswitch.conf", "/etc/resolv.conf"}},
      {"Network", {"/etc/network/interfaces", "/etc/network/interfaces.d/"}, ""},
      {"Network (ifcfg)", {"/etc/sysconfig/network", "/etc/sysconfig/network-scripts/"}, ""},
      {"Packages",
       {"/etc/apt/sources.list", "/etc/apt/sources.list.d/", "/etc/yum.conf", "/etc/dnf/dnf.conf",
        "/etc/yum.repos.d/"},
       ""},
      {"Resource limits", {"/etc/security/limits.conf", "/etc/security/limits.d/"}},
      {"Schedule", {"/etc/crontab", "/etc/anacrontab", "/etc/cron.d/"}, ""},
      {"Secure shell", {"/etc/ssh/sshd_config", "/etc/ssh/sshd_config.d/"}},
      {"Time",
       {"/etc/chrony.conf", "/etc/chrony/chrony.conf", "/etc/ntp.conf", "/etc/ntpsec/ntp.conf",
        "/etc/systemd/timesyncd.conf"}},
   };
   return services;
}

std::vector<std::string> ListFiles(const TMachine& machine, const char* path, const char* ending)
{
   if (!EndsWith(path, "/"))
      return {path};
   std::vector<std::string> files;
   for (const std::string& name : machine.List(path))
      // Hidden files and copies that editors and packages leave are not read by the service.
      if (EndsWith(name, ending) && name.front() != '.' && !EndsWith(name, "~"))
         files.push_back(path + name);
   return files;
}

/// Missing: nothing, and a gap when the file is there and can't be read.
std::optional<std::string> ReadSetting(const TMachine& machine, TCollected& collected,
                                       const std::string& path, const TNeed& need)
{
   const TReading reading = machine.Read(path, kConfigurationCap);
   if (!collected.HasIfPresent(reading, need))
      return std::nullopt;
   return HideSecrets(reading.fText);
}

void AddService(const TMachine& machine, TCollected& collected, const TService& service)
{
   std::optional<TEntry> element;
   for (const char* path : service.fPaths)
      for (const std::string& file : ListFiles(machine, path, service.fEnding)) {
         const auto content = ReadSetting(machine, collected, file, kFiles);
         if (!content)
            continue;
         if (!element)
            element = collected.Add("ZANSG_SysConfigElement").Set("DeviceID", service.fName);
         const TEntry setting = collected.Add("ZANSG_SysConfigSettingData")
                                   .Set("FilePath", file)
                                   .Set("SettingData", *content);
         collected.Associate("ZANSG_SysConfigAssoc", *element, setting);
      }
}

void AddModuleFiles(const TMachine& machine, TCollected& collected)
{
   for (const char* path : {"/etc/modules.conf", "/etc/modprobe.conf", "/etc/modprobe.d/",
                            "/etc/modules", "/etc/modules-load.d/"})
      for (const std::string& file : ListFiles(machine, path, ".conf"))
         if (const auto content = ReadSetting(machine, collected, file, kModuleFiles))
            collected.Add("ZANSG_LinuxModulesConfigurationSetting")
               .Set("ElementName", file)
               .Set("ModulesConf", *content);
}

/// Of the user who collects. Others may hold what is nobody's business.
void AddUserVariables(const TMachine& machine, TCollected& collected)
{
   if (!machine.IsThisMachine())
      return;
   for (const char* name : {"HOME", "LANG", "LC_ALL", "LOGNAME", "PATH", "SHELL", "TERM", "USER"})
      if (const char* value = std::getenv(name))
         collected.Add("ZANSG_UserEnvironmentVariable")
            .Set("SettingID", name)
            .Set("SettingValue", value);
}

void AddSystemVariables(const TMachine& machine, TCollected& collected)
{
   const TReading reading = machine.Read("/etc/environment", kConfigurationCap);
   if (!collected.HasIfPresent(reading, {"System variables", {"ZANSG_SystemEnvironmentVariable"}}))
      return;
   const std::string text = HideSecrets(reading.fText);
   std::vector<std::string_view> names;
   const TKeyValues variables(text, '=');
   for (const auto& [name, value] : variables.GetPairs()) {
      if (StartsWith(name, "#") || std::find(names.begin(), names.end(), name) != names.end())
         continue;
      names.push_back(name);
      collected.Add("ZANSG_SystemEnvironmentVariable")
         .Set("SettingID", name)
         .Set("SettingValue", variables.GetUnquoted(name));
   }
}

void AddPageFiles(const TMachine& machine, TCollected& collected)
{
   const TReading reading = machine.Read("/proc/swaps");
   for (const std::string_view line : SplitLines(reading.fText)) {
      // "/dev/sda2  partition  8388604  0  -2", in KB; the first line is the heading.
      const auto words = SplitWords(line);
      const auto size = words.size() > 2 ? ToNumber(words[2]) : std::nullopt;
      if (size)
         collected.Add("ZANSG_PageFile")
            .Set("SettingID", words[0])
            .Set("Name", words[0])
            .Set("FileSize", *size / 1024);
   }
}

}  // namespace

void CollectConfiguration(const TMachine& machine, TCollected& collected)
{
   for (const TService& service : GetServices())
      AddService(machine, collected, service);
   AddModuleFiles(machine, collected);
   AddUserVariables(machine, collected);
   AddSystemVariables(machine, collected);
   AddPageFiles(machine, collected);
}

}  // namespace NZANQSX20
