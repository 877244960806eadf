#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "MaskKind.h"
#include "store/TStoredClass.h"

namespace NZANQSX20 {

/// What the values of a property identify, by the table in MaskRules.cpp.
EMaskKind FindMaskKind(const TStoredClass& storedClass, const std::string& property);

/// The same for a class of which only the name is known.
EMaskKind FindMaskKind(const std::string& className, const std::string& property);

/// FindMaskKind by class and slot, each worked out once.
class TMaskRules
{
public:
   EMaskKind Find(const TStoredClass& storedClass, TSlot slot);

private:
   std::unordered_map<const TStoredClass*, std::vector<int>> fKinds;
};

}  // namespace NZANQSX20
