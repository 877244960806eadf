#pragma once

#include <cstddef>

namespace NZANQSX20 {

/// What became of everything that was read: read = stored + rejected.
struct TReadCounts
{
   std::size_t fClassesRead = 0;
   std::size_t fClassesStored = 0;
   /// Declarations of a class that was declared before; each has its warning.
   std::size_t fClassesRejected = 0;
   /// Classes that no file declares, made from the first instance of each. They are no part of
   /// fClassesRead.
   std::size_t fClassesImplied = 0;
   /// An instance that cannot be stored ends the reading, so none is ever rejected.
   std::size_t fInstancesRead = 0;
   std::size_t fInstancesStored = 0;
};

}  // namespace NZANQSX20
