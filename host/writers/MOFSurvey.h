#pragma once

#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "store/TMemoryStore.h"

namespace NZANQSX20 {

/// What has to be known of all instances before the first class is written as MOF.
struct TMOFSurvey
{
   /// The instances that references were made from: they need an alias.
   std::unordered_set<const TStoredInstance*> fAliased;
   /// Properties that instances have and their class does not declare, by the class that is to
   /// declare them in MOF.
   std::unordered_map<const TStoredClass*, std::vector<TPropertyDecl>> fAdded;
};

/// Throws: TWriteError where one undeclared name stands for values of several types.
TMOFSurvey MakeMOFSurvey(const std::vector<const TStoredInstance*>& instances);

}  // namespace NZANQSX20
