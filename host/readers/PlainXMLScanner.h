#pragma once

#include <string>

#include "readers/TByteWindow.h"
#include "readers/XMLScanner.h"

namespace NZANQSX20 {

/// ScanXML for a document of which FindPlainRoot finds the root, in the window itself: what the
/// handler is told are views of the bytes as they were read.
///
/// Throws: TReadError where the document is not well formed, cannot be read, or has markup that is
///         longer than 64 MiB or has more than 256 attributes.
void ScanPlainXML(TByteWindow& window, const std::string& name, TXMLHandler& handler);

}  // namespace NZANQSX20
