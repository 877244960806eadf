#include "json/JsonReport.h"

#include <gmock/gmock.h>

#include "formats/TDocumentRun.h"
#include "formats/json/JsonSchema.h"

namespace {

using testing::HasSubstr;

TCell MakeCell(std::string_view text, std::string_view second = "",
               ECellKind kind = ECellKind::kText, EState state = EState::kNone)
{
   TCell cell;
   cell.fText = text;
   cell.fSecondText = second;
   cell.fKind = kind;
   cell.fState = state;
   return cell;
}

/// A page with all that a page can hold, and the index entries around it.
void FillRun(TDocumentRun<TJsonReport>& run)
{
   run.BeginPage("cv", "Configuration");
   run.GetFlow().WriteTableTitle({"Fans", true, true, 3});
   run.GetFlow().WriteNote("A sentence.");
   run.GetFlow().BeginColumnTable("60%", "Fans", true);
   run.AddTextRow({"Name", "State"}, true);
   run.AddRow({MakeCell("Fan 1"), MakeCell("Failed", "5", ECellKind::kText, EState::kFailed)});
   TCell same = MakeCell("x");
   same.fSame = same.fMonospaced = true;
   run.AddRow({MakeCell("a.txt", "a-1.txt", ECellKind::kResultFile), same});
   run.AddRow(
      {MakeCell("97", "", ECellKind::kScore), MakeCell("1\n2", "9\n1", ECellKind::kFrequencies)});
   run.GetFlow().EndTable();
   run.EndPage("cv");
   run.BeginPage("none", "Nothing");
   run.EndPage("none", false);
}

TEST(JsonReport, APageHoldsEveryCellWithItsMarks)
{
   TDocumentRun<TJsonReport> run;
   FillRun(run);
   EXPECT_EQ(R"({"format":"qsxreport-page","version":1,"file":"cv.json","linkName":"cv","content":[
{"type":"title","text":"Configuration"}
,{"type":"tableTitle","text":"Fans","subTitle":true,"emphasised":true,"sameItems":3}
,{"type":"note","text":"A sentence."}
,{"type":"table","style":"columns","caption":"Fans","sortable":true,"width":60,"labels":["Name","State"],"rows":[
[{"text":"Fan 1"},{"text":"Failed","untranslated":"5","state":"failed"}]
,[{"text":"a.txt","kind":"resultFile","file":"a-1.txt"},{"text":"x","monospaced":true,"same":true}]
,[{"text":"97","kind":"score"},{"text":"1\n2","kind":"frequencies","frequencies":"9\n1"}]]}]}
)",
             run.EndRun("cv.json"));
}

TEST(JsonReport, TheIndexLeadsToThePagesAndTellsWhichHaveNoData)
{
   TRunFacts facts;
   facts.fMachine = "node-1";
   facts.fComparedSystems = {{"node-1", "SN1", "Linux", "", "", "a.mof"},
                             {"node-2", "", "", "", "", ""}};
   TDocumentRun<TJsonReport> run({}, facts);
   FillRun(run);
   THealth health;
   TSubsystemHealth& disks = health.Get(ESubsystem::kDisks);
   disks.fState = EState::kFailed;
   disks.fFailed = 1;
   disks.fFindings = {{EState::kFailed, "Drive 2 has failed.", "State = Defunct", {0, 1, 2, 3}}};
   TRunOutcome outcome;
   outcome.fHealth = health;
   run.GetReport().TakeOutcome(outcome);
   const std::string index = run.EndRun("index.json");
   EXPECT_EQ("", FindSchemaError(index));
   for (
      const char* part :
      {R"("machine":{"name":"node-1"},"comparedSystems":[{"label":"node-1","serialNumber":"SN1",)",
       R"("health":{"verdict":"failed","subsystems":[)",
       R"({"text":"Drive 2 has failed.","state":"failed","source":"State = Defunct","file":"cv.json","table":1,"row":2,"column":3})",
       R"({"linkName":"cv","name":"Entry of cv","hasData":true,"file":"cv.json"})",
       R"({"linkName":"none","name":"Entry of none","hasData":false,"file":"none.json"})"})
      EXPECT_THAT(index, HasSubstr(part));
}

TEST(JsonReport, InOneFileADocumentIsALineAndTheIndexTheLast)
{
   TDocumentOptions options;
   options.fIsOneFile = true;
   TDocumentRun<TJsonReport> run(options);
   FillRun(run);
   std::istringstream lines(run.EndRun("all"));
   std::vector<std::string> formats;
   for (std::string line; std::getline(lines, line);) {
      EXPECT_EQ("", FindSchemaError(line));
      formats.push_back(line.substr(11, line.find('"', 11) - 11));
   }
   EXPECT_THAT(formats,
               testing::ElementsAre("qsxreport-page", "qsxreport-page", "qsxreport-index"));
}

TEST(JsonReport, StaysJsonWhateverTheDataHolds)
{
   TDocumentRun<TJsonReport> run;
   const std::string odd("\xFF\xC3 \"\\\n\x1B\x00 \xED\xA0\x80 \xE2\x80\xA8 </script>", 26);
   run.BeginPage(odd, odd);
   run.GetFlow().BeginColumnTable("1%", odd, false);
   run.AddTextRow({odd}, true);
   run.AddTextRow({odd});
   run.GetFlow().EndTable();
   run.EndPage(odd);
   const std::string index = run.EndRun("index.json");
   EXPECT_EQ("", FindSchemaError(index));
   EXPECT_THAT(index, HasSubstr(R"(\u001B\u0000)"));
}

}  // namespace
