#pragma once

#include <sys/types.h>

#include <memory>
#include <string>

#include "writers/CollectionForm.h"

class TConsole;
class TStagedFile;

/// The collection that a command writes: a file, whole or not at all, or standard output.
///
/// Throws: TCommandFailure, exit code 4, also for a store that the form has no words for.
class TCollectionOutput
{
public:
   /// target is "-" for standard output. Looks at it and changes nothing.
   TCollectionOutput(const std::string& target, const NZANQSX20::TCollectionForm& form, bool force,
                     mode_t mode);
   ~TCollectionOutput();

   /// Writes the whole collection where nobody sees it so far, or to standard output. What the form
   /// says in another way comes as warnings.
   void Write(const NZANQSX20::TMemoryStore& store, TConsole& console);

   /// What was written, for who reads it back. Missing: empty for standard output.
   std::string GetWorkPath() const;

   const std::string& GetTarget() const { return fTarget; }

   /// Moves the file into its place.
   void Publish(TConsole& console);

private:
   std::string fTarget;
   NZANQSX20::TCollectionForm fForm;
   std::unique_ptr<TStagedFile> fFile;
};
