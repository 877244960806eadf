#include "NoIdentifiers.h"

#include <string>
#include <unordered_set>

namespace NZANQSX20 {

namespace {

using TWords = std::unordered_set<std::string_view>;

const TWords& GetPlaceholders()
{
   // clang-format off
   static const TWords words = {
      "none", "n/a", "na", "unknown", "null", "nil", "empty", "invalid", "error", "default",
      "default string", "not specified", "not available", "not applicable", "not provided",
      "not present", "not installed", "not set", "no dimm", "no asset tag", "no asset information",
      "asset tag", "serial", "serial number", "system serial number", "chassis serial number",
      "base board serial number", "board serial number", "to be filled by o.e.m.",
      "to be filled by oem", "oem", "o.e.m.", "undefined", "unspecified", "unassigned", "other",
      "0123456789", "123456789", "1234567890", "12345678", "true", "false", "yes", "no",
   };
   // clang-format on
   return words;
}

const TWords& GetAccounts()
{
   // clang-format off
   static const TWords words = {
      "root", "daemon", "bin", "sys", "sync", "games", "man", "lp", "mail", "news", "uucp",
      "proxy", "www-data", "backup", "list", "irc", "gnats", "nobody", "nogroup", "adm", "tty",
      "disk", "users", "operator", "ftp", "ntp", "named", "bind", "apache", "nginx", "mysql",
      "postgres", "redis", "mongodb", "oracle", "git", "jenkins", "docker", "libvirt-qemu", "qemu",
      "messagebus", "dbus", "polkitd", "sshd", "ssh", "chrony", "_chrony", "systemd-network",
      "systemd-resolve", "systemd-timesync", "systemd-coredump", "systemd", "rpc", "rpcuser",
      "statd", "_rpc", "tss", "uuidd", "syslog", "_apt", "avahi", "colord", "saned", "pulse",
      "rtkit", "gdm", "lightdm", "sddm", "dnsmasq", "postfix", "exim", "debian-exim", "dovecot",
      "nfsnobody", "abrt", "rpm", "halt", "shutdown", "console", "system", "local service",
      "network service", "localservice", "networkservice", "localsystem", "nt authority",
      "nt service", "builtin", "administrator", "administrators", "admin", "guest",
      "defaultaccount", "wdagutilityaccount", "user", "everyone", "service", "test", "public",
      "private", "owner", "default user", "all users", "anonymous", "anonymous logon",
      "power users", "remote", "kernel", "ubuntu", "debian", "centos", "fedora", "ec2-user",
      "cloud-user", "support", "monitor", "server", "data", "info", "office", "power",
      "windows user", "microsoft", "local",
   };
   // clang-format on
   return words;
}

const TWords& GetHosts()
{
   // clang-format off
   static const TWords words = {
      "localhost", "localdomain", "local", "localhost4", "localhost6", "ip6-localhost", "host",
      "server", "linux", "windows", "debian", "ubuntu", "fedora", "centos", "rocky", "suse",
      "opensuse", "esxi", "esx", "vmware", "workgroup", "domain", "lan", "home", "internal",
      "intranet", "corp", "com", "net", "org", "edu", "gov", "example", "arpa", "www", "mail",
      "ftp", "dns", "ntp", "gateway", "router", "switch", "proxy", "kernel", "system", "machine",
      "computer", "node", "unknown", "none", "(none)", "default", "test",
   };
   // clang-format on
   return words;
}

}  // namespace

bool IdentifiesNobody(EMaskKind kind, std::string_view value)
{
   std::string lower;
   for (const char byte : value)
      lower += byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
   const bool isOneByteOver =
      lower.size() != 1 && lower.find_first_not_of(lower.substr(0, 1)) == std::string::npos;
   if (isOneByteOver || GetPlaceholders().count(lower) > 0)
      return true;
   switch (kind) {
      case EMaskKind::kUser:
      case EMaskKind::kContact:
      case EMaskKind::kSecret:
         return GetAccounts().count(lower) > 0;
      case EMaskKind::kHost:
      case EMaskKind::kDomain:
         return GetHosts().count(lower) > 0;
      default:
         return false;
   }
}

}  // namespace NZANQSX20
