#pragma once

#include <string>
#include <string_view>

#include "TStandIns.h"
#include "store/TMemoryStore.h"

namespace NZANQSX20 {

/// The key that a secret stands for. Deliberately slow, some tenths of a second and 64 MiB: whoever
/// guesses secrets pays that for each.
TMaskKey DeriveMaskKey(std::string_view secret);

/// A key that no other run has.
TMaskKey MakeRandomMaskKey();

/// What stays the same in all collections of one machine and what few know: the UUIDs and serial
/// numbers of the system itself. Missing: empty where the collection tells too little.
std::string FindMachineSecret(const TMemoryStore& store);

}  // namespace NZANQSX20
