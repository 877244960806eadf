#pragma once

#include <string>
#include <vector>

/// One collection of several, as the index above their pages shows it.
struct TEachReport
{
   /// The file or folder as it is called in the folder of the collections.
   std::string fCollection;
   /// The folder of its pages, beside the index.
   std::string fFolder;
   /// The page in there that a reader begins with.
   std::string fEntry;
   /// Why there are no pages. Missing: empty where there are.
   std::string fFailure;
};

/// The index page: failures first, then all by name, with what the manifest of each says.
std::string MakeEachIndex(const std::string& outputFolder, const std::vector<TEachReport>& reports);
