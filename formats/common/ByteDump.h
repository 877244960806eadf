#pragma once

#include <string>

#include "CIMStore.h"

/// Tells an array of bytes as lines of 16, each behind the offset of its first byte, all in
/// hexadecimal. Missing: false, and the text unchanged, where the property is no array of bytes or
/// can't be read.
bool DumpBytes(const boost::shared_ptr<ICIMProperty>& property, std::string& text);
