#pragma once

#include <string>
#include <vector>

#include "common/CollectionFacts.h"

/// What the caller of the HTML writer knows and the collection doesn't.
struct THtmlOptions
{
   /// Where fixed data files lie.
   std::string fBaseDirectory;
   /// The collection's file, for the reader. Missing: empty.
   std::string fSource;
   /// When the pages are written, for the reader. Missing: empty, and the pages of two runs are
   /// equal.
   std::string fWritten;
   /// The program and its version. Missing: empty.
   std::string fProgram;
   /// In a comparison: the collection's file of each system, the base first. Missing: empty.
   std::vector<std::string> fComparedFiles;
   TCollectionFacts fCollection = {};
};
