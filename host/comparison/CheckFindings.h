#pragma once

#include <string>
#include <vector>

#include "store/TMemoryStore.h"

namespace NZANQSX20 {

/// What is wrong with one finding of a findings file.
struct TBadFinding
{
   const TStoredInstance* fFinding;
   /// A sentence that names the finding and what it names.
   std::string fReason;
};

/// The findings that name an instance, a class, a property or a namespace that is not there, in
/// their order.
std::vector<TBadFinding> CheckFindings(TMemoryStore& findings,
                                       const std::vector<TMemoryStore*>& stores,
                                       const TSchema& merged);

}  // namespace NZANQSX20
