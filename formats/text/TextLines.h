#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// The width of every file of the text format. Units: columns of a terminal.
constexpr std::size_t kLineWidth = 100;

/// A text that can be shown: valid UTF-8 without control characters but line feeds; tabs are
/// blanks.
std::string MakeShownText(std::string_view text);

/// Units: columns of a terminal; the text is a shown one without line feeds.
std::size_t GetWidth(std::string_view text);

/// The width of the longest line, and that of the longest word.
struct TTextWidths
{
   std::size_t fLine = 0;
   std::size_t fWord = 0;
};

TTextWidths MeasureText(std::string_view text);

/// The lines of a shown text, each as wide as told at most: broken at blanks, a longer word where
/// it has to be. Owner: views of the text. Missing: one empty line for an empty text.
std::vector<std::string_view> WrapText(std::string_view text, std::size_t width);

/// Appends the text with blanks behind it up to the width.
void AppendPadded(std::string& line, std::string_view text, std::size_t width);
