#include <gtest/gtest.h>

#include "writer/platform/ReportRun.h"

namespace {

std::string MakeRecords(const std::string& className, const std::string& days)
{
   std::string mof = "class " + className + " { [Key] string Id; datetime CreationTimeStamp; };";
   for (const char day : days)
      mof += "instance of " + className + " { Id = \"" + day + "\"; CreationTimeStamp = \"2009010" +
             day + "000000.000000+000\"; };";
   return mof;
}

const std::string kChassis = MakeRecords("ZAN_StandardMessageLogEntry", "3");

std::string GetOrder(const TReportRun& run)
{
   std::string order;
   for (const auto& line : run.fWriter.GetLines({"WriteValueCell"}))
      if (line.find(", CreationTimeStamp") != std::string::npos)
         order += line[line.find("Id=\"") + 4];
   return order;
}

const std::string kLinuxClass =
   "class ZANSG_LinuxEventLogRecord { string LogName; [Key] string RecordID; };";

std::string MakeLinuxRecord(const std::string& logName, const std::string& id)
{
   return "instance of ZANSG_LinuxEventLogRecord { LogName = " + logName + "; RecordID = \"" + id +
          "\"; };";
}

}  // namespace

TEST(MergedLog, ShowsTheRecordsOfBothClassesNewestFirst)
{
   const auto system = MakeRecords("ZANSG_LogRecord", "241");
   const auto run = RunReport(system + kChassis, &TWriter::WriteCELMergedLogReport);
   EXPECT_EQ("4321", GetOrder(run));
   EXPECT_EQ("WriteIndexEntry \"mergedlog\", \"Merged Log\", true", run.fWriter.fLines.back());
   EXPECT_EQ("124", GetOrder(RunReport(system, &TWriter::WriteCELMergedLogReport)))
      << "the second sort never runs";
   EXPECT_EQ("", RunReport(kChassis, &TWriter::WriteCELMergedLogReport).GetText());
}

TEST(LinuxLogs, GiveEachLogAPageWithItsRecordsByNumber)
{
   const auto run = RunReport(kLinuxClass + MakeLinuxRecord("\"/var/log/messages\"", "10") +
                                 MakeLinuxRecord("\"plain\"", "1") + MakeLinuxRecord("NULL", "2") +
                                 MakeLinuxRecord("\"/opt/messages\"", "3") +
                                 MakeLinuxRecord("\"/var/log/messages\"", "9"),
                              &TWriter::WriteLinuxLogReport);
   std::string pages;
   for (const auto& line : run.fWriter.GetLines(
           {"WriteIndexEntry", "OpenReportFile", "WriteReportPreamble", "WriteValueCell"}))
      if (line.find("WriteValueCell") != 0 || line.find(", Source") != std::string::npos)
         pages += "\n" + line;
   EXPECT_EQ(R"(
WriteIndexEntry "syslog_messages", "/opt/messages", true
OpenReportFile "syslog_messages"
WriteReportPreamble
WriteValueCell ZANSG_LinuxEventLogRecord.RecordID="3", Source
WriteIndexEntry "syslog_messages", "/var/log/messages", true
OpenReportFile "syslog_messages"
WriteReportPreamble
WriteValueCell ZANSG_LinuxEventLogRecord.RecordID="9", Source
WriteValueCell ZANSG_LinuxEventLogRecord.RecordID="10", Source
WriteIndexEntry "syslog_plain", "plain", true
OpenReportFile "syslog_plain"
WriteReportPreamble
WriteValueCell ZANSG_LinuxEventLogRecord.RecordID="1", Source)",
             pages);
}

TEST(LinuxLogs, TellAMissingClassFromAnEmptyOne)
{
   EXPECT_EQ("\nWriteIndexEntry \"\", \"Event Logs\", false",
             RunReport("", &TWriter::WriteLinuxLogReport).GetText());
   EXPECT_EQ("", RunReport(kLinuxClass, &TWriter::WriteLinuxLogReport).GetText());
}
