#pragma once

#include <string>
#include <vector>

#include "QSXExport.h"

namespace NZANQSX20 {

class TMemoryStore;

/// Declares the classes that the report library expects to exist and the collection does not
/// declare, as empty ones: a report that looks one of them up without a test would end the run.
/// To be called behind the last instance: some are expected where others have instances.
///
/// Shape:  the names of those that were added, in the order of the list.
QSX_API std::vector<std::string> DeclareExpectedClasses(TMemoryStore& store);

}  // namespace NZANQSX20
