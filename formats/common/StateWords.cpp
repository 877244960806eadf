#include "common/StateWords.h"

#include <algorithm>

namespace {

/// The text of a value that its property has no word for: "Unknown (7)".
constexpr std::string_view kUnknownValue = "Unknown (";

char ToLower(char c)
{
   return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

std::string_view Trim(std::string_view text)
{
   const std::size_t begin = text.find_first_not_of(" \t\r\n");
   if (begin == std::string_view::npos)
      return {};
   return text.substr(begin, text.find_last_not_of(" \t\r\n") + 1 - begin);
}

/// Takes the first word off the text.
std::string_view TakeWord(std::string_view& text)
{
   const std::size_t end = text.find_first_of(",;");
   const std::string_view word = Trim(text.substr(0, end));
   text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
   return word;
}

EState FindWord(const TStateWords& words, std::string_view word)
{
   for (const TStateWord& known : words)
      if (IsSameWord(known.fWord, word))
         return known.fState;
   const bool isUnknown = word.substr(0, kUnknownValue.size()) == kUnknownValue;
   return isUnknown ? EState::kUnknown : EState::kNone;
}

}  // namespace

bool IsSameWord(std::string_view a, std::string_view b)
{
   return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
             return ToLower(x) == ToLower(y);
          });
}

std::string_view FindUrgentWord(const TStateWords& words, std::string_view text)
{
   EState worst = EState::kNone;
   std::string_view urgent;
   while (!text.empty()) {
      const std::string_view word = TakeWord(text);
      const EState state = FindWord(words, word);
      if (state > worst) {
         worst = state;
         urgent = word;
      }
   }
   return urgent;
}

EState FindState(const TStateWords& words, std::string_view text)
{
   EState worst = EState::kNone;
   bool isAllKnown = true;
   while (!text.empty()) {
      const EState state = FindWord(words, TakeWord(text));
      isAllKnown = isAllKnown && state != EState::kNone;
      worst = std::max(worst, state);
   }
   return isAllKnown || worst >= EState::kAttention ? worst : EState::kNone;
}
