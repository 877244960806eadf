#pragma once

#include <string>
#include <vector>

#include "common/OutputFile.h"
#include "common/Table.h"

/// A cell as the reader sees it: the text, the untranslated value in brackets, "(!)" behind what
/// needs attention and "(!!)" behind what failed, "=" ahead of what repeats the baseline.
std::string MakeCellText(const TCell& cell);

/// Writes one table as lines.
///
/// Shape:  the first run of rows settles the widths of the columns; texts that are wider go on in
///         the next line. Columns that would be too narrow to read make each row a block of its
///         own, a line per column.
/// Owner:  the file stays the caller's; memory holds a row.
/// Throws: TOutputError.
class TTextTable
{
public:
   TTextTable(TOutputFile& file, const TTableShape& shape) : fFile(file), fShape(shape) {}

   void Write(const TTableRows& rows);
   void End();

private:
   using TRow = std::vector<std::string>;

   static TRow ReadRow(const TTableRows& rows, std::size_t row);
   void SettleWidths(const TTableRows& rows);
   void WriteHeader();
   void WriteLine(const TRow& row);
   void WriteBlock(const TRow& row);

   TOutputFile& fFile;
   const TTableShape fShape;
   bool fIsSettled = false;
   bool fHasBlocks = false;
   /// Units: columns of a terminal.
   std::vector<std::size_t> fWidths;
   TRow fLabels;
};
