#include "common/StateWords.h"

#include <gtest/gtest.h>

namespace {

struct TStateCase
{
   const char* fReason;
   const char* fProperty;
   const char* fText;
   EState fState;
};

const TStateCase kStates[] = {
   {"a word of the property", "ControllerStatus", "Okay", EState::kOk},
   {"letters of either case", "State", "HOT SPARE", EState::kOk},
   {"an array without redundancy works", "LogicalDriveStatus", "Critical", EState::kAttention},
   {"a drive that is gone", "State", "Defunct", EState::kFailed},
   {"another property's word", "State", "Critical", EState::kNone},
   {"a part of a word", "State", "Defunct drive", EState::kNone},
   {"a property without a rule", "LastCmdStatus", "Failed", EState::kNone},
   {"no value", "State", "", EState::kNone},
   {"a value without a word", "OperationalStatus", "Unknown (9)", EState::kUnknown},
   {"the most urgent of several", "OperationalStatus", "OK, Predictive Failure",
    EState::kAttention},
   {"urgent beside what no rule knows", "selftestExecutionStatus", "Read failure, 60% remaining",
    EState::kFailed},
   {"not OK beside what no rule knows", "VolumeStatus", "Enabled, frozen", EState::kNone},
};

TEST(StateWords, TellTheStateOfAWholeTextOrNone)
{
   for (const TStateCase& test : kStates)
      EXPECT_EQ(FindState(test.fProperty, test.fText), test.fState) << test.fReason;
}

}  // namespace
