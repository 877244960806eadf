#pragma once

#include <string>
#include <vector>

#include "store/TMemoryStore.h"
#include "writers/TByteSink.h"

namespace NZANQSX20 {

/// Writes a store as MOF: the qualifiers it uses, its classes, its instances, in their order. What
/// is read of it is the same store again.
///
/// Shape:   UTF-8; a byte that is no UTF-8 becomes U+FFFD. References that were made from an alias
///          are written by one.
/// Missing: MOF gives a property to a class, not to one instance: one that only instances have is
///          declared by their class. Each sentence that comes back tells the user such a thing.
/// Throws:  TWriteError for what MOF has no form for: a real that is no number, a name that is no
///          MOF name, a qualifier with two types, undeclared values of several types; what the sink
///          throws.
QSX_API std::vector<std::string> WriteMOF(const TMemoryStore& store, TByteSink& sink);

}  // namespace NZANQSX20
