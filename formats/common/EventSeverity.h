#pragma once

#include <cstddef>
#include <string_view>

/// How grave a log says a record is, from the least to the most.
enum class ESeverity : unsigned char
{
   kNotTold,  // the log has no severities, or a word that no rule knows
   kInformation,
   kWarning,
   kError
};

constexpr std::size_t kSeverities = 4;

/// The severity that a word tells, letters alike in either case. Nothing is guessed from messages.
ESeverity FindSeverity(std::string_view word);

/// "Error". Missing: empty for kNotTold.
std::string_view GetSeverityWord(ESeverity severity);
