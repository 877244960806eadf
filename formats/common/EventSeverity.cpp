#include "common/EventSeverity.h"

#include "common/StateWords.h"

namespace {

struct TSeverityWord
{
   std::string_view fWord;
   ESeverity fSeverity;
};

// To teach the timeline a word of another log, add a line.
constexpr TSeverityWord kWords[] = {
   {"Information", ESeverity::kInformation},
   {"Informational", ESeverity::kInformation},
   {"Info", ESeverity::kInformation},
   {"I", ESeverity::kInformation},
   {"Debug", ESeverity::kInformation},
   {"Notice", ESeverity::kInformation},
   {"OK", ESeverity::kInformation},
   {"Success", ESeverity::kInformation},
   {"Audit Success", ESeverity::kInformation},
   {"Success Audit", ESeverity::kInformation},
   {"Security Audit Success", ESeverity::kInformation},
   {"Warning", ESeverity::kWarning},
   {"Warn", ESeverity::kWarning},
   {"W", ESeverity::kWarning},
   {"Degraded/Warning", ESeverity::kWarning},
   {"Degraded", ESeverity::kWarning},
   {"Minor", ESeverity::kWarning},
   {"Audit Failure", ESeverity::kWarning},
   {"Failure Audit", ESeverity::kWarning},
   {"Security Audit Failure", ESeverity::kWarning},
   {"Error", ESeverity::kError},
   {"Err", ESeverity::kError},
   {"E", ESeverity::kError},
   {"Major", ESeverity::kError},
   {"Critical", ESeverity::kError},
   {"Crit", ESeverity::kError},
   {"Severe", ESeverity::kError},
   {"Alert", ESeverity::kError},
   {"Emergency", ESeverity::kError},
   {"Emerg", ESeverity::kError},
   {"Failure", ESeverity::kError},
   {"Fatal", ESeverity::kError},
   {"Fatal/NonRecoverable", ESeverity::kError},
};

}  // namespace

ESeverity FindSeverity(std::string_view word)
{
   for (const TSeverityWord& known : kWords)
      if (IsSameWord(known.fWord, word))
         return known.fSeverity;
   return ESeverity::kNotTold;
}

std::string_view GetSeverityWord(ESeverity severity)
{
   constexpr std::string_view kPlainWords[kSeverities] = {"", "Information", "Warning", "Error"};
   return kPlainWords[static_cast<std::size_t>(severity)];
}
