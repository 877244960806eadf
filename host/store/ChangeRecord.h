#pragma once

#include <string>
#include <vector>

#include "QSXExport.h"
#include "store/TMemoryStore.h"

namespace NZANQSX20 {

/// What a run made of a value, or of an instance.
struct TChangeRecord
{
   enum EKind
   {
      kChanged,
      kAdded,
      kRemoved
   };

   EKind fKind = kChanged;
   std::string fClass;
   /// The path of the instance.
   std::string fInstance;
   /// Missing: empty where it is about the instance as a whole.
   std::string fProperty;
   /// As a report shows the values. Missing: empty for no value, and of a whole instance.
   std::string fFrom;
   std::string fTo;
};

/// The changes that the store kept (TMemoryStore::RecordChanges), each value once: from what it was
/// to what it is. In the order of the first change.
/// Missing: what came back to where it was is none, nor is a change of an instance that is gone.
QSX_API std::vector<TChangeRecord> DescribeChanges(const TMemoryStore& store);

}  // namespace NZANQSX20
