#pragma once

#include <cstddef>
#include <vector>

#include "common/Table.h"
#include "html/HtmlSink.h"

/// How the cells of a column are set.
enum class EColumnLook : unsigned char
{
   kText,
   kNumber,    // every cell with a text is a number, all with the same unit
   kTime,      // every cell with a text is a date, with its time or without
   kLongWords  // a word is too long for any column
};

/// The look of a column in a run of rows.
EColumnLook JudgeColumn(const TTableRows& rows, std::size_t firstRow, std::size_t endRow,
                        std::size_t column);

/// How narrow a column can be. Units: characters. Measured over some rows of the run.
std::size_t MeasureColumn(const TTableRows& rows, std::size_t firstRow, std::size_t endRow,
                          std::size_t column, EColumnLook look, std::string_view label);

/// Writes the class attribute of a look, with a blank before it. Missing: nothing for kText.
void WriteLook(THtmlSink& out, EColumnLook look);

/// Writes the class attribute of a cell: that of its state where it stands out, else of its look.
void WriteCellLook(THtmlSink& out, const TCell& cell, EColumnLook look);

/// Writes the class and the content of a value cell, from "<td" to "</td>", both of them the
/// caller's. isChanged: it differs from the baseline of a comparison.
void WriteValueCell(THtmlSink& out, const TCell& cell, EColumnLook look, bool isChanged);

/// Writes what stands in a cell.
void WriteCellContent(THtmlSink& out, const TCell& cell);
