#pragma once

#include <vector>

#include <boost/shared_ptr.hpp>

#include "store/TSchema.h"

namespace NZANQSX20 {

/// The declarations of all schemas as one: those of the first in their order, then those that only
/// later ones have. Of a class declared more than once the first declaration holds; one that is
/// only somebody's superclass yields to a declaration proper.
boost::shared_ptr<TSchema> MergeDeclarations(const std::vector<const TSchema*>& schemas);

/// What a class declares itself, as a value.
TClassDecl CopyDeclaration(const TStoredClass& storedClass);

}  // namespace NZANQSX20
