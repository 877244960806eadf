#include "RunLog.h"

#include <filesystem>
#include <system_error>

#include <fmt/format.h>

#include "CommandFailure.h"
#include "Console.h"
#include "Options.h"

using NZANQSX20::TFileLog;

namespace fs = std::filesystem;

namespace {

/// The log begins anew, whatever its file held.
/// Throws: TCommandFailure where that is an input, or a file of a folder that is one.
void KeepInput(const std::string& log, const std::string& input)
{
   std::error_code none;
   const fs::path folder = fs::path(log).parent_path();
   const bool isInput = fs::equivalent(log, input, none) ||
                        (fs::is_regular_file(log, none) &&
                         fs::equivalent(folder.empty() ? "." : folder, input, none));
   if (isInput)
      throw TCommandFailure(kExitRun,
                            fmt::format("{}: the log would replace the input {}", log, input));
}

}  // namespace

TRunLog::TRunLog(const TOptions& options, TConsole& console)
   : fConsole(console), fPath(options.fLogFile)
{
   for (const std::string& input : options.fCollections)
      KeepInput(fPath, input);
   KeepInput(fPath, options.fFindings);
   if (!fPath.empty())
      fFile = std::make_unique<TFileLog>(fPath, options.fLogLevel);
   if (options.fVerbose)
      fTerminal = std::make_unique<TFileLog>(options.fLogLevel);
}

bool TRunLog::IsLevelEnabled(int level) const
{
   // Errors count even where nobody reads them.
   return level == NZANQSX20::kLogError || (fFile && fFile->IsLevelEnabled(level)) ||
          (fTerminal && fTerminal->IsLevelEnabled(level));
}

void TRunLog::Log(int level, const std::string& text)
{
   if (level == NZANQSX20::kLogError)
      fHasErrors = true;
   if (fFile && fFile->IsLevelEnabled(level))
      fFile->Log(level, text);
   if (fTerminal && fTerminal->IsLevelEnabled(level)) {
      fConsole.ClearProgress();
      fTerminal->Log(level, text);
   }
}

void TRunLog::TellWarnings(const std::vector<std::string>& warnings,
                           const std::vector<std::string>& inFull)
{
   if (fHasToldWarnings)
      return;
   fHasToldWarnings = true;
   for (const std::string& warning : inFull)
      fConsole.Warning(warning);
   for (const std::string& warning : warnings)
      Log(NZANQSX20::kLogMissing, warning);
   if (!warnings.empty())
      fConsole.Warning(fmt::format(
         "{} about the input; 'qsxreport check' or -v tells {}",
         warnings.size() == 1 ? "1 warning" : fmt::format("{} warnings", warnings.size()),
         warnings.size() == 1 ? "it" : "them"));
}

void TRunLog::Finish()
{
   if (!fFile)
      return;
   fFile->Flush();
   if (fFile->HasFailed())
      throw TCommandFailure(kExitRun, fmt::format("{}: not all log lines were written", fPath));
}

TOutputDiversion::TOutputDiversion(TRunLog& log)
   : fLog(log), fFormer(std::cout.rdbuf(fPrinted.rdbuf()))
{}

TOutputDiversion::~TOutputDiversion()
{
   std::cout.rdbuf(fFormer);
   for (std::string line; std::getline(fPrinted, line);)
      fLog.Log(NZANQSX20::kLogMissing, line);
}
