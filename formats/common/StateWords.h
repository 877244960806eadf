#pragma once

#include <cstddef>
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

struct TStateWord
{
   std::string_view fWord;
   EState fState;
};

/// The words in which the values of a property tell states. Owner: a table of fixed data.
class TStateWords
{
public:
   constexpr TStateWords() = default;

   template <std::size_t kCount>
   constexpr TStateWords(const TStateWord (&words)[kCount]) : fBegin(words), fEnd(words + kCount)
   {}

   const TStateWord* begin() const { return fBegin; }

   const TStateWord* end() const { return fEnd; }

private:
   const TStateWord* fBegin = nullptr;
   const TStateWord* fEnd = nullptr;
};

/// The state that a text tells.
///
/// Shape:   letters count alike in either case. A text of several words with commas or semicolons
///          between them, as arrays have them, tells the most urgent state of its words; it is OK
///          or unknown only when every one of its words is known.
/// Missing: kNone where a word is not in the list; nothing is guessed.
EState FindState(const TStateWords& words, std::string_view text);

/// The word of a text that tells its state: the first of the most urgent ones.
/// Missing: the empty text where no word is in the list. Owner: a part of what was given.
std::string_view FindUrgentWord(const TStateWords& words, std::string_view text);

/// Whether the texts differ in the case of their ASCII letters at most.
bool IsSameWord(std::string_view a, std::string_view b);
