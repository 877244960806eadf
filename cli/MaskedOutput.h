#pragma once

#include <sys/types.h>

#include <memory>
#include <string>

#include "CollectionOutput.h"
#include "TMask.h"

class TConsole;
class TStagedFile;
struct TOptions;

/// The masked collection that a command writes, and its map where one is asked for.
///
/// Throws: TCommandFailure.
class TMaskedOutput
{
public:
   /// Looks at the files that will be written, and reads the terms; changes nothing.
   TMaskedOutput(const TOptions& options, const std::string& target, mode_t mode);
   ~TMaskedOutput();

   /// Masks the store, writes it, reads it back and lets the file appear only if no original is
   /// left in it.
   void Write(NZANQSX20::TMemoryStore& store, TConsole& console);

private:
   NZANQSX20::TMaskKey MakeKey(const NZANQSX20::TMemoryStore& store, TConsole& console) const;
   void Check(const NZANQSX20::TMask& mask) const;
   void WriteMap(const NZANQSX20::TMask& mask);

   const TOptions& fOptions;
   std::vector<std::string> fTerms;
   TCollectionOutput fOutput;
   std::unique_ptr<TStagedFile> fMap;
};
