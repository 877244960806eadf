#include "common/RunFacts.h"

namespace {

constexpr const char* kUnnamed = "Unnamed system";

}  // namespace

std::string TRunFacts::GetName() const
{
   if (!IsComparison())
      return fMachine.empty() ? kUnnamed : fMachine;
   std::string name;
   for (const std::string& system : fComparedSystems)
      name += (name.empty() ? "" : ", ") + system;
   return name;
}
