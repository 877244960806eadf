#include "subjects/Subjects.h"

namespace NZANQSX20 {

const std::vector<TSubject>& GetSubjects()
{
   static const std::vector<TSubject> subjects = {
      // System
      {"Computer system", CollectComputerSystem},
      {"Kernel modules", CollectKernelModules},
   };
   return subjects;
}

}  // namespace NZANQSX20
