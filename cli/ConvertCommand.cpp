#include "ConvertCommand.h"

#include "CollectionOutput.h"
#include "Input.h"
#include "Options.h"
#include "RunLog.h"
#include "StagedFile.h"

EExitCode RunConvertCommand(const TOptions& options, TConsole& console)
{
   TRunLog log(options, console);
   TCollectionOutput output(options.fOutput, options.fForm, options.fForce,
                            TStagedFile::kOrdinaryMode);
   const NZANQSX20::TCollection collection =
      ReadCollections(options, options.fCollections, console);
   log.TellWarnings(collection.fWarnings);
   output.Write(*collection.fStore, console);
   output.Publish(console);
   log.Finish();
   return kExitDone;
}
