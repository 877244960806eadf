#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "common/StateWords.h"

class TTableRows;

/// Where the columns stand in a table of the attributes by which a drive judges itself.
struct TDriveAttributeColumns
{
   std::size_t fName = 0;
   std::size_t fValue = 0;
   std::size_t fWorst = 0;
   std::size_t fThreshold = 0;
};

/// One attribute. Units: the drive's own, the more the better, to 100, 200 or 255 at most.
struct TDriveAttribute
{
   std::string fName;
   unsigned fValue = 0;
   unsigned fWorst = 0;
   /// Missing: 0 where the attribute has no threshold.
   unsigned fThreshold = 0;

   /// Missing: false where one of them is no number of the scale.
   bool SetValues(std::string_view value, std::string_view worst, std::string_view threshold);

   /// The end of the scale that the attribute seems to use.
   unsigned GetScale() const;

   /// Failed at or below the threshold, attention where it has been there. Missing: kNone without
   /// a threshold, and where all is well.
   EState GetState() const;
};

/// Whether a is closer to its threshold than b, on their scales; failed ones are the closest.
bool IsCloser(const TDriveAttribute& a, const TDriveAttribute& b);

/// Missing: nothing where one of the three cells holds no number of the scale.
std::optional<TDriveAttribute> ReadDriveAttribute(const TTableRows& rows, std::size_t row,
                                                  const TDriveAttributeColumns& columns);

/// The attributes of a table that are closest to their thresholds, on their scales.
class TClosestAttributes
{
public:
   static constexpr std::size_t kMost = 8;

   void Add(const TDriveAttribute& attribute);

   /// Closest first; those that are equally close in the order of the table.
   const std::vector<TDriveAttribute>& Get() const { return fClosest; }

   std::uint64_t GetFailedCount() const { return fFailedCount; }

   /// Those with a threshold.
   std::uint64_t GetJudgedCount() const { return fJudgedCount; }

private:
   std::vector<TDriveAttribute> fClosest;
   std::uint64_t fFailedCount = 0;
   std::uint64_t fJudgedCount = 0;
};
