#pragma once

#include <string>

#include <rapidjson/document.h>

namespace NZANQSX20 {

class TCollected;
class TEntry;

/// Adds the errors that an ATA drive has recorded, each with the commands that led to it.
/// log:  of the drive.
/// told: what smartctl prints of the drive.
void AddDriveErrors(TCollected& collected, const TEntry& log, const std::string& drive,
                    const rapidjson::Value& told);

}  // namespace NZANQSX20
