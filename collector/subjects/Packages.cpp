#include "TCollected.h"
#include "machine/TMachine.h"
#include "subjects/Subjects.h"
#include "text/KeyValues.h"
#include "text/Text.h"

namespace NZANQSX20 {

namespace {

const TNeed kPackages = {"Packages", {"ZANSG_InstalledRPM"}};

constexpr const char* kStatusFile = "/var/lib/dpkg/status";
constexpr std::size_t kStatusCap = std::size_t{64} << 20;

/// dpkg keeps no date; it writes the list of a package's files when it installs it.
std::optional<std::int64_t> GetInstallTime(const TMachine& machine, std::string_view package,
                                           std::string_view architecture)
{
   const std::string list = "/var/lib/dpkg/info/" + std::string(package);
   if (const auto time = machine.GetModifiedTime(list + ".list"))
      return time;
   return machine.GetModifiedTime(list + ':' + std::string(architecture) + ".list");
}

void AddDebianPackages(const TMachine& machine, TCollected& collected, std::string_view status)
{
   for (const std::string_view block : SplitBlocks(status)) {
      const TKeyValues package(block);
      if (!EndsWith(package.Get("Status"), " installed"))
         continue;
      const std::string_view name = package.Get("Package");
      TEntry entry = collected.Add("ZANSG_InstalledRPM");
      entry.Set("ProductName", name)
         .Set("ProductVersion", package.Get("Version"))
         .Set("Architecture", package.Get("Architecture"))
         .Set("Group", package.Get("Section"))
         .Set("Summary", package.Get("Description"));
      if (const auto kilobytes = package.GetNumber("Installed-Size"))
         entry.Set("Size", *kilobytes * 1024);
      if (const auto time = GetInstallTime(machine, name, package.Get("Architecture")))
         entry.Set("ProductInstallDate", machine.MakeTime(*time));
   }
}

/// The fields of a package, one line each; "(none)" stands for no value.
void AddRPMPackages(const TMachine& machine, TCollected& collected)
{
   const TReading reading = machine.RunTool(
      "rpm", {"-qa", "--qf",
              "%{NAME}\\t%{EPOCHNUM}:%{VERSION}-%{RELEASE}\\t%{ARCH}\\t%{GROUP}\\t%{SUMMARY}\\t"
              "%{SIZE}\\t%{LICENSE}\\t%{INSTALLTIME}\\n"});
   if (!collected.Has(reading, kPackages))
      return;
   const auto known = [](std::string_view text) {
      return text == "(none)" || text == "Unspecified" ? std::string_view() : text;
   };
   for (const std::string_view line : SplitLines(reading.fText)) {
      const auto fields = Split(line, '\t');
      if (fields.size() != 8)
         continue;
      const std::string_view version =
         StartsWith(fields[1], "0:") ? fields[1].substr(2) : fields[1];
      TEntry entry = collected.Add("ZANSG_InstalledRPM");
      entry.Set("ProductName", fields[0])
         .Set("ProductVersion", version)
         .Set("Architecture", known(fields[2]))
         .Set("Group", known(fields[3]))
         .Set("Summary", known(fields[4]))
         .Set("Size", ToNumber(fields[5]))
         .Set("License", known(fields[6]));
      if (const auto time = ToSignedNumber(fields[7]))
         entry.Set("ProductInstallDate", machine.MakeTime(*time));
   }
}

}  // namespace

void CollectPackages(const TMachine& machine, TCollected& collected)
{
   const TReading status = machine.Read(kStatusFile, kStatusCap);
   if (collected.HasIfPresent(status, kPackages))
      AddDebianPackages(machine, collected, status.fText);
   // A Debian machine may have the tool rpm and no package of its kind.
   if (status.fReason == EReason::kNotPresent || machine.Exists("/var/lib/rpm/rpmdb.sqlite") ||
       machine.Exists("/var/lib/rpm/Packages"))
      AddRPMPackages(machine, collected);
}

}  // namespace NZANQSX20
