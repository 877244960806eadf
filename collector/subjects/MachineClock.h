#pragma once

#include <cstdint>
#include <optional>

#include "TCIMDateTime.h"

namespace NZANQSX20 {

class TMachine;

/// Units: seconds, points in time since 1970. Missing: nothing where the machine doesn't tell.
struct TMachineClock
{
   std::optional<std::int64_t> fBoot;
   std::optional<std::int64_t> fUpTime;
   /// When its files were read: of another root, when they were recorded.
   std::optional<std::int64_t> fNow;
};

TMachineClock ReadClock(const TMachine& machine);

TCIMDateTime MakeInterval(std::int64_t seconds);

}  // namespace NZANQSX20
