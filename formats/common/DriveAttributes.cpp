#include "common/DriveAttributes.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <system_error>

#include "common/Table.h"

namespace {

// Drives count down from one of these.
constexpr unsigned kScales[] = {100, 200, 255};

bool ReadNumber(std::string_view text, unsigned& number)
{
   const char* const end = text.data() + text.size();
   const auto result = std::from_chars(text.data(), end, number);
   return result.ec == std::errc() && result.ptr == end && number <= kScales[2];
}

/// How far the value lies above the threshold. Units: shares of the scale.
double GetMargin(const TDriveAttribute& attribute)
{
   return (static_cast<double>(attribute.fValue) - static_cast<double>(attribute.fThreshold)) /
          static_cast<double>(attribute.GetScale());
}

}  // namespace

bool IsCloser(const TDriveAttribute& a, const TDriveAttribute& b)
{
   return GetMargin(a) < GetMargin(b);
}

bool TDriveAttribute::SetValues(std::string_view value, std::string_view worst,
                                std::string_view threshold)
{
   return ReadNumber(value, fValue) && ReadNumber(worst, fWorst) &&
          ReadNumber(threshold, fThreshold);
}

unsigned TDriveAttribute::GetScale() const
{
   const unsigned most = std::max({fValue, fWorst, fThreshold});
   return *std::find_if(std::begin(kScales), std::end(kScales) - 1,
                        [most](unsigned scale) { return most <= scale; });
}

EState TDriveAttribute::GetState() const
{
   if (fThreshold == 0)
      return EState::kNone;
   if (fValue <= fThreshold)
      return EState::kFailed;
   return fWorst <= fThreshold ? EState::kAttention : EState::kNone;
}

std::optional<TDriveAttribute> ReadDriveAttribute(const TTableRows& rows, std::size_t row,
                                                  const TDriveAttributeColumns& columns)
{
   const std::size_t last =
      std::max({columns.fName, columns.fValue, columns.fWorst, columns.fThreshold});
   if (last >= rows.GetCellCount(row))
      return std::nullopt;
   TDriveAttribute attribute;
   if (!attribute.SetValues(rows.GetCell(row, columns.fValue).fText,
                            rows.GetCell(row, columns.fWorst).fText,
                            rows.GetCell(row, columns.fThreshold).fText))
      return std::nullopt;
   attribute.fName = rows.GetCell(row, columns.fName).fText;
   return attribute;
}

void TClosestAttributes::Add(const TDriveAttribute& attribute)
{
   if (attribute.fThreshold == 0)
      return;
   ++fJudgedCount;
   fFailedCount += attribute.GetState() == EState::kFailed;
   fClosest.insert(std::upper_bound(fClosest.begin(), fClosest.end(), attribute, IsCloser),
                   attribute);
   if (fClosest.size() > kMost)
      fClosest.pop_back();
}
