#include "common/StateWords.h"

#include <algorithm>
#include <iterator>

// The rules: words and their states, then the properties that use them. To teach the pages a word
// of another controller, add a line to the list of its property.
//
// "Attention" is what still works and won't for long: an array without redundancy, a drive that
// predicts its failure. What is gone or can't be relied on has failed.

namespace {

struct TStateWord
{
   std::string_view fWord;
   EState fState;
};

constexpr TStateWord kControllerWords[] = {
   {"OK", EState::kOk},         {"Okay", EState::kOk},
   {"Optimal", EState::kOk},    {"Degraded", EState::kAttention},
   {"Failed", EState::kFailed}, {"Unknown", EState::kUnknown},
};

constexpr TStateWord kBatteryWords[] = {
   {"OK", EState::kOk},         {"Okay", EState::kOk},         {"Low", EState::kAttention},
   {"Failed", EState::kFailed}, {"Unknown", EState::kUnknown},
};

// Logical drives, volumes and arrays.
constexpr TStateWord kArrayWords[] = {
   {"OK", EState::kOk},
   {"Okay", EState::kOk},
   {"Optimal", EState::kOk},
   {"Online", EState::kOk},
   {"Enabled", EState::kOk},
   {"Healthy", EState::kOk},
   {"Critical", EState::kAttention},  // an array that lost its redundancy, not its data
   {"Degraded", EState::kAttention},
   {"At Risk", EState::kAttention},
   {"Rebuilding", EState::kAttention},
   {"Resync in progress", EState::kAttention},
   {"Resyncing", EState::kAttention},
   {"Quiesced", EState::kAttention},
   {"Failed", EState::kFailed},
   {"Missing", EState::kFailed},
   {"Inactive", EState::kFailed},
   {"Offline", EState::kFailed},
   {"Unknown", EState::kUnknown},
};

constexpr TStateWord kDriveWords[] = {
   {"OK", EState::kOk},
   {"Okay", EState::kOk},
   {"Online", EState::kOk},
   {"Ready", EState::kOk},
   {"Hot spare", EState::kOk},
   {"Standby hot spare", EState::kOk},
   {"Degraded", EState::kAttention},
   {"Rebuilding", EState::kAttention},
   {"Out of sync", EState::kAttention},
   {"Predictive Failure", EState::kAttention},
   {"Defunct", EState::kFailed},
   {"Failed", EState::kFailed},
   {"Missing", EState::kFailed},
   {"Not responding", EState::kFailed},
   {"Offline", EState::kFailed},
   {"Unknown", EState::kUnknown},
};

constexpr TStateWord kOperationalWords[] = {
   {"OK", EState::kOk},
   {"Online", EState::kOk},
   {"In Service", EState::kAttention},
   {"Degraded", EState::kAttention},
   {"Stressed", EState::kAttention},
   {"Predictive Failure", EState::kAttention},
   {"Starting", EState::kAttention},
   {"Stopping", EState::kAttention},
   {"Stopped", EState::kAttention},
   {"Error", EState::kFailed},
   {"Non-Recoverable Error", EState::kFailed},
   {"No Contact", EState::kFailed},
   {"Lost Communication", EState::kFailed},
   {"Aborted", EState::kFailed},
   {"Supporting Entity in Error", EState::kFailed},
   {"Unknown", EState::kUnknown},
};

constexpr TStateWord kExtentWords[] = {
   {"In data redundancy", EState::kOk},
   {"Rebuild", EState::kAttention},
   {"Rebuilding", EState::kAttention},
   {"Readying", EState::kAttention},
   {"Recalculate", EState::kAttention},
   {"Spare in Use", EState::kAttention},
   {"Exposed", EState::kAttention},
   {"Fractionally Exposed", EState::kAttention},
   {"Partially Exposed", EState::kAttention},
   {"Protection Disabled", EState::kAttention},
   {"Broken", EState::kFailed},
   {"Data Lost", EState::kFailed},
   {"Unknown", EState::kUnknown},
};

constexpr TStateWord kPredictionWords[] = {
   {"False", EState::kOk},
   {"No", EState::kOk},
   {"True", EState::kAttention},
   {"Yes", EState::kAttention},
};

constexpr TStateWord kSmartWords[] = {
   {"Good", EState::kOk},         {"OK", EState::kOk},
   {"Passed", EState::kOk},       {"Threshold exceeded", EState::kFailed},
   {"Failing", EState::kFailed},  {"Failed", EState::kFailed},
   {"Unknown", EState::kUnknown},
};

constexpr TStateWord kSelfTestWords[] = {
   {"Completed without error", EState::kOk}, {"Fatal error", EState::kFailed},
   {"Unknown failure", EState::kFailed},     {"Electrical failure", EState::kFailed},
   {"Servo failure", EState::kFailed},       {"Read failure", EState::kFailed},
   {"Handling damage", EState::kFailed},
};

// An event is no thing that could have failed, unless it says that all is lost. An information is
// no state.
constexpr TStateWord kSeverityWords[] = {
   {"Unknown", EState::kUnknown},
   {"Warning", EState::kAttention},
   {"Degraded/Warning", EState::kAttention},
   {"Minor", EState::kAttention},
   {"Major", EState::kAttention},
   {"Critical", EState::kAttention},
   {"Fatal", EState::kFailed},
   {"Fatal/NonRecoverable", EState::kFailed},
};

struct TStateRule
{
   template <std::size_t kCount>
   constexpr TStateRule(std::string_view property, const TStateWord (&words)[kCount])
      : fProperty(property), fBegin(words), fEnd(words + kCount)
   {}

   std::string_view fProperty;
   const TStateWord* fBegin;
   const TStateWord* fEnd;
};

constexpr TStateRule kRules[] = {
   {"ControllerStatus", kControllerWords},
   {"ControllerBatteryStatus", kBatteryWords},
   {"LogicalDriveStatus", kArrayWords},
   {"VolumeStatus", kArrayWords},
   {"VolumeState", kArrayWords},
   {"State", kDriveWords},
   {"DriveStatus", kDriveWords},
   {"DiskStatus", kDriveWords},
   {"OperationalStatus", kOperationalWords},
   {"ExtentStatus", kExtentWords},
   {"PFA", kPredictionWords},
   {"smartStatus", kSmartWords},
   {"selftestExecutionStatus", kSelfTestWords},
   {"PerceivedSeverity", kSeverityWords},
   {"Severity", kSeverityWords},
};

/// The text of a value that its property has no word for: "Unknown (7)".
constexpr std::string_view kUnknownValue = "Unknown (";

const TStateRule* FindRule(std::string_view property)
{
   const auto* const rule =
      std::find_if(std::begin(kRules), std::end(kRules),
                   [property](const TStateRule& at) { return at.fProperty == property; });
   return rule == std::end(kRules) ? nullptr : rule;
}

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

EState FindWord(const TStateRule& rule, std::string_view word)
{
   for (const TStateWord* at = rule.fBegin; at != rule.fEnd; ++at)
      if (IsSameWord(at->fWord, word))
         return at->fState;
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

EState FindState(std::string_view property, std::string_view text)
{
   const TStateRule* const rule = FindRule(property);
   if (rule == nullptr)
      return EState::kNone;
   EState worst = EState::kNone;
   bool isAllKnown = true;
   while (!text.empty()) {
      const std::size_t end = text.find_first_of(",;");
      const EState state = FindWord(*rule, Trim(text.substr(0, end)));
      text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
      isAllKnown = isAllKnown && state != EState::kNone;
      worst = std::max(worst, state);
   }
   return isAllKnown || worst >= EState::kAttention ? worst : EState::kNone;
}
