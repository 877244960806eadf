#pragma once

#include <string_view>

#include "MaskKind.h"

namespace NZANQSX20 {

/// Whether the value of an identifying property names nobody: "To be filled by O.E.M." as a serial
/// number, "root" as a user. Case is ignored.
bool IdentifiesNobody(EMaskKind kind, std::string_view value);

}  // namespace NZANQSX20
