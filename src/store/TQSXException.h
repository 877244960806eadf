#pragma once

#include <exception>
#include <string>

#include "QSXExport.h"

namespace NZANQSX20 {

/// A numeric outcome of the store. 15 means that the thing looked for does not exist; no other
/// number has a meaning to the report library.
struct QSX_API TQSXStatusCode
{
   int fStatusCode = 0;

   /// The host's text for the status. Owner: valid for the life of the program.
   const std::string& TranslateStatusCode() const;
};

/// The class, property or qualifier that was looked for is not there.
constexpr int kStatusNotFound = 15;

/// A value was asked for as something that it cannot be turned into.
constexpr int kStatusTypeMismatch = 13;

/// The one failure that crosses the store interfaces. A value: copied when caught and when thrown
/// on.
class QSX_API TQSXException : public std::exception
{
public:
   explicit TQSXException(int statusCode) : fStatusCode{statusCode} {}

   explicit TQSXException(TQSXStatusCode statusCode) : fStatusCode(statusCode) {}

   /// The text of the status, as TranslateStatusCode() gives it.
   const char* what() const noexcept override;

   TQSXStatusCode fStatusCode;
};

}  // namespace NZANQSX20
