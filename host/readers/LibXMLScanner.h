#pragma once

#include <string>

#include "readers/TByteSource.h"
#include "readers/XMLScanner.h"

namespace NZANQSX20 {

/// ScanXML for every document: any encoding that it declares, with or without a document type.
///
/// Shape:  the place of a text is that of its end.
/// Throws: TReadError where the document is not well formed or cannot be read.
void ScanWithLibXML(TByteSource& bytes, const std::string& name, TXMLHandler& handler);

}  // namespace NZANQSX20
