#include "common/RunFacts.h"

namespace {

/// More names than these make no title.
constexpr std::size_t kMostNames = 3;
constexpr const char* kUnnamed = "Unnamed system";

}  // namespace

std::string TRunFacts::GetName() const
{
   if (!IsComparison())
      return fMachine.empty() ? kUnnamed : fMachine;
   if (fComparedSystems.size() > kMostNames)
      return "Comparison of " + std::to_string(fComparedSystems.size()) + " systems";
   std::string name;
   for (const TComparedSystem& system : fComparedSystems)
      name += (name.empty() ? "" : ", ") + system.fLabel;
   return name;
}
