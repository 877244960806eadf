#pragma once

#include <vector>

#include "store/TMemoryStore.h"

namespace NZANQSX20 {

/// The listed instances of all classes, in the order in which they were listed.
std::vector<const TStoredInstance*> GetInstancesInOrder(const TMemoryStore& store);

}  // namespace NZANQSX20
