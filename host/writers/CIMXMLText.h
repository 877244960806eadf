#pragma once

#include <string>
#include <string_view>

#include "writers/TScalar.h"

namespace NZANQSX20 {

/// Appends the text of an element. A character that XML has no form for becomes a processing
/// instruction.
void AppendXMLText(std::string& xml, std::string_view text);

/// Appends ` NAME="value"`. Throws: TWriteError for a value that XML has no form for.
void AppendXMLAttribute(std::string& xml, const char* name, std::string_view value);

/// Appends one character; half of a surrogate pair and what XML has no form for as "\xD800".
void AppendXMLCharacter(std::string& xml, std::uint64_t character);

/// Appends `<INSTANCENAME ...>...</INSTANCENAME>` for a path, or CLASSNAME for the name of a class.
///
/// Shape: a key that the schema knows as a reference is an instance name inside, where reading it
///        again gives the same path.
void AppendInstanceName(std::string& xml, std::string_view path, const TSchema& schema);

}  // namespace NZANQSX20
