#include "CollectionOutput.h"

#include <unistd.h>

#include <system_error>

#include <fmt/format.h>

#include "CommandFailure.h"
#include "Console.h"
#include "StagedFile.h"
#include "writers/TWriteError.h"

TCollectionOutput::TCollectionOutput(const std::string& target,
                                     const NZANQSX20::TCollectionForm& form, bool force,
                                     mode_t mode)
   : fTarget(target), fForm(form)
{
   if (target != "-")
      fFile = std::make_unique<TStagedFile>(target, force, mode);
}

TCollectionOutput::~TCollectionOutput() = default;

void TCollectionOutput::Write(const NZANQSX20::TMemoryStore& store, TConsole& console)
{
   console.Progress("Writing " + (fFile ? fTarget : "standard output"));
   if (fFile)
      fFile->Stage();
   NZANQSX20::TDescriptorBytes bytes(fFile ? fFile->GetDescriptor() : STDOUT_FILENO,
                                     fFile ? fTarget : "standard output");
   try {
      for (const std::string& note : NZANQSX20::WriteCollection(store, fForm, bytes))
         console.Warning(note);
   } catch (const NZANQSX20::TWriteError& failure) {
      throw TCommandFailure(kExitRun, failure.what());
   } catch (const std::system_error& failure) {
      throw TCommandFailure(kExitRun, failure.what());
   }
}

std::string TCollectionOutput::GetWorkPath() const
{
   return fFile ? fFile->GetWorkPath() : "";
}

void TCollectionOutput::Publish(TConsole& console)
{
   if (!fFile)
      return;
   fFile->Publish();
   console.Note("wrote " + fTarget);
}
