#pragma once

#include "TCIMValue.h"
#include "store/TRepository.h"

namespace NZANQSX20 {

/// A stored value as the contract's value. A reference is a path in the repository's namespace,
/// looked up in the store that holds it.
TCIMValue ToValue(const TStoredValue& value, const TRepositoryHandle& repository,
                  const TMemoryStore& store);

/// The value as the declared type has it: an integer takes the declared integer type, a null the
/// declared type, anything else stays as it is. declaration may be null.
TCIMValue ConvertToDeclared(const TCIMValue& value, const TStoredProperty* declaration);

}  // namespace NZANQSX20
