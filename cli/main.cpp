#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <new>
#include <string>

#include "CatalogueCommand.h"
#include "CheckCommand.h"
#include "CollectCommand.h"
#include "CommandFailure.h"
#include "CompareCommand.h"
#include "Console.h"
#include "ConvertCommand.h"
#include "EachCommand.h"
#include "FleetIndexCommand.h"
#include "HypervisorCommand.h"
#include "MaskCommand.h"
#include "Options.h"
#include "ReportCommand.h"
#include "readers/TReadError.h"

namespace {

int RunAndTell(const TOptions& options, TConsole& console);

EExitCode RunCommand(const TOptions& options, TConsole& console)
{
   switch (options.fCommand) {
      case ECommand::kReport:
         if (!options.fEach.empty())
            return RunEachCommand(options, console, [](const TOptions& one) {
               TConsole messages(one.fQuiet, false);
               return RunAndTell(one, messages);
            });
         return RunReportCommand(options, console);
      case ECommand::kCompare:
         return RunCompareCommand(options, console);
      case ECommand::kHypervisor:
         return RunHypervisorCommand(options, console);
      case ECommand::kCatalogue:
         return RunCatalogueCommand(options, console);
      case ECommand::kCheck:
         return RunCheckCommand(options, console);
      case ECommand::kConvert:
         return RunConvertCommand(options, console);
      case ECommand::kCollect:
         return RunCollectCommand(options, console);
      case ECommand::kMask:
         return RunMaskCommand(options, console);
      case ECommand::kFleetIndex:
         return RunFleetIndexCommand(options, console);
   }
   return kExitUsage;
}

/// Takes the places of standard streams that are closed: an output file would get them, and then
/// what is said on them. Each is opened the wrong way round, so that its use still fails.
void OccupyStandardStreams()
{
   for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
      if (fcntl(stream, F_GETFD) < 0 && errno == EBADF) {
         const int opened = open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
         static_cast<void>(opened);
      }
}

/// Runs it and tells its failure. Every failure has an exit code; none leaves the program
/// otherwise.
int RunAndTell(const TOptions& options, TConsole& console)
{
   try {
      const EExitCode exitCode = RunCommand(options, console);
      errno = 0;
      FlushStandardOutput();
      return exitCode;
   } catch (const TCommandFailure& failure) {
      console.Error(failure.what());
      return failure.GetExitCode();
   } catch (const NZANQSX20::TReadError& failure) {
      console.ErrorInFile(failure.what());
      return kExitInput;
   } catch (const std::bad_alloc&) {
      console.Error("out of memory");
      return kExitRun;
   } catch (const std::exception& failure) {
      console.Error(failure.what());
      return kExitRun;
   }
}

}  // namespace

int main(int argc, char** argv)
{
   OccupyStandardStreams();
   // A file that reaches the size limit is to fail as a full disk does, with a message.
   std::signal(SIGXFSZ, SIG_IGN);
   try {
      const std::optional<TOptions> options = ParseOptions(argc, argv);
      if (!options) {
         errno = 0;
         FlushStandardOutput();
         return kExitDone;
      }
      TConsole console(options->fQuiet, !options->fNoColor);
      return RunAndTell(*options, console);
   } catch (const TCommandFailure& failure) {
      TConsole(false, true).Error(failure.what());
      return failure.GetExitCode();
   }
}
