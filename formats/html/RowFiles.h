#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "common/OutputFile.h"
#include "common/Table.h"

/// The rows of all tables of a run as scripts beside the pages, for what needs more than the page
/// at hand: tables that are too long for it, and the search over all pages.
///
/// Shape: rows/1.js, rows/2.js and so on, each of some kBytesPerFile, hold calls in the order of
/// the
///        tables: qsxRows(page, table, first row, text) and, when a table ends, qsxTable(page,
///        table, file of the page, rows, name, labels). In the text every row ends with U+001E and
///        its cells stand with U+001F between them; rows.ts knows what a control character at the
///        begin of a cell means. Texts have none, they have pictures of them.
/// Owner: files that are written stay, whatever becomes of the run.
/// Throws: TOutputError.
class TRowFiles
{
public:
   /// Units: bytes. What a browser reads without a pause.
   static constexpr std::uint64_t kBytesPerFile = 1'000'000;

   /// The folder of the files, below the output directory.
   static constexpr const char* kFolder = "rows";

   explicit TRowFiles(const std::string& outputDirectory);

   /// Of another file in the folder.
   std::string GetPath(const std::string& name) const { return fFolder + "/" + name; }

   void BeginTable(std::size_t page, unsigned table);

   /// How a cell stands in its table beyond what the cell itself says.
   struct TPlace
   {
      bool fIsHeader = false;
      bool fIsChanged = false;
   };

   void AddCell(const TCell& cell, TPlace place);
   void EndRow();
   /// file: the number of the page's file that has the table.
   void EndTable(std::size_t file, const std::string& name, const std::vector<std::string>& labels);

   /// Number of the file that is written to, from 1. Missing: 0 before the first row.
   unsigned GetFileNumber() const { return fFileNumber; }

   void Close();

private:
   void OpenText();
   void CloseText();
   TOutputFile& GetFile();

   void Write(std::string_view bytes) { fFile->Write(bytes); }

   void WriteText(std::string_view text);

   const std::string fFolder;
   std::optional<TOutputFile> fFile;
   unsigned fFileNumber = 0;
   std::size_t fPage = 0;
   unsigned fTable = 0;
   std::uint64_t fRow = 0;
   bool fIsTextOpen = false;
   bool fIsRowOpen = false;
};

/// Writes a text as the inside of a string literal of a script, in double quotes.
void WriteScriptText(TOutputFile& file, std::string_view text);
