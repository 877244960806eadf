#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <boost/shared_ptr.hpp>

#include "QSXExport.h"
#include "readers/TReadCounts.h"
#include "readers/TReadError.h"
#include "readers/TReadLimits.h"
#include "store/TMemoryStore.h"

namespace NZANQSX20 {

/// What was read of one file, in the order of reading.
struct TFileFacts
{
   std::string fName;
   /// "MOF" or "CIM-XML".
   const char* fFormat = "";
   /// "gzip", "Zstandard", or the empty text.
   const char* fCompression = "";
   /// Classes and instances in this file and what it includes.
   std::size_t fClasses = 0;
   std::size_t fInstances = 0;
};

/// One collection, read.
struct TCollection
{
   boost::shared_ptr<TMemoryStore> fStore;
   std::vector<TFileFacts> fFiles;
   TReadCounts fCounts;
   /// Each "file:line:column: warning: ..." or "warning: ...".
   std::vector<std::string> fWarnings;
};

/// Reads files, folders (all files in them, in byte order of names, without subfolders) and "-"
/// (standard input) as one namespace. A file is read once, however often it is named or included.
///
/// Throws: TReadError at the first thing that cannot be read; nothing is left behind.
QSX_API TCollection LoadCollection(const std::vector<std::string>& paths,
                                   const TReadLimits& limits = {});

/// Reads a text as if it were the content of a file of that name. Includes are refused.
QSX_API TCollection LoadCollectionText(const std::string& name, std::string text,
                                       const TReadLimits& limits = {});

}  // namespace NZANQSX20
