#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "common/OutputFile.h"
#include "common/Table.h"

/// All rows of a table that is too long for its page as a text file, for readers without scripts
/// and for other programs.
///
/// Shape: a line per row, its cells with tabs between them; a line of labels first, where there are
///        some. UTF-8 with a byte order mark, as browsers guess otherwise. A line end within a cell
///        is U+21B5, a tab a blank; a second text stands behind its text in square brackets.
/// Owner: kept in memory until Open, which few tables reach.
/// Throws: TOutputError.
class TRowText
{
public:
   explicit TRowText(const std::vector<std::string>& labels);

   void AddCell(const TCell& cell);
   void EndRow();

   /// Writes what there is, and what follows, to that file.
   void Open(const std::string& path);

   bool IsOpen() const { return fFile.has_value(); }

   /// Units: bytes.
   std::uint64_t Close();

   void Write(std::string_view bytes)
   {
      if (fFile)
         fFile->Write(bytes);
      else
         fBuffer.append(bytes);
   }

private:
   void WriteText(std::string_view text);

   std::string fBuffer;
   std::optional<TOutputFile> fFile;
   bool fIsRowOpen = false;
};

/// Writes one text as a file, with its line ends and tabs. Units of the result: bytes.
std::uint64_t WriteTextFile(const std::string& path, std::string_view text);
