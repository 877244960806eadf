#pragma once

#include <cstddef>
#include <string_view>

namespace NZANQSX20 {

/// Where the root element begins in an XML document that ScanPlainXML can read: UTF-8 without a
/// document type, nothing but ASCII and comments ahead of the root.
///
/// Missing: npos, for any other document and for one whose root lies behind the text.
std::size_t FindPlainRoot(std::string_view text);

}  // namespace NZANQSX20
