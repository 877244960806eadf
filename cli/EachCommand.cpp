#include "EachCommand.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <set>
#include <string>
#include <string_view>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

#include <fmt/format.h>

#include "Console.h"
#include "FleetIndex.h"
#include "Options.h"
#include "OutputFolder.h"
#include "Workers.h"

namespace fs = std::filesystem;

namespace {

/// One collection of several.
struct TEachReport
{
   /// The file or folder as it is called in the folder of the collections.
   std::string fCollection;
   /// The folder of its pages.
   std::string fFolder;
   /// The page in there that a reader begins with.
   std::string fEntry;
   /// Why there are no pages. Missing: empty where there are.
   std::string fFailure;
};

constexpr const char* kIndexFile = "index.html";

/// The index is a folder of pages; this file, beside the reports, leads there.
constexpr const char* kDoor = R"(<!DOCTYPE html>
<html lang="en"><head><meta charset="utf-8"><meta name="viewport" content="width=device-width">
<meta http-equiv="refresh" content="0; url=fleet-index/index.html"><title>Machines</title></head>
<body><p><a href="fleet-index/index.html">All machines</a></p></body></html>
)";

/// What names of collections end with; several may stand behind each other ("a.xml.gz").
constexpr const char* kExtensions[] = {".gz", ".zst", ".xml", ".mof"};

std::string GetFolderName(const std::string& collection)
{
   fs::path name = collection;
   const auto isKnown = [&name](const char* extension) { return name.extension() == extension; };
   while (std::any_of(std::begin(kExtensions), std::end(kExtensions), isKnown))
      name = name.stem();
   return name.string();
}

/// The path from the output folder of a collection to the page to open first.
std::string GetEntry(const TOptions& options)
{
   const TFormat& first = *options.fFormats.front().fFormat;
   const std::string subfolder = options.fFormats.size() > 1 ? first.fName + std::string("/") : "";
   return subfolder + first.fEntryFile;
}

/// The collections of the folder in byte order, each with an output folder of its own.
std::vector<TEachReport> ListCollections(const TOptions& options)
{
   std::vector<TEachReport> reports;
   std::error_code error;
   for (fs::directory_iterator entry(options.fEach, error), end; !error && entry != end;
        entry.increment(error)) {
      std::error_code ignored;
      const std::string name = entry->path().filename().string();
      if (name.front() != '.' && (entry->is_regular_file(ignored) || entry->is_directory(ignored)))
         reports.push_back({name, "", GetEntry(options), ""});
   }
   if (error)
      throw TCommandFailure(kExitInput,
                            fmt::format("{}: cannot be read: {}", options.fEach, error.message()));
   if (reports.empty())
      throw TCommandFailure(kExitInput, fmt::format("{}: holds no collection", options.fEach));
   std::sort(reports.begin(), reports.end(), [](const TEachReport& a, const TEachReport& b) {
      return a.fCollection < b.fCollection;
   });

   std::set<std::string> taken = {kIndexFile, kFleetIndexFolder};
   for (TEachReport& report : reports) {
      const std::string folder = GetFolderName(report.fCollection);
      report.fFolder = folder;
      for (int number = 2; !taken.insert(report.fFolder).second; ++number)
         report.fFolder = fmt::format("{}~{}", folder, number);
   }
   return reports;
}

void PrepareOutput(const TOptions& options)
{
   // Looks at the target as a single report does, and changes nothing.
   const TOutputFolder target(options.fOutput, true, {options.fEach});
   std::error_code error;
   fs::create_directories(options.fOutput, error);
   if (error)
      throw TCommandFailure(kExitRun,
                            fmt::format("{}: can't be made: {}", options.fOutput, error.message()));
   if (!options.fForce && !options.fResume && !fs::is_empty(options.fOutput, error))
      throw TCommandFailure(
         kExitRun, fmt::format("{}: the folder exists and is not empty; --resume keeps the reports "
                               "that are finished, --force writes all anew",
                               options.fOutput));
}

/// When the last of the collection's files was changed.
fs::file_time_type FindLastChange(const fs::path& collection)
{
   fs::file_time_type last = fs::last_write_time(collection);
   if (fs::is_directory(collection))
      for (const fs::directory_entry& file : fs::directory_iterator(collection))
         last = std::max(last, file.last_write_time());
   return last;
}

/// Whether the pages are newer than the collection and the program.
bool IsFinished(const TOptions& options, const TEachReport& report)
{
   const fs::path page = fs::path(options.fOutput) / report.fFolder / report.fEntry;
   try {
      const fs::file_time_type written = fs::last_write_time(page);
      return written >= FindLastChange(fs::path(options.fEach) / report.fCollection) &&
             written >= fs::last_write_time("/proc/self/exe");
   } catch (const fs::filesystem_error&) {
      return false;
   }
}

