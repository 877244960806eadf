#pragma once

#include <string>

#include "QSXExport.h"

namespace NZANQSX20 {

/// The class that was asked for last on this thread, of any store, where that store doesn't hold
/// it. After a run that a class ended that reports take for granted, this names it.
/// Missing: the empty text where the class was there.
QSX_API const std::string& GetUnknownClass();

}  // namespace NZANQSX20
