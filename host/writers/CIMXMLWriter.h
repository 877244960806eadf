#pragma once

#include "store/TMemoryStore.h"
#include "writers/TByteSink.h"

namespace NZANQSX20 {

/// Writes a store as a CIM-XML document (DSP0201, DECLARATION): its classes and its instances, in
/// their order. What is read of it is the same store again.
///
/// Shape:   UTF-8; a byte that is no UTF-8 becomes U+FFFD. A character that XML has no form for is
///          a processing instruction, <?qsx-char 1B?>, which other readers pass over.
/// Throws:  TWriteError for a name that XML has no form for, a qualifier that is a boolean null;
///          what the sink throws.
QSX_API void WriteCIMXML(const TMemoryStore& store, TByteSink& sink);

}  // namespace NZANQSX20
