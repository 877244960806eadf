#include "text/TextReport.h"

#include <gmock/gmock.h>

#include <sstream>

#include "formats/TDocumentRun.h"
#include "text/TextLines.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

TEST(TextReport, ATableIsAsWideAsItsTexts)
{
   TDocumentRun<TTextReport> run;
   run.BeginPage("cv", "Configuration");
   run.GetFlow().WriteTableTitle({"Fans", false, false});
   run.GetFlow().BeginColumnTable("60%", "Fans", true);
   run.AddTextRow({"Name", "Speed of it"}, true);
   TCell speed;
   speed.fText = "Slow";
   speed.fSecondText = "2";
   speed.fState = EState::kAttention;
   TCell same;
   same.fText = "Fan 2";
   same.fSame = true;
   run.AddRow({same, speed});
   run.AddTextRow({"Gehäuselüfter 风扇", "two\nlines"});
   run.GetFlow().EndTable();
   run.EndPage("cv");
   EXPECT_EQ(R"(Configuration
=============

Fans
----

Name                Speed of it
------------------  ------------
= Fan 2             Slow [2] (!)
Gehäuselüfter 风扇  two
                    lines

)",
             run.EndRun("cv.txt"));
}

TEST(TextReport, WhatDoesNotFitIsWrappedOrABlockPerRow)
{
   TDocumentRun<TTextReport> run;
   run.BeginPage("cv", "Configuration");
   run.GetFlow().BeginColumnTable("60%", "Log", true);
   run.AddTextRow({"Number", "Message"}, true);
   run.AddTextRow({"1", std::string(90, 'x') + " " + std::string(120, 'y')});
   run.GetFlow().EndTable();
   run.GetFlow().BeginColumnTable("60%", "Wide", true);
   std::vector<std::string> labels;
   std::vector<std::string> values;
   for (int i = 0; i < 12; ++i) {
      labels.push_back("Label " + std::to_string(i));
      values.push_back("somelongervalue " + std::to_string(i));
   }
   run.AddTextRow(labels, true);
   run.AddTextRow(values);
   run.GetFlow().EndTable();
   run.EndPage("cv");
   const std::string text = run.EndRun("cv.txt");
   std::istringstream lines(text);
   for (std::string line; std::getline(lines, line);)
      EXPECT_LE(GetWidth(line), kLineWidth) << line;
   EXPECT_THAT(text, HasSubstr("Label 0   somelongervalue 0\nLabel 1   somelongervalue 1\n"));
   EXPECT_THAT(text, HasSubstr(std::string(28, 'y') + "\n"));
}

TEST(TextReport, HoldsNoControlBytesAndTheFrontTellsWhatIsWrong)
{
   TRunFacts facts;
   facts.fMachine = "node\x1B[2J\r\n-1";
   facts.fProduct = "Zander 5";
   TDocumentOptions options;
   options.fIsOneFile = true;
   TDocumentRun<TTextReport> run(options, facts);
   run.BeginPage("cv", "Configuration\x07");
   run.GetFlow().WriteNote("tab\there \xFF \x9F");
   run.EndPage("cv");
   run.BeginPage("none", "Nothing");
   run.EndPage("none", false);
   THealth health;
   TSubsystemHealth& disks = health.Get(ESubsystem::kDisks);
   disks.fState = EState::kFailed;
   disks.fFindings = {{EState::kFailed, "Drive 2 has failed.", "State = Defunct", {}}};
   TRunOutcome outcome;
   outcome.fHealth = health;
   run.GetReport().TakeOutcome(outcome);
   const std::string text = run.EndRun("all");
   for (const char byte : text)
      EXPECT_TRUE(static_cast<unsigned char>(byte) >= 0x20 || byte == '\n');
   EXPECT_THAT(text, HasSubstr("Model                   Zander 5\n"));
   EXPECT_THAT(text, HasSubstr("Health: FAILED\n--------------\n\nDisks and arrays"));
   EXPECT_THAT(text, HasSubstr("   Drive 2 has failed. (State = Defunct)\n"));
   EXPECT_THAT(text, HasSubstr("   Entry of none" + std::string(47, ' ') + "no data\n"));
   EXPECT_THAT(text, HasSubstr("tab here"));
   EXPECT_THAT(text, testing::Not(HasSubstr("\nNothing\n")));
}

TEST(WrapText, BreaksAtBlanksAndLongWordsWhereItMust)
{
   EXPECT_THAT(WrapText("one two three", 7), ElementsAre("one two", "three"));
   EXPECT_THAT(WrapText("abcdefgh ij", 3), ElementsAre("abc", "def", "gh", "ij"));
   EXPECT_THAT(WrapText("a  \n\nb", 5), ElementsAre("a  ", "", "b"));
   EXPECT_THAT(WrapText("  indented text", 10), ElementsAre("  indented", "text"));
   EXPECT_THAT(WrapText("风扇风扇", 5), ElementsAre("风扇", "风扇"));
   EXPECT_THAT(WrapText("", 5), ElementsAre(""));
}

}  // namespace
