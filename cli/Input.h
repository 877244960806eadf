#pragma once

#include <string>
#include <vector>

#include <boost/shared_ptr.hpp>

#include "ICIMNamespace.h"
#include "Manifest.h"
#include "common/CollectionFacts.h"
#include "readers/CollectionLoader.h"

class TConsole;
class TRunLog;
struct TOptions;

/// Reads files and folders as one namespace into a fresh store.
///
/// Missing: standard input may be asked for again; it is then read a second time from a copy.
/// Throws:  NZANQSX20::TReadError.
NZANQSX20::TCollection ReadCollections(const TOptions& options,
                                       const std::vector<std::string>& paths, TConsole& console);

/// The classes that the library expects and the collection lacks are declared, without instances,
/// unless --strict is given. Gives their names.
std::vector<std::string> AddExpectedClasses(const TOptions& options,
                                            NZANQSX20::TMemoryStore& store);

/// The collections of the command line, ready for a run of the library.
struct TRunInput
{
   boost::shared_ptr<NZANQSX20::ICIMNamespace> fNamespace;
   /// What the formats can be told of the collection.
   TCollectionFacts fFacts;
   std::vector<TInputFile> fFiles;
};

/// Reads the collections of the command line for a run of the library, which is recorded from then
/// on.
///
/// Shape: warnings go to the log, and their number to the user, who is also told where the
///        collection is one for another command.
TRunInput ReadInput(const TOptions& options, TConsole& console, TRunLog& log);
