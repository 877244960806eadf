#include <algorithm>
#include <regex>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "catalogue/TReportDraft.h"
#include "html/THtmlWriter.h"
#include "support/MakeStore.h"
#include "support/TTemporaryFolder.h"

namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

const char* const kClasses = R"(
   class ZANSG_LogRecord {
      [Key] string RecordID; string LogName; datetime MessageTimestamp; datetime CreationTimeStamp;
      string SourceNode; string Source; string Message; };
   class ZANSG_LinuxEventLogRecord : ZANSG_LogRecord {
      [ValueMap {"2", "5"}, Values {"Information", "Major"}] uint16 PerceivedSeverity; };
   class ZANSG_TLMLog : ZANSG_LogRecord { string Type; string LoggingSource; };
   class ZANSG_QSXLogRecord {
      [Key] string RecordID; string MessageTimestamp; string Source; string Type; string Message; };
)";

TReportParameters MakeLog(const char* cimClass, const char* title,
                          std::initializer_list<const char*> properties)
{
   TReportDraft report(std::string("log_") + cimClass, title);
   TTableDraft& table = report.Table(cimClass, title);
   for (const char* property : properties)
      table.Column(property, "10%");
   return report.Finish();
}

/// The timeline of a collection, of which the Linux, TLM, merged and program's logs are reported.
class Timeline : public testing::Test
{
protected:
   void Write(const std::string& instances)
   {
      THtmlWriter writer{THtmlOptions()};
      writer.Initialize(MakeNamespace(kClasses + instances), {}, fFolder.GetPath());
      writer.BeginIndexGroup("Logs");
      writer.WriteLinuxLogReport();
      writer.WriteGenericReport(MakeLog("ZANSG_TLMLog", "TLM Event",
                                        {"MessageTimestamp", "Type", "LoggingSource", "Message"}));
      writer.WriteMergedLogReport(
         MakeLog("ZANSG_LogRecord", "Merged Log", {"MessageTimestamp", "LogName", "Message"}));
      writer.WriteGenericReport(MakeLog("ZANSG_QSXLogRecord", "QSX Error Log",
                                        {"MessageTimestamp", "Source", "Type", "Message"}));
      writer.EndIndex();
      fPage = fFolder.Read("timeline.html");
   }

   /// Time and message of each record, and what marks its time.
   std::vector<std::string> GetRecords() const
   {
      const std::regex row(
         "<th scope=\"row\"[^>]*>([^<]*)(?:<small>([^<]*)</small>)?</th>"
         ".*<td class=\"brk\">([^<]*)</td></tr>");
      std::vector<std::string> records;
      for (std::sregex_iterator at(fPage.begin(), fPage.end(), row), end; at != end; ++at)
         records.push_back((*at)[1].str() + (*at)[2].str() + "|" + (*at)[3].str());
      return records;
   }

   TTemporaryFolder fFolder;
   std::string fPage;
};

}  // namespace

TEST_F(Timeline, MergesLogsByTimeOnOneClock)
{
   Write(R"(
      instance of ZANSG_LinuxEventLogRecord { RecordID = "1"; LogName = "/var/log/messages";
         MessageTimestamp = "20090617120000.000000+060"; Message = "first"; };
      instance of ZANSG_LinuxEventLogRecord { RecordID = "2"; LogName = "/var/log/messages";
         MessageTimestamp = "20090617130000.000000+060"; Message = "<third>"; };
      instance of ZANSG_TLMLog { RecordID = "3"; Type = "Error";
         MessageTimestamp = "20090617113000.000000+000"; Message = "second"; };
      instance of ZANSG_QSXLogRecord { RecordID = "4"; Type = "Warning";
         MessageTimestamp = "Wed Jun 17 14:00:00 2009"; Message = "by its own clock"; };
      instance of ZANSG_QSXLogRecord { RecordID = "5"; MessageTimestamp = "some day";
         Message = "undated"; };)");
   EXPECT_THAT(GetRecords(),
               ElementsAre("2009-06-17 14:00:00 zone unknown|by its own clock",
                           "2009-06-17 13:00:00|&lt;third&gt;", "2009-06-17 12:30:00|second",
                           "2009-06-17 12:00:00|first", "some day no date|undated"));
   EXPECT_THAT(fPage, HasSubstr("5 records, newest first. Times are <strong>UTC+01:00</strong>. 1 "
                                "of another zone is converted. 1 whose zone is unknown"));
   EXPECT_THAT(fPage, HasSubstr("<a href=\"syslog_messages.html#t1-r2\">/var/log/messages</a>"));
   EXPECT_THAT(fPage, HasSubstr("aria-label=\"Errors: 1, at most 1 per minute\""));
   EXPECT_THAT(fFolder.Read("index.html"), HasSubstr("<a href=\"timeline.html\">Timeline</a>"
                                                     "<span class=\"num\">5</span>"));
}

TEST_F(Timeline, RecordsOfTheMergedLogAreThereOnce)
{
   Write(R"(
      instance of ZANSG_LinuxEventLogRecord { RecordID = "1"; LogName = "a";
         MessageTimestamp = "20090617120000.000000+060"; Message = "twice"; };
      instance of ZANSG_LinuxEventLogRecord { RecordID = "2"; LogName = "a";
         MessageTimestamp = "20090617120000.000000+060"; Message = "twice"; };
      instance of ZANSG_LogRecord { RecordID = "3"; LogName = "Other";
         MessageTimestamp = "20090617120000.000000+060"; Message = "twice"; };
      instance of ZANSG_LogRecord { RecordID = "4"; LogName = "Other";
         MessageTimestamp = "20090617120100.000000+060"; Message = "merged only"; };)");
   EXPECT_THAT(GetRecords(),
               ElementsAre("2009-06-17 12:01:00|merged only", "2009-06-17 12:00:00|twice",
                           "2009-06-17 12:00:00|twice", "2009-06-17 12:00:00|twice"));
   EXPECT_THAT(fPage, HasSubstr("#t1-r2\">Other</a>"));
   EXPECT_THAT(fPage, Not(HasSubstr("<th scope=\"col\">Severity")));
}

