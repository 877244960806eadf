#include "common/StateWords.h"

#include <gtest/gtest.h>

namespace {

constexpr TStateWord kWords[] = {
   {"OK", EState::kOk},
   {"Degraded", EState::kAttention},
   {"Predictive Failure", EState::kAttention},
   {"Read failure", EState::kFailed},
   {"Unknown", EState::kUnknown},
};

struct TStateCase
{
   const char* fReason;
   const char* fText;
   EState fState;
   const char* fUrgent;
};

const TStateCase kStates[] = {
   {"letters of either case", "ok", EState::kOk, "ok"},
   {"a part of a word", "Degraded drive", EState::kNone, ""},
   {"no value", "", EState::kNone, ""},
   {"a value without a word", "Unknown (9)", EState::kUnknown, "Unknown (9)"},
   {"the most urgent of several", "OK, Predictive Failure", EState::kAttention,
    "Predictive Failure"},
   {"urgent beside what is not in the list", "Read failure, 60% remaining", EState::kFailed,
    "Read failure"},
   {"not OK beside what is not in the list", "OK; frozen", EState::kNone, "OK"},
};

TEST(StateWords, TellTheStateOfAWholeTextOrNone)
{
   for (const TStateCase& test : kStates) {
      EXPECT_EQ(FindState(kWords, test.fText), test.fState) << test.fReason;
      EXPECT_EQ(FindUrgentWord(kWords, test.fText), test.fUrgent) << test.fReason;
   }
}

}  // namespace
