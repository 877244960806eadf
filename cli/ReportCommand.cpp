#include "ReportCommand.h"

#include "Formats.h"
#include "Input.h"
#include "Options.h"
#include "PageRun.h"
#include "run/TReport.h"

EExitCode RunReportCommand(const TOptions& options, TConsole& console)
{
   const TContext params = GetRunParameters(options);
   WriteFormats(options, console, [&](TRunLog& log) -> TRunInFormat {
      const boost::shared_ptr<ICIMNamespace> cimNamespace = ReadInput(options, console, log);
      return [=, &log](const TFormat& format, const TWriterSettings& settings) {
         const auto run = format.fMakeRun(settings);
         RunFormat(*run, log, [&] {
            TReport report(cimNamespace, params, settings.fOutputDirectory);
            report.Write(&run->GetWriter(), params);
         });
      };
   });
   return kExitDone;
}
