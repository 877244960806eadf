#include <gmock/gmock.h>

#include "support/MakeStore.h"
#include "support/TRecordingWriter.h"

using testing::ElementsAre;

namespace {

const std::string kManagerClass = R"(
class ZANSG_LogRecord_RAIDMgrEvent { [Key] datetime MessageTimestamp; string Severity;
   string Message; };
)";

std::string MakeEvent(int day, const std::string& message)
{
   return "instance of ZANSG_LogRecord_RAIDMgrEvent { MessageTimestamp = \"2009010" +
          std::to_string(day) + "101112.000000+000\"; Message = \"" + message + "\"; };\n";
}

std::vector<std::string> WriteLogs(const std::string& mof, const std::string& mode = "default")
{
   TRecordingWriter writer;
   writer.Use(MakeNamespace(mof), mode);
   writer.WriteCorvaneLogsReport();
   return writer.GetLines({"WriteTableTitle", "|", "WriteEventLogTable", "WriteIndexEntry"});
}

}  // namespace

TEST(CorvaneLogsReport, HidesTheManagerLogWhenItsFirstRecordSaysThatThereIsNoManager)
{
   const std::string none = MakeEvent(2, "RAID Manager is not installed.");
   EXPECT_THAT(WriteLogs(kManagerClass + MakeEvent(3, "Drive defunct") + none),
               ElementsAre("WriteIndexEntry \"corvanelogs\", \"Corvane Logs\", false"));
   // First means first in time, since the table is sorted before it is looked at.
   EXPECT_EQ(WriteLogs(kManagerClass + none + MakeEvent(1, "Drive defunct")).back(),
             "WriteIndexEntry \"corvanelogs\", \"Corvane Logs\", true");
}

TEST(CorvaneLogsReport, ShowsTheControllersOwnLogsInServiceModeOnly)
{
   const std::string mof = R"(
class ZANSG_LogRecord_HardEvent { [Key] string RecordID; };
class ZANSG_LogRecord_SoftEvent { [Key] string RecordID; };
instance of ZANSG_LogRecord_HardEvent { RecordID = "1"; };
instance of ZANSG_LogRecord_HardEvent { RecordID = "2"; };
instance of ZANSG_LogRecord_SoftEvent { RecordID = "1"; };)";
   EXPECT_THAT(WriteLogs(mof, "mek"),
               ElementsAre("WriteEventLogTable 2, \"Corvane Hard Event Log\", \"cvHardEventLog\"",
                           "WriteEventLogTable 1, \"Corvane Soft Event Log\", \"cvSoftEventLog\"",
                           "WriteIndexEntry \"corvanelogs\", \"Corvane Logs\", true"));
   EXPECT_THAT(WriteLogs(mof),
               ElementsAre("WriteIndexEntry \"corvanelogs\", \"Corvane Logs\", false"));
}
