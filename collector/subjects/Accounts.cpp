#include <unistd.h>

#include <cstring>

#include "TCollected.h"
#include "machine/TMachine.h"
#include "subjects/Subjects.h"
#include "text/Text.h"

namespace NZANQSX20 {

namespace {

const TNeed kAccounts = {"Users", {"ZANSG_Account", "ZANSG_CurrentAccountOnSystem"}};

constexpr const char* kLogons = "/var/log/lastlog";
/// A record of the file: seconds of 32 bits, 32 bytes of the terminal and 256 of the host.
constexpr std::size_t kLogonSize = 4 + 32 + 256;

/// The records stand at the place of the user's number; the file is full of holes.
std::optional<std::int64_t> ReadLastLogon(const TMachine& machine, std::uint64_t user)
{
   const TReading reading = machine.ReadPart(kLogons, user * kLogonSize, kLogonSize);
   std::uint32_t seconds = 0;
   if (!reading || reading.fText.size() < sizeof seconds)
      return std::nullopt;
   std::memcpy(&seconds, reading.fText.data(), sizeof seconds);
   return seconds == 0 ? std::nullopt : std::optional<std::int64_t>(seconds);
}

}  // namespace

void CollectAccounts(const TMachine& machine, TCollected& collected)
{
   const TReading reading = machine.Read("/etc/passwd");
   if (!collected.Has(reading, kAccounts))
      return;
   const std::string current = machine.IsThisMachine() ? std::to_string(getuid()) : std::string();
   for (const std::string_view line : SplitLines(reading.fText)) {
      // "root:x:0:0:root:/root:/bin/bash"
      const auto fields = Split(line, ':');
      if (fields.size() < 5 || fields[0].empty() ||
          collected.Find("ZANSG_Account.Name=\"" + ToUtf8(fields[0]) + '"'))
         continue;
      TEntry account = collected.Add("ZANSG_Account");
      account.Set("Name", fields[0]).Set("UserID", fields[2]).Set("Descriptions", fields[4]);
      if (const auto user = ToNumber(fields[2]))
         if (const auto logon = ReadLastLogon(machine, *user))
            account.Set("LastLogon", machine.MakeTime(*logon));
      if (fields[2] == current)
         collected.Associate("ZANSG_CurrentAccountOnSystem",
                             collected.GetSingle("ZANSG_ComputerSystem"), account);
   }
}

}  // namespace NZANQSX20