TEST_F(Timeline, ARecordTellsASeverityThatItsPageDoesNotShow)
{
   Write(R"(
      instance of ZANSG_LinuxEventLogRecord { RecordID = "1"; LogName = "a"; Message = "grave";
         PerceivedSeverity = 5; MessageTimestamp = "20090617120000.000000+060"; };
      instance of ZANSG_LinuxEventLogRecord { RecordID = "2"; LogName = "a"; Message = "plain";
         PerceivedSeverity = 2; MessageTimestamp = "20090617120000.000000+060"; };)");
   EXPECT_THAT(fPage, HasSubstr("aria-label=\"Errors: 1, at most 1 per 10 seconds\""));
   EXPECT_THAT(fPage, HasSubstr(">Information</td>"));
   EXPECT_THAT(fFolder.Read("syslog_a.html"), Not(HasSubstr("Information")));
}

TEST_F(Timeline, AMergedLogByAnotherDateRepeatsNothing)
{
   THtmlWriter writer{THtmlOptions()};
   writer.Initialize(MakeNamespace(std::string(kClasses) + R"(
      instance of ZANSG_LinuxEventLogRecord { RecordID = "1"; LogName = "a"; Message = "dated";
         MessageTimestamp = "20090617120000.000000+060"; };
      instance of ZANSG_LogRecord { RecordID = "2"; LogName = "Other"; Message = "merged only"; };)"),
                     {}, fFolder.GetPath());
   writer.BeginIndexGroup("Logs");
   writer.WriteLinuxLogReport();
   writer.WriteCELMergedLogReport();
   writer.EndIndex();
   fPage = fFolder.Read("timeline.html");
   EXPECT_THAT(GetRecords(), ElementsAre("2009-06-17 12:00:00|dated", "no date|merged only"));
}

TEST_F(Timeline, OneTimeInTwoZonesIsOfNoKnownZone)
{
   Write(R"(
      instance of ZANSG_LinuxEventLogRecord { RecordID = "1"; LogName = "a";
         MessageTimestamp = "20091025023000.000000+120"; Message = "summer"; };
      instance of ZANSG_LinuxEventLogRecord { RecordID = "2"; LogName = "a";
         MessageTimestamp = "20091025023000.000000+060"; Message = "winter"; };
      instance of ZANSG_LinuxEventLogRecord { RecordID = "3"; LogName = "a";
         MessageTimestamp = "20091025040000.000000+060"; Message = "later"; };)");
   EXPECT_THAT(GetRecords(),
               ElementsAre("2009-10-25 04:00:00|later", "2009-10-25 02:30:00 zone unknown|winter",
                           "2009-10-25 02:30:00 zone unknown|summer"));
}

TEST_F(Timeline, AboveItsRowsThePageNamesTheFilesOfTheOrder)
{
   std::string instances;
   for (int i = 0; i < 2001; ++i)
      instances += "instance of ZANSG_LinuxEventLogRecord { RecordID = \"" + std::to_string(i) +
                   "\"; LogName = \"a\"; Message = \"m\"; MessageTimestamp = \"200906171200" +
                   std::to_string(10 + i % 50) + ".000000+060\"; };\n";
   Write(instances + R"(
      instance of ZANSG_LogRecord { RecordID = "x"; LogName = "Other"; Message = "\"quoted\"";
         MessageTimestamp = "20090617130000.000000+060"; };
      instance of ZANSG_QSXLogRecord { RecordID = "4"; Type = "Error"; Message = "undated"; };)");
   EXPECT_THAT(fPage,
               HasSubstr("data-rows=\"2003\" data-files=\"1\" data-from=\"1\" data-to=\"1\""));
   EXPECT_EQ(2000u, GetRecords().size());
   const std::string files = fFolder.Read("rows/timeline1.js");
   EXPECT_THAT(files, HasSubstr("qsxEventTables(1,1245240010,[[0,1,\"syslog_a.html\",\"a\",1,1,"
                                "[0,-1,-1,1,2,-1]]"));
   EXPECT_THAT(files, HasSubstr("qsxEvents([1,1,3541,0,0,2000,0,0,"))
      << "an hour above the log's last";
   EXPECT_THAT(files, HasSubstr(",2,1,0,11]);")) << "an error without a date";
   EXPECT_THAT(
      files,
      HasSubstr("qsxEventText(0,\"2009-06-17 13:00:00\x1F\x1F\x1F\\\"quoted\\\"\x1FOther\");"))
      << "few records have to come from the merged log";
   EXPECT_THAT(fPage, HasSubstr("href=\"rows/timeline.txt\""));
   const std::string text = fFolder.Read("rows/timeline.txt");
   EXPECT_THAT(text, HasSubstr("Time\tSeverity\tLog\tSource\tMessage\n"
                               "2009-06-17 13:00:00\t\tOther\t\t\"quoted\"\n"));
   EXPECT_THAT(text, EndsWith("no date\tError\tQSX Error Log\t\tundated\n"));
   EXPECT_EQ(2004, std::count(text.begin(), text.end(), '\n'));
}

TEST_F(Timeline, IsNotThereWithoutRecords)
{
   Write("");
   EXPECT_THAT(fPage, IsEmpty());
   EXPECT_THAT(fFolder.Read("index.html"), Not(HasSubstr("timeline.html")));
}
