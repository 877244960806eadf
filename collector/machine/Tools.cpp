#include "machine/Tools.h"

#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <climits>
#include <cstdlib>
#include <stdexcept>

namespace NZANQSX20 {

namespace {

const std::vector<TToolPaths>& GetTable()
{
   static const std::vector<TToolPaths> table = {
      {"dmesg", {"/usr/bin/dmesg", "/bin/dmesg"}},
      {"dmidecode", {"/usr/sbin/dmidecode", "/sbin/dmidecode"}},
      {"ethtool", {"/usr/sbin/ethtool", "/sbin/ethtool"}},
      {"findmnt", {"/usr/bin/findmnt", "/bin/findmnt"}},
      {"ip", {"/usr/sbin/ip", "/sbin/ip", "/usr/bin/ip"}},
      {"ipmitool", {"/usr/bin/ipmitool", "/usr/sbin/ipmitool"}},
      {"journalctl", {"/usr/bin/journalctl", "/bin/journalctl"}},
      {"lsblk", {"/usr/bin/lsblk", "/bin/lsblk"}},
      {"lspci", {"/usr/bin/lspci", "/usr/sbin/lspci", "/sbin/lspci"}},
      {"lsusb", {"/usr/bin/lsusb", "/usr/sbin/lsusb"}},
      {"modinfo", {"/usr/sbin/modinfo", "/sbin/modinfo"}},
      {"rpm", {"/usr/bin/rpm", "/bin/rpm"}},
      {"smartctl", {"/usr/sbin/smartctl", "/sbin/smartctl"}},
      {"systemctl", {"/usr/bin/systemctl", "/bin/systemctl"}},
   };
   return table;
}

bool IsTrusted(const struct stat& status)
{
   return status.st_uid == 0 && (status.st_mode & (S_IWGRP | S_IWOTH)) == 0;
}

/// The path is resolved: no part of it is a link.
bool IsTrustedPath(const std::string& path)
{
   struct stat status = {};
   if (stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode) || !IsTrusted(status))
      return false;
   for (std::size_t at = path.rfind('/'); at != std::string::npos; at = path.rfind('/', at - 1)) {
      const std::string folder = path.substr(0, at == 0 ? 1 : at);
      if (stat(folder.c_str(), &status) != 0 || !IsTrusted(status))
         return false;
      if (at == 0)
         break;
   }
   return true;
}

}  // namespace

const TToolPaths& GetToolPaths(const std::string& name)
{
   for (const TToolPaths& tool : GetTable())
      if (name == tool.fName)
         return tool;
   throw std::logic_error("no tool " + name + " in the table");
}

std::string FindTool(const TToolPaths& tool, TReading& reading)
{
   reading.fSource = tool.fPaths.front();
   reading.fReason = EReason::kNotInstalled;
   for (const char* path : tool.fPaths) {
      std::array<char, PATH_MAX> resolved = {};
      if (realpath(path, resolved.data()) == nullptr)
         continue;
      reading.fSource = path;
      if (!IsTrustedPath(resolved.data())) {
         reading.fReason = EReason::kNotPermitted;
         reading.fDetail = "not run: somebody else than root may change it";
         return {};
      }
      reading.fReason = EReason::kNone;
      return resolved.data();
   }
   return {};
}

}  // namespace NZANQSX20
