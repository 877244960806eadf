#pragma once

#include <string>

#include "writer/ReportFrame.h"

/// Joins between the instance sets of a vendor's model: one key text is looked for in another.

/// The text of a key. Missing: a null key is the empty text. Throws: TQSXException where the
/// instance has no such property.
std::string ReadKey(const TInstanceHandle& instance, const std::string& name);

/// Whether part occurs in key, case included. An empty part occurs in every key.
bool KeyContains(const std::string& key, const std::string& part);

/// The first instance whose key contains the part. Missing: an empty handle.
TInstanceHandle FindByKeyPart(const TWriter::TInstances& instances, const std::string& keyName,
                              const std::string& part);
