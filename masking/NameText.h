#pragma once

#include <string>
#include <string_view>

// What names are made of: small steps that finding them and making their
// stand-ins share. Case is that of ASCII letters.

namespace NZANQSX20 {

std::string Lower(std::string_view text);
std::string Upper(std::string_view text);

/// The text with capitals where the original has them, character by character.
std::string CapitalizeLike(std::string text, std::string_view original);

/// Without the blanks at both ends.
std::string_view TrimName(std::string_view text);

/// "org.example" for "example.org".
std::string ReverseLabels(std::string_view domain);

}  // namespace NZANQSX20
