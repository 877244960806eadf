#pragma once

#include <string>

#include "store/TStoredInstance.h"
#include "store/TStoredValue.h"

namespace NZANQSX20 {

/// Appends what follows the class name in the path of an instance: `.Key1="text",Key2=5`, or `.@=N`
/// for one without keys.
///
/// Keys that are references to instances nest the paths of those. Where they lead in a circle, too
/// deep or to too many, the inner path is the `.@=N` form, so that a path is always finite.
void AppendKeys(std::string& path, const TStoredInstance& instance);

/// Appends the text of a stored value as TCIMValue::ToString(10) gives it, without making one.
void AppendText(std::string& text, const TStoredValue& value);

}  // namespace NZANQSX20
