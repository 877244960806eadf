#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace NZANQSX20 {

bool StartsWith(std::string_view text, std::string_view start);
bool EndsWith(std::string_view text, std::string_view end);
bool Contains(std::string_view text, std::string_view part);

/// Without the blanks, line ends and null bytes around it. Owner: a view of the text.
std::string_view Trim(std::string_view text);

/// Owner: views of the text. Missing: an empty text has no parts.
std::vector<std::string_view> Split(std::string_view text, char separator);
/// Without a last empty line.
std::vector<std::string_view> SplitLines(std::string_view text);
/// The words between blanks and tabs, none of them empty.
std::vector<std::string_view> SplitWords(std::string_view text);

/// What stands before and behind the first separator, trimmed. Missing: all of it and an empty
/// text when there is no separator.
std::pair<std::string_view, std::string_view> Cut(std::string_view text, char separator);

/// The whole text as a number, decimal or hexadecimal with "0x". Missing: nothing when it is none
/// or has more than 64 bits.
std::optional<std::uint64_t> ToNumber(std::string_view text);
/// Hexadecimal digits without "0x".
std::optional<std::uint64_t> HexToNumber(std::string_view text);
std::optional<std::int64_t> ToSignedNumber(std::string_view text);

/// The text as UTF-8 that a collection may hold: a byte that is none, and a control byte other
/// than tab and line end, comes out as \xNN.
std::string ToUtf8(std::string_view text);

/// Byte order with runs of digits compared as numbers: "sda2" before "sda10".
bool IsBeforeByNumbers(std::string_view left, std::string_view right);

}  // namespace NZANQSX20
