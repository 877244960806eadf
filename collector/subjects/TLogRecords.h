#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "TCIMDateTime.h"

namespace NZANQSX20 {

class TCollected;

/// A line of a log, as far as it tells.
struct TLogLine
{
   /// Units: microseconds since 1970. Missing: 0, the line stands with the one before it.
   std::uint64_t fMicroseconds = 0;
   std::optional<TCIMDateTime> fTime;
   std::string_view fSource;
   std::string_view fMessage;
   /// 0 emergency to 7 debug, as all logs of the system count.
   std::optional<std::uint64_t> fPriority;
};

/// Adds the lines of one log, the oldest first, as records.
///
/// A record's ID is its time, raised where two fall together: a record has the same one in every
/// collection that holds it, whatever has been rotated away before it.
class TLogRecords
{
public:
   TLogRecords(TCollected& collected, std::string logName, std::string node);

   void Add(const TLogLine& line);

private:
   TCollected& fCollected;
   std::string fLogName;
   std::string fNode;
   std::uint64_t fLastID = 0;
};

}  // namespace NZANQSX20
