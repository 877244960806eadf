#include "json/JsonReport.h"

#include <utility>

#include "common/StateName.h"

namespace {

constexpr const char* kIndexFile = "index.json";

}  // namespace

TJsonReport::TJsonReport(TDocumentOptions options, std::string oneFileName)
   : TDocumentReport(std::move(options), std::move(oneFileName), ".json")
{}

// Documents.

void TJsonReport::BeginRun(const std::string& outputDirectory, const TRunFacts& facts)
{
   TDocumentReport::BeginRun(outputDirectory, facts);
   fPages.clear();
   if (IsOneFile())
      fFile.emplace(GetPath(""));
}

void TJsonReport::BeginDocument(const std::string& file, const char* format)
{
   if (!IsOneFile())
      fFile.emplace(GetPath(file));
   fDocument.emplace(*fFile);
   fDocument->Member("format", format);
   fDocument->Member("version", std::uint64_t{kVersion});
}

void TJsonReport::EndDocument()
{
   fDocument->End();
   fDocument.reset();
   if (IsOneFile())
      return;
   fFile->Close();
   fFile.reset();
}

/// In one file a document is a line.
void TJsonReport::BreakLine()
{
   if (!IsOneFile())
      fDocument->BreakLine();
}

void TJsonReport::EndRun(const TReportIndex& index)
{
   BeginDocument(kIndexFile, "qsxreport-index");
   fDocument->MemberIfAny("program", fOptions.fProgram);
   fDocument->MemberIfAny("source", fOptions.fSource);
   fDocument->MemberIfAny("written", fOptions.fWritten);
   WriteFacts();
   WriteSystems();
   WriteHealth();
   WriteGroups(index);
   WritePages(index);
   EndDocument();
   if (fFile)
      fFile->Close();
   fFile.reset();
}

// Pages.

void TJsonReport::BeginPage(const std::string& linkName)
{
   fPages.push_back({linkName, AssignFile(linkName)});
   BeginDocument(fPages.back().fFile, "qsxreport-page");
   fDocument->Member("file", fPages.back().fFile);
   fDocument->Member("linkName", linkName);
   fDocument->Get().Key("content");
   fDocument->Get().StartArray();
}

void TJsonReport::EndPage()
{
   fDocument->Get().EndArray();
   EndDocument();
}

void TJsonReport::BeginItem(const char* type)
{
   BreakLine();
   fDocument->Get().StartObject();
   fDocument->Member("type", type);
}

void TJsonReport::EndItem()
{
   fDocument->Get().EndObject();
   fDocument->FlushIfLong();
}

void TJsonReport::WriteReportTitle(const std::string& title, const std::string& linkText,
                                   const std::string& linkTarget)
{
   BeginItem("title");
   fDocument->Member("text", title);
   fDocument->MemberIfAny("linkText", linkText);
   fDocument->MemberIfAny("linkTarget", linkTarget);
   EndItem();
}

void TJsonReport::WriteTableTitle(const TTableTitle& title)
{
   BeginItem("tableTitle");
   fDocument->Member("text", title.fText);
   fDocument->MemberIfTrue("subTitle", title.fIsSubTitle);
   fDocument->MemberIfTrue("emphasised", title.fIsEmphasised);
   if (title.fSameItems > 0)
      fDocument->Member("sameItems", title.fSameItems);
   EndItem();
}

void TJsonReport::WriteNote(const std::string& text)
{
   BeginItem("note");
   fDocument->Member("text", text);
   EndItem();
}

void TJsonReport::BeginTable(const TTableShape& shape)
{
   BeginItem("table");
   TJsonWriter& json = fDocument->Get();
   fDocument->Member("style", shape.fKind == ETableKind::kColumns ? "columns" : "rows");
   fDocument->MemberIfAny("caption", shape.fCaption);
   fDocument->MemberIfTrue("sortable", shape.fSortable);
   fDocument->MemberIfTrue("marked", shape.fMarked);
   fDocument->MemberIfTrue("rowLabels", shape.fHasRowLabels);
   if (shape.fWidth > 0)
      fDocument->Member("width", static_cast<std::uint64_t>(shape.fWidth));
   if (!shape.fColumnWidths.empty()) {
      json.Key("columnWidths");
      json.StartArray();
      for (const int width : shape.fColumnWidths)
         json.Int(width);
      json.EndArray();
   }
   json.Key("labels");
   json.StartArray();
   for (const std::string& label : shape.fLabels)
      WriteJsonText(json, label);
   json.EndArray();
   json.Key("rows");
   json.StartArray();
}

void TJsonReport::WriteRows(const TTableRows& rows)
{
   TJsonWriter& json = fDocument->Get();
   for (std::size_t row = 0; row < rows.GetRowCount(); ++row) {
      BreakLine();
      json.StartArray();
      for (std::size_t column = 0; column < rows.GetCellCount(row); ++column)
         WriteCell(rows.GetCell(row, column));
      json.EndArray();
      fDocument->FlushIfLong();
   }
}

/// What a cell is not, is not told.
void TJsonReport::WriteCell(const TCell& cell)
{
   TJsonDocument& document = *fDocument;
   document.Get().StartObject();
   document.Member("text", cell.fText);
   switch (cell.fKind) {
      case ECellKind::kText:
         document.MemberIfAny("untranslated", cell.fSecondText);
         break;
      case ECellKind::kResultFile:
         document.Member("kind", "resultFile");
         document.Member("file", cell.fSecondText);
         break;
      case ECellKind::kScore:
         document.Member("kind", "score");
         break;
      case ECellKind::kFrequencies:
         document.Member("kind", "frequencies");
         document.Member("frequencies", cell.fSecondText);
         break;
   }
   if (const char* state = GetStateName(cell.fState))
      document.Member("state", state);
   document.MemberIfTrue("label", cell.fIsLabel);
   document.MemberIfTrue("monospaced", cell.fMonospaced);
   document.MemberIfTrue("same", cell.fSame);
   document.Get().EndObject();
}

