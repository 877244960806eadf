#pragma once

#include <string>

#include "readers/TByteSource.h"
#include "readers/TCollectionBuilder.h"

namespace NZANQSX20 {

/// Reads a CIM-XML document (DSP0201: a declaration or a captured response) into the builder, in
/// memory that does not grow with the document.
///
/// Throws: TReadError at the first thing that is no CIM-XML, and at an ERROR element: a response
///         that holds no data.
void ReadCIMXML(TByteSource& bytes, const std::string& name, TCollectionBuilder& builder);

}  // namespace NZANQSX20