TOptions MakeOptionsOfOne(const TOptions& options, const TEachReport& report)
{
   TOptions one = options;
   one.fEach.clear();
   one.fCollections = {(fs::path(options.fEach) / report.fCollection).string()};
   one.fOutput = (fs::path(options.fOutput) / report.fFolder).string();
   one.fForce = options.fForce || options.fResume;
   one.fQuiet = true;
   return one;
}

/// What a worker that failed had to say, without the name of the program.
std::string DescribeEnd(const TWorkerEnd& end)
{
   if (end.fSignal != 0)
      return fmt::format("the run was ended by the signal {} ({})", end.fSignal,
                         strsignal(end.fSignal));
   constexpr const char* kLabel = "error: ";
   std::string text = end.fMessages;
   while (!text.empty() && text.back() == '\n')
      text.pop_back();
   text.erase(0, text.rfind('\n') + 1);
   const std::size_t label = text.find(kLabel);
   if (label != std::string::npos)
      text.erase(0, label + std::strlen(kLabel));
   return text.empty() ? fmt::format("the run ended with exit code {}", end.fExitCode) : text;
}

void WriteDoor(const TOptions& options)
{
   const std::string path = options.fOutput + '/' + kIndexFile;
   const std::string draft = path + ".new";
   const std::string_view page = kDoor;
   std::FILE* const file = std::fopen(draft.c_str(), "wb");
   const bool isWritten =
      file != nullptr && std::fwrite(page.data(), 1, page.size(), file) == page.size();
   const bool isClosed = file != nullptr && std::fclose(file) == 0;
   if (!isWritten || !isClosed || std::rename(draft.c_str(), path.c_str()) != 0)
      throw TCommandFailure(kExitRun,
                            fmt::format("{}: can't be written: {}", path, std::strerror(errno)));
}

/// A format without a manifest tells where its report is, and no more.
void AddUntold(const TOptions& options, const TEachReport& report, TFleet& fleet)
{
   const fs::path folder = fs::path(options.fOutput) / report.fFolder;
   const fs::path entry = report.fEntry;
   std::error_code ignored;
   if (fs::exists(folder / entry.parent_path() / "manifest.json", ignored) ||
       !fs::exists(folder / entry, ignored))
      return;
   TFleetMachine& machine = fleet.fMachines.emplace_back();
   machine.fPlace = report.fFolder;
   machine.fEntry = report.fEntry;
   machine.fName = report.fFolder;
}

void WriteIndex(const TOptions& options, const std::vector<TEachReport>& reports, TConsole& console)
{
   TFleet fleet = ReadFleetBelow(options.fOutput, console);
   for (const TEachReport& report : reports)
      if (report.fFailure.empty())
         AddUntold(options, report, fleet);
      else
         fleet.fGaps.push_back({report.fCollection, report.fFailure});
   WriteFleetIndex(options.fOutput, std::move(fleet), true);
   WriteDoor(options);
}

std::size_t CountJobs(const TOptions& options)
{
   return options.fJobs > 0 ? static_cast<std::size_t>(options.fJobs)
                            : std::max(1U, std::thread::hardware_concurrency());
}

}  // namespace

EExitCode RunEachCommand(const TOptions& options, TConsole& console,
                         const std::function<int(const TOptions&)>& runOne)
{
   std::vector<TEachReport> reports = ListCollections(options);
   PrepareOutput(options);
   std::vector<TEachReport*> open;
   for (TEachReport& report : reports)
      if (!options.fResume || !IsFinished(options, report))
         open.push_back(&report);

   std::size_t done = 0;
   std::size_t failed = 0;
   const auto run = [&](std::size_t task) {
      return runOne(MakeOptionsOfOne(options, *open[task]));
   };
   const auto onEnd = [&](const TWorkerEnd& end) {
      TEachReport& report = *open[end.fTask];
      if (end.fExitCode != kExitDone || end.fSignal != 0) {
         ++failed;
         report.fFailure = DescribeEnd(end);
         console.Error(fmt::format("{}: {}", report.fCollection, report.fFailure));
      }
      console.Progress(fmt::format("{} of {}: {}", ++done, open.size(), report.fCollection));
   };
   RunInWorkers(open.size(), CountJobs(options), run, onEnd);

   WriteIndex(options, reports, console);
   console.ClearProgress();
   if (failed > 0)
      console.Error(fmt::format("{} of {} collections have no pages", failed, reports.size()));
   console.Note(fmt::format("wrote {}/{}", options.fOutput, kIndexFile));
   return failed > 0 ? kExitSomeFailed : kExitDone;
}
