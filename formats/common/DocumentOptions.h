#pragma once

#include <string>
#include <vector>

#include "common/CollectionFacts.h"

/// What the caller of a writer of documents knows and the collection doesn't.
struct TDocumentOptions
{
   /// Where fixed data files lie.
   std::string fBaseDirectory;
   /// The collection's file, for the reader. Missing: empty.
   std::string fSource;
   /// When the documents are written, for the reader. Missing: empty.
   std::string fWritten;
   /// The program and its version. Missing: empty.
   std::string fProgram;
   /// In a comparison: the collection's file of each system, the base first. Missing: empty.
   std::vector<std::string> fComparedFiles;
   /// All documents go into one file.
   bool fIsOneFile = false;
   TCollectionFacts fCollection = {};
};
