#include "CollectMachine.h"

#include <exception>

#include "TCollected.h"
#include "subjects/Subjects.h"

namespace NZANQSX20 {

boost::shared_ptr<TMemoryStore> CollectMachine(
   const TMachine& machine, const TCollectorVersion& version,
   const std::function<void(const std::string& subject)>& begin)
{
   TCollected collected;
   collected.Add("ZANSG_QSXProduct")
      .Set("Name", "qsxreport collect")
      .Set("Version", version.fVersion)
      .Set("Build", version.fBuild);
   for (const TSubject& subject : GetSubjects()) {
      if (begin)
         begin(subject.fName);
      try {
         subject.fCollect(machine, collected);
      } catch (const std::exception& failure) {
         collected.AddGap({subject.fName, {}}, "qsxreport", EReason::kFailed, failure.what());
      }
   }
   return collected.Finish();
}

}  // namespace NZANQSX20
