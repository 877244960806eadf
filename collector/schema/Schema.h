#pragma once

#include <string>

namespace NZANQSX20 {

/// The declarations of all schema/*.mof, one after the other.
std::string GetSchemaText();

}  // namespace NZANQSX20
