#include "MaskCommand.h"

#include "Input.h"
#include "MaskedOutput.h"
#include "Options.h"
#include "RunLog.h"
#include "StagedFile.h"

EExitCode RunMaskCommand(const TOptions& options, TConsole& console)
{
   TRunLog log(options, console);
   TMaskedOutput output(options, options.fOutput, TStagedFile::kOrdinaryMode);
   const NZANQSX20::TCollection collection =
      ReadCollections(options, options.fCollections, console);
   log.TellWarnings(collection.fWarnings);
   output.Write(*collection.fStore, console);
   log.Finish();
   return kExitDone;
}
