#pragma once

#include <stdexcept>
#include <string>

#include "QSXExport.h"

namespace NZANQSX20 {

/// A form of collection cannot say what the store holds. The message names the class and property,
/// and the form.
class QSX_API TWriteError : public std::runtime_error
{
public:
   using std::runtime_error::runtime_error;
};

}  // namespace NZANQSX20
