#include "common/health/LogJudge.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

struct TRecord
{
   const char* fTime;
   const char* fSeverity;
   const char* fSource;
   const char* fMessage;
};

/// What a log tells; the machine was collected at noon.
TSubsystemHealth JudgeLog(const std::vector<TRecord>& records, bool hasSeverity,
                          const std::string& page = "log",
                          const char* collected = "2026-03-02 12:00:00")
{
   THealthLedger ledger;
   TLogJudge judge(ledger, collected);
   TTableShape shape;
   shape.fLog.emplace();
   shape.fLog->fTime = 0;
   if (hasSeverity)
      shape.fLog->fSeverity = 1;
   shape.fLog->fSource = 2;
   shape.fLog->fMessage = 3;
   TCollectedRows rows;
   for (const TRecord& record : records) {
      rows.BeginRow();
      for (const char* text : {record.fTime, record.fSeverity, record.fSource, record.fMessage}) {
         TCell cell;
         cell.fText = text;
         rows.AddCell(cell);
      }
   }
   judge.BeginTable(page, "System Event", shape);
   judge.AddRows(rows, {4, 2, 0, 0}, 0);
   judge.Finish();
   return ledger.Finish().Get(ESubsystem::kLogs);
}

TEST(LogJudge, ErrorsOfTheLastDayNeedAttention)
{
   const TSubsystemHealth logs = JudgeLog({{"2026-03-01 13:00:00", "Error", "Disk", "first"},
                                           {"2026-03-02 09:00:00", "Error", "Disk", "last"},
                                           {"2026-02-20 09:00:00", "Error", "Disk", "old"},
                                           {"2026-03-02 10:00:00", "Warning", "Disk", "later"}},
                                          true);
   EXPECT_EQ(logs.fState, EState::kAttention);
   const TFinding& finding = logs.fFindings.front();
   EXPECT_EQ(finding.fText, "2 errors in the 24 hours before the collection, the last one: last");
   EXPECT_EQ(finding.fSource, "System Event, row 2: 2026-03-02 09:00:00");
   EXPECT_EQ(finding.fPlace.fRow, 2u);
}

struct TLogCase
{
   const char* fReason;
   std::vector<TRecord> fRecords;
   bool fHasSeverity;
   EState fState;
};

const TLogCase kCases[] = {
   {"errors of another week are history",
    {{"2026-02-20 09:00:00", "Error", "", ""}},
    true,
    EState::kOk},
   {"a log without severities says nothing",
    {{"2026-03-02 09:00:00", "", "sshd", "error"}},
    false,
    EState::kUnknown},
   {"what a kernel says of a disk",
    {{"2026-03-02 09:00:00", "", "kernel", "sda: I/O error"}},
    false,
    EState::kAttention},
   {"a drive without a medium is no fault",
    {{"2026-03-02 09:00:00", "", "kernel", "blk_update_request: I/O error, dev fd0, sector 0"}},
    false,
    EState::kOk},
};

TEST(LogJudge, JudgesWhatALogTells)
{
   for (const TLogCase& test : kCases)
      EXPECT_EQ(JudgeLog(test.fRecords, test.fHasSeverity).fState, test.fState) << test.fReason;
   EXPECT_EQ(JudgeLog({{"2026-03-02 09:00:00", "Error", "", ""}}, true, "qsx_log").fState,
             EState::kUnknown)
      << "the collector's own log is not the machine's";
   EXPECT_EQ(JudgeLog({{"2020-01-01 09:00:00", "Error", "", ""}}, true, "log", "").fState,
             EState::kAttention)
      << "without a time of collection, the newest record tells";
}

}  // namespace
