#pragma once

#include <string_view>

/// What a cell says of a thing, from the least to the most urgent.
enum class EState : unsigned char
{
   kNone,  // the cell tells no state, or in words that no rule knows
   kOk,
   kUnknown,  // the collection says that it doesn't know
   kAttention,
   kFailed
};

/// The state that a value of the property tells.
///
/// Shape:   letters count alike in either case. A text of several words with commas or semicolons
///          between them, as arrays have them, tells the most urgent state of its words; it is OK
///          or unknown only when every one of its words is known.
/// Missing: kNone where no rule knows the property or the word; nothing is guessed.
EState FindState(std::string_view property, std::string_view text);

/// Whether the texts differ in the case of their ASCII letters at most.
bool IsSameWord(std::string_view a, std::string_view b);
