#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// Numbers as the cells of a report have them.

/// The number at the begin of a text, with commas between its thousands or without, and the unit
/// behind it. Missing: nothing where the text does not begin with a number.
struct TQuantity
{
   double fNumber = 0;
   std::string_view fUnit;
};

std::optional<TQuantity> ReadQuantity(std::string_view text);

/// How many bytes a size is: "6,212 MB". Units: of 1024. A number alone counts as it is.
/// Missing: nothing where it is no number, or has a unit that is no size.
std::optional<double> ReadBytes(std::string_view text);

/// "°C" for "Degrees C" and the like; a unit without a short form stays as it is.
std::string_view GetShortUnit(std::string_view unit);

/// A number for readers, with a point and two digits behind it at most: "1,140", "12.06".
std::string MakeNumberText(double number);

/// A size for readers, of three digits or four: "3.64 TiB".
std::string MakeSizeText(double bytes);

/// "1 drive", "2 drives", "3 batteries".
std::string MakeCountText(std::uint64_t count, std::string_view noun);
