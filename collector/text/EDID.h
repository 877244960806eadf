#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace NZANQSX20 {

/// Units: pixels, hertz.
struct TVideoTiming
{
   std::uint32_t fWidth = 0;
   std::uint32_t fHeight = 0;
   std::uint32_t fRate = 0;
   bool fIsInterlaced = false;

   bool operator==(const TVideoTiming& other) const
   {
      return fWidth == other.fWidth && fHeight == other.fHeight && fRate == other.fRate &&
             fIsInterlaced == other.fIsInterlaced;
   }
};

/// What a monitor tells of itself. Missing: empty texts and nothing for what it doesn't tell.
struct TEDID
{
   /// Three letters that the maker registered.
   std::string fManufacturer;
   std::string fName;
   std::string fVersion;
   unsigned fYear = 0;
   /// 0 when only the year is told.
   unsigned fWeek = 0;
   bool fStandby = false;
   bool fSuspend = false;
   bool fActiveOff = false;
   /// Each once.
   std::vector<TVideoTiming> fTimings;
   /// Units: hertz.
   std::optional<std::uint32_t> fMinRate;
   std::optional<std::uint32_t> fMaxRate;
};

/// Reads the first block of a monitor's data. Missing: nothing when it is none or damaged.
std::optional<TEDID> ReadEDID(std::string_view bytes);

}  // namespace NZANQSX20
