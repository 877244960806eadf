#include "ReportCommand.h"

#include "Formats.h"
#include "Input.h"
#include "Manifest.h"
#include "Options.h"
#include "PageRun.h"
#include "run/TReport.h"

EExitCode RunReportCommand(const TOptions& options, TConsole& console)
{
   const TContext params = GetRunParameters(options);
   WriteFormats(options, console, [&](TRunLog& log) -> TRunInFormat {
      const TRunInput input = ReadInput(options, console, log);
      return [=, &log](const TFormat& format, TWriterSettings settings) {
         TManifest manifest("report", input.fFiles);
         settings.fCollection = manifest.Attend(input.fFacts);
         const auto run = format.fMakeRun(settings);
         RunFormat(*run, log, [&] {
            TReport report(input.fNamespace, params, settings.fOutputDirectory);
            report.Write(&run->GetWriter(), params);
         });
         if (!settings.fIsOneFile)
            manifest.Write(settings.fOutputDirectory);
      };
   });
   return kExitDone;
}
