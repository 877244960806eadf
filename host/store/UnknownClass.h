#pragma once

#include <string>

#include "QSXExport.h"

namespace NZANQSX20 {

/// The class that was asked for last on this thread, of any store, where that store doesn't hold
/// it. A report that goes on with the empty handle ends the run with status 1, and this names what
/// it missed. Missing: the empty text where the class was there.
QSX_API const std::string& GetUnknownClass();

}  // namespace NZANQSX20
