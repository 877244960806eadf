#pragma once

#include <string>
#include <vector>

#include <boost/function.hpp>

#include "CIMStore.h"
#include "writer/TTableGrid.h"

/// What tells one raw-data table from another.
struct TRawDataTable
{
   /// The files are <stem>0.txt, <stem>1.txt and so on.
   std::string fFileStem;
   std::string fCommandTitle;
   std::string fResultTitle;
};

/// Gives the whole markup of a command cell; called once per instance, ahead of its file.
using TCommandCell = boost::function<std::string(const boost::shared_ptr<ICIMInstance>&)>;

/// Writes the output of each command ("RawResults", one element a line) to a text file of its own
/// and gives the table that links to them.
///
/// Shape:   a header row, then per instance the command cell and a link to the bare file name.
/// Missing: an instance without lines gets an empty file and a link to it.
/// Throws:  TQSXException with status 27 where the file may not be written, 11 where it can't be
///          opened or written to its end; what reading an instance throws. The files of the
///          instances ahead stay.
TTableGrid WriteRawDataFiles(const std::string& outputDirectory, const TRawDataTable& table,
                             const std::vector<boost::shared_ptr<ICIMInstance>>& instances,
                             const TCommandCell& commandCell);

/// A text in the markup of a command cell. The text is not encoded: it is the writer that makes a
/// cell safe for its format.
std::string MakeCourierCell(const std::string& text);
