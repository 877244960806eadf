#include "FleetIndex.h"

#include <filesystem>

#include <fmt/format.h>

#include "CommandFailure.h"
#include "Console.h"
#include "FleetPages.h"
#include "Formats.h"
#include "OutputFolder.h"
#include "PageRun.h"
#include "ReadFleet.h"
#include "common/OutputFile.h"

namespace fs = std::filesystem;

namespace {

/// Whether the pages of an index stand there, and no report.
bool IsIndex(const fs::path& folder)
{
   std::error_code ignored;
   return fs::is_regular_file(folder / "index.html", ignored) &&
          fs::is_regular_file(folder / "firmware.html", ignored) &&
          !fs::exists(folder / "manifest.json", ignored);
}

}  // namespace

TFleet ReadFleetBelow(const std::string& folder, TConsole& console)
{
   std::vector<TFleetFormat> formats;
   for (const TFormat& format : GetFormats())
      formats.push_back({format.fName, format.fEntryFile});
   try {
      return ReadFleet(folder, formats,
                       [&](const std::string& place) { console.Progress("Reading " + place); });
   } catch (const fs::filesystem_error& failure) {
      throw TCommandFailure(kExitInput,
                            fmt::format("{}: can't be read: {}", folder, failure.code().message()));
   }
}

void WriteFleetIndex(const std::string& folder, TFleet fleet, bool force)
{
   const std::string target = (fs::path(folder) / kFleetIndexFolder).string();
   TOutputFolder output(target, force || IsIndex(target), {});
   fleet.Judge();
   output.Stage();
   THtmlOptions options;
   options.fWritten = DescribeTime();
   options.fProgram = std::string("qsxreport ") + QSX_VERSION;
   try {
      WriteFleetPages(fleet, output.GetWorkFolder(""), options);
   } catch (const TOutputError& failure) {
      throw TCommandFailure(kExitRun, output.NameTarget(failure.what()));
   }
   output.Publish();
}
