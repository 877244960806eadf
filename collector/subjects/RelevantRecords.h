#pragma once

#include <string>

namespace NZANQSX20 {

class TCollected;

/// Puts a fact that the reader should see first on the overview: something the machine itself
/// counts as gone wrong. log names who counts, id is unique within it.
void AddRelevantRecord(TCollected& collected, const std::string& log, const std::string& id,
                       const std::string& message);

}  // namespace NZANQSX20
