#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>

#include "QSXExport.h"

namespace NZANQSX20 {

/// Where something stands in an input file. Units: both count from 1, the column in characters; 0
/// is a file as a whole.
struct TPlace
{
   std::size_t fLine = 0;
   std::size_t fColumn = 0;
};

/// An input that cannot be read. what() is "file:line:column: expected ..., found ...", or
/// "file: ..." for a file as a whole.
class QSX_API TReadError : public std::runtime_error
{
public:
   TReadError(const std::string& file, TPlace place, const std::string& text);

   const std::string& GetFile() const { return fFile; }

   TPlace GetPlace() const { return fPlace; }

private:
   std::string fFile;
   TPlace fPlace;
};

/// "file:line:column: text", or "file: text" where the place is a file as a whole.
QSX_API std::string FormatPlaced(const std::string& file, TPlace place, const std::string& text);

/// The first characters of a text as a message may show them: quoted, cut to some 40 characters,
/// control characters as \xNN.
QSX_API std::string QuoteForMessage(std::string_view text);

}  // namespace NZANQSX20
