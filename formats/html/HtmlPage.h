#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "common/StateWords.h"
#include "html/PageDifferences.h"

/// A run of bytes in the spool of a run.
struct TSpan
{
   std::uint64_t fOffset = 0;
   std::uint64_t fLength = 0;
};

/// A title in the list of tables of its page.
struct THtmlTableEntry
{
   std::string fTitle;
   std::string fAnchor;
   std::size_t fFile = 0;
   /// Of the tables under the title, without their sub-tables.
   std::uint64_t fRows = 0;
};

/// One file of a page. A page of too many tables for one file goes on in further ones.
struct THtmlFile
{
   std::vector<TSpan> fBody;
   /// The first table in the file, for the list of files. Missing: empty without a table.
   std::string fFirstTitle;
   /// The number that the first table in the file has or would have.
   unsigned fFirstTable = 1;
};

/// What is kept of a page until the end of the run; its body lies in the spool.
struct THtmlPage
{
   /// In the order of pages, from 0.
   std::size_t fNumber = 0;
   std::string fLinkName;
   std::string fFileStem;
   std::string fTitle;
   std::string fLinkText;
   std::string fLinkTarget;
   std::vector<THtmlFile> fFiles = std::vector<THtmlFile>(1);
   std::vector<THtmlTableEntry> fTables;
   unsigned fTableCount = 0;
   std::uint64_t fRows = 0;
   /// The most urgent state that a finding of the page tells. Missing: kNone.
   EState fState = EState::kNone;
   /// In a comparison.
   TPageDifferences fDifferences;

   /// The file in which a table begins. Units: tables count from 1.
   std::size_t FindFile(unsigned table) const
   {
      std::size_t file = fFiles.size() - 1;
      while (file > 0 && fFiles[file].fFirstTable > table)
         --file;
      return file;
   }

   /// Files are counted from 0.
   std::string GetFileName(std::size_t file) const
   {
      const std::string part = file == 0 ? "" : "~" + std::to_string(file + 1);
      return fFileStem + part + ".html";
   }
};