void TJsonReport::EndTable()
{
   fDocument->Get().EndArray();
   EndItem();
}

// The index.

void TJsonReport::WriteFacts()
{
   const std::pair<const char*, const std::string&> facts[] = {
      {"name", fFacts.fMachine},
      {"model", fFacts.fProduct},
      {"serialNumber", fFacts.fSerialNumber},
      {"operatingSystem", fFacts.fSystem},
      {"kernel", fFacts.fKernel},
      {"collected", fFacts.fCollected},
      {"timeZone", fFacts.fTimeZone},
      {"upTime", fFacts.fUpTime},
      {"collectedBy", fFacts.fCollectedBy}};
   fDocument->Get().Key("machine");
   fDocument->Get().StartObject();
   for (const auto& [name, text] : facts)
      fDocument->MemberIfAny(name, text);
   fDocument->Get().EndObject();
}

void TJsonReport::WriteSystems()
{
   if (!fFacts.IsComparison())
      return;
   TJsonWriter& json = fDocument->Get();
   json.Key("comparedSystems");
   json.StartArray();
   for (const TComparedSystem& system : fFacts.fComparedSystems) {
      json.StartObject();
      fDocument->Member("label", system.fLabel);
      fDocument->MemberIfAny("serialNumber", system.fSerialNumber);
      fDocument->MemberIfAny("operatingSystem", system.fSystem);
      fDocument->MemberIfAny("collected", system.fCollected);
      fDocument->MemberIfAny("timeZone", system.fTimeZone);
      fDocument->MemberIfAny("file", system.fFile);
      json.EndObject();
   }
   json.EndArray();
}

void TJsonReport::WriteHealth()
{
   if (!fHealth)
      return;
   TJsonWriter& json = fDocument->Get();
   json.Key("health");
   json.StartObject();
   fDocument->Member("verdict", GetStateName(fHealth->GetVerdict()));
   json.Key("subsystems");
   json.StartArray();
   for (const ESubsystem each : fHealth->GetOrder()) {
      const TSubsystemHealth& subsystem = fHealth->Get(each);
      BreakLine();
      json.StartObject();
      fDocument->Member("name", GetSubsystemName(each));
      if (const char* state = GetStateName(subsystem.fState))
         fDocument->Member("state", state);
      fDocument->Member("failed", subsystem.fFailed);
      fDocument->Member("attention", subsystem.fAttention);
      fDocument->Member("unknown", subsystem.fUnknown);
      json.Key("findings");
      json.StartArray();
      for (const TFinding& finding : subsystem.fFindings)
         WriteFinding(finding);
      json.EndArray();
      json.EndObject();
   }
   json.EndArray();
   json.EndObject();
}

void TJsonReport::WriteFinding(const TFinding& finding)
{
   TJsonWriter& json = fDocument->Get();
   json.StartObject();
   fDocument->Member("text", finding.fText);
   if (const char* state = GetStateName(finding.fState))
      fDocument->Member("state", state);
   fDocument->MemberIfAny("source", finding.fSource);
   if (finding.fPlace.fPage < fPages.size()) {
      fDocument->Member("file", fPages[finding.fPlace.fPage].fFile);
      fDocument->Member("table", std::uint64_t{finding.fPlace.fTable});
      fDocument->Member("row", finding.fPlace.fRow);
      fDocument->Member("column", std::uint64_t{finding.fPlace.fColumn});
   }
   json.EndObject();
}

void TJsonReport::WriteFileOf(const char* name, std::size_t page)
{
   if (page < fPages.size())
      return fDocument->Member(name, fPages[page].fFile);
   fDocument->Get().Key(name);
   fDocument->Get().Null();
}

void TJsonReport::WriteGroups(const TReportIndex& index)
{
   TJsonWriter& json = fDocument->Get();
   json.Key("groups");
   json.StartArray();
   for (const TReportIndex::TGroup& group : index.GetGroups()) {
      BreakLine();
      json.StartObject();
      fDocument->Member("heading", group.fHeading);
      json.Key("reports");
      json.StartArray();
      for (const TReportIndex::TEntry& entry : group.fEntries) {
         BreakLine();
         json.StartObject();
         fDocument->Member("linkName", entry.fLinkName);
         fDocument->Member("name", entry.fDisplayName);
         fDocument->Member("hasData", entry.fHasData);
         WriteFileOf("file", entry.fPage);
         json.EndObject();
      }
      json.EndArray();
      json.EndObject();
   }
   json.EndArray();
}

/// Every page, also one that no entry of the index leads to.
void TJsonReport::WritePages(const TReportIndex& index)
{
   TJsonWriter& json = fDocument->Get();
   const std::vector<TReportIndex::TPlace> places = index.GetPlaces();
   json.Key("pages");
   json.StartArray();
   for (std::size_t page = 0; page < fPages.size(); ++page) {
      BreakLine();
      json.StartObject();
      fDocument->Member("file", fPages[page].fFile);
      fDocument->Member("linkName", fPages[page].fLinkName);
      const bool hasEntry = page < places.size() && places[page].fEntry != nullptr;
      fDocument->Member("hasData", hasEntry && places[page].fEntry->fHasData);
      json.EndObject();
   }
   json.EndArray();
}
