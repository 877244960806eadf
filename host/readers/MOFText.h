#pragma once

#include <string_view>

#include "readers/TObjectDraft.h"
#include "readers/TSourceText.h"

namespace NZANQSX20 {

/// The content of one or more MOF literals side by side, quotes and comments between them left out,
/// escapes done. The literals are well formed.
///
/// Owner:  a view of the literal itself where it stands alone and holds no escape, else of a copy
///         in the draft.
/// Throws: TReadError where \x escapes name half a surrogate pair.
std::string_view ReadMOFText(std::string_view literals, const TSource& source, std::size_t mark,
                             TObjectDraft& draft);

}  // namespace NZANQSX20
