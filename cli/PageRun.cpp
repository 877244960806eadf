#include "PageRun.h"

#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <new>
#include <optional>
#include <string_view>

#include <fmt/chrono.h>
#include <fmt/format.h>

#include "CommandFailure.h"
#include "Console.h"
#include "InputNames.h"
#include "Options.h"
#include "OutputFolder.h"
#include "RunLog.h"
#include "TQSXException.h"
#include "services/TCoreLogger.h"
#include "store/UnknownClass.h"

using NZANQSX20::TQSXException;

namespace {

std::string DescribeFailure(const TQSXException& failure)
{
   const std::string& unknown = NZANQSX20::GetUnknownClass();
   return fmt::format("the run failed: {} (status {}{})", failure.what(),
                      failure.fStatusCode.fStatusCode,
                      unknown.empty() ? "" : "; asked for last: class " + unknown + ", not there");
}

/// "a.mof, b.mof"
std::string Join(const std::vector<std::string>& names)
{
   std::string text;
   for (const std::string& name : names)
      text += (text.empty() ? "" : ", ") + name;
   return text;
}

/// Hands every core log line, of all levels, to the run.
class TRunListener : public NZANQSX20::TLogger
{
public:
   explicit TRunListener(IFormatRun& run) : fRun(run) {}

   bool IsLevelEnabled(int /*level*/) const override { return true; }

   void Log(int level, const std::string& text) override { fRun.OnLogLine(level, text); }

private:
   IFormatRun& fRun;
};

bool IsStandardOutput(const TOptions& options)
{
   return options.fOutput == "-";
}

/// Where the run is staged. What goes to standard output is staged, too: it comes whole or not at
/// all.
std::string GetTarget(const TOptions& options)
{
   if (!IsStandardOutput(options))
      return options.fOutput;
   return std::filesystem::temp_directory_path() / fmt::format("qsxreport-{}", getpid());
}

/// One run of the library in one format. Throws: TCommandFailure.
class TFormatRunner
{
public:
   TFormatRunner(const TOptions& options, TConsole& console, TOutputFolder& folder)
      : fOptions(options), fConsole(console), fFolder(folder)
   {}

   void Run(const TFormatChoice& choice, const TRunInFormat& runInFormat)
   {
      TWriterSettings settings;
      settings.fOutputDirectory = fFolder.GetWorkFolder(GetSubfolder(choice));
      settings.fFormatName = choice.fName;
      settings.fIsOneFile = IsStandardOutput(fOptions);
      settings.fBaseDirectory = fOptions.fBaseDirectory;
      const std::vector<std::string> inputs = NameInputs(fOptions.fCollections);
      settings.fSource = Join(inputs);
      if (fOptions.fCommand == ECommand::kCompare)
         settings.fComparedFiles = inputs;
      settings.fWritten = DescribeTime();
      settings.fProgram = std::string("qsxreport ") + QSX_VERSION;
      settings.fOnPage = [this](const std::string& page) { fConsole.Progress("Writing " + page); };
      try {
         runInFormat(*choice.fFormat, settings);
      } catch (const TQSXException& failure) {
         throw TCommandFailure(kExitRun, fFolder.NameTarget(DescribeFailure(failure)));
      } catch (const std::bad_alloc&) {
         throw TCommandFailure(kExitRun, "out of memory");
      } catch (const std::exception& failure) {
         throw TCommandFailure(kExitRun, fFolder.NameTarget(failure.what()));
      }
   }

   /// Several formats have a folder each.
   std::string GetSubfolder(const TFormatChoice& choice) const
   {
      return fOptions.fFormats.size() > 1 ? choice.fFormat->fName : "";
   }

private:
   const TOptions& fOptions;
   TConsole& fConsole;
   TOutputFolder& fFolder;
};

void PrintFile(const std::string& path)
{
   std::ifstream file(path, std::ios::binary);
   errno = 0;
   std::cout << file.rdbuf();
   FlushStandardOutput();
}

/// The only format of a run for standard output.
void Print(const TOptions& options, TOutputFolder& folder)
{
   PrintFile(folder.GetWorkFolder("") + '/' + options.fFormats.front().fFormat->fOneFile);
}

/// Puts the files that outlive a failed run into the target.
void KeepFiles(const TOptions& options, const TFormatRunner& runner, TOutputFolder& folder)
{
   for (const TFormatChoice& choice : options.fFormats) {
      const std::string subfolder = runner.GetSubfolder(choice);
      const char* name = choice.fFormat->fKeptFile;
      if (name == nullptr || !folder.HasFile(subfolder, name))
         continue;
      if (IsStandardOutput(options))
         Print(options, folder);
      else
         folder.PublishFile(subfolder, name);
   }
}

std::vector<std::string> GetInputs(const TOptions& options)
{
   std::vector<std::string> inputs = options.fCollections;
   inputs.push_back(options.fFindings);
   inputs.push_back(options.fLogFile);
   return inputs;
}

void Publish(const TOptions& options, TOutputFolder& folder)
{
   if (IsStandardOutput(options))
      Print(options, folder);
   else
      folder.Publish();
}

void TellEntry(const TOptions& options, const TFormatRunner& runner, TConsole& console)
{
   for (const TFormatChoice& choice : options.fFormats) {
      const std::string subfolder = runner.GetSubfolder(choice);
      console.Note(fmt::format("wrote {}/{}{}{}", options.fOutput, subfolder,
                               subfolder.empty() ? "" : "/", choice.fFormat->fEntryFile));
   }
}

}  // namespace

std::string DescribeTime()
{
   const char* epoch = std::getenv("SOURCE_DATE_EPOCH");
   const std::string_view text = epoch != nullptr ? epoch : "";
   std::time_t time = 0;
   const auto read = std::from_chars(text.data(), text.data() + text.size(), time);
   std::tm parts = {};
   if (text.empty() || read.ec != std::errc() || read.ptr != text.data() + text.size() ||
       gmtime_r(&time, &parts) == nullptr)
      return "";
   return fmt::format("{:%Y-%m-%d %H:%M} UTC", parts);
}

void WriteFormats(const TOptions& options, TConsole& console,
                  const std::function<TRunInFormat(TRunLog& log)>& read)
{
   TRunLog log(options, console);
   TOutputFolder folder(GetTarget(options), options.fForce, GetInputs(options));
   TFormatRunner runner(options, console, folder);
   try {
      for (const TFormatChoice& choice : options.fFormats) {
         const TRunInFormat runInFormat = read(log);
         if (!folder.IsStaged())
            folder.Stage();
         runner.Run(choice, runInFormat);
      }
      Publish(options, folder);
   } catch (const TCommandFailure&) {
      if (folder.IsStaged())
         KeepFiles(options, runner, folder);
      throw;
   }
   log.Finish();
   if (log.HasErrors())
      console.Warning("some results are missing or unsorted; -v tells which");
   if (!IsStandardOutput(options))
      TellEntry(options, runner, console);
}

void RunFormat(IFormatRun& run, TRunLog& log, const std::function<void()>& write)
{
   try {
      const TOutputDiversion diversion(log);
      TRunListener listener(run);
      std::optional<NZANQSX20::TLogAttachment> listening;
      if (run.WantsLogLines())
         listening.emplace(listener);
      const NZANQSX20::TLogAttachment logging(log);
      write();
   } catch (const std::exception& failure) {
      run.Fail(failure);
      throw;
   }
   run.Finish();
}
