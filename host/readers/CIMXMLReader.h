#pragma once

#include <string>

#include "readers/TByteSource.h"
#include "readers/TCollectionBuilder.h"

namespace NZANQSX20 {

/// Stands in a text for a character that XML 1.0 has no form for: `<?qsx-char 1B?>`, the number in
/// hexadecimal.
constexpr const char* kCharacterInstruction = "qsx-char";

/// Reads a CIM-XML document (DSP0201: a declaration or a captured response) into the builder, in
/// memory that does not grow with the document.
///
/// Throws: TReadError at the first thing that is no CIM-XML, and at an ERROR element: a response
///         that holds no data.
void ReadCIMXML(TByteSource& bytes, const std::string& name, TCollectionBuilder& builder);

}  // namespace NZANQSX20
