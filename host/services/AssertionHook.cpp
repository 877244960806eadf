#include <boost/assert.hpp>

#include "QSXExport.h"
#include "TQSXException.h"

// The shared pointer's assertions end here: an empty handle was dereferenced. The library counts on
// the exception where it walks sparse lists of handles.
namespace boost {

QSX_API void assertion_failed(char const*, char const*, char const*, long)
{
   throw NZANQSX20::TQSXException(1);
}

QSX_API void assertion_failed_msg(char const*, char const*, char const*, char const*, long)
{
   throw NZANQSX20::TQSXException(1);
}

}  // namespace boost
