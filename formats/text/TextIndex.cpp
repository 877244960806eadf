#include "text/TextIndex.h"

#include <utility>

#include "text/TextLines.h"

namespace {

constexpr std::size_t kIndent = 3;
constexpr std::size_t kNameWidth = 24;

const char* GetWord(EState state)
{
   switch (state) {
      case EState::kOk:
         return "OK";
      case EState::kAttention:
         return "ATTENTION";
      case EState::kFailed:
         return "FAILED";
      default:
         return "unknown";
   }
}

/// "Serial number          VM-0001", nothing without a text.
void WriteFact(TOutputFile& file, std::string_view name, std::string_view text)
{
   if (text.empty())
      return;
   const std::string shown = MakeShownText(text);
   bool isFirst = true;
   for (const std::string_view part : WrapText(shown, kLineWidth - kNameWidth)) {
      std::string line;
      AppendPadded(line, isFirst ? name : "", kNameWidth);
      line += part;
      file.Write(line + '\n');
      isFirst = false;
   }
}

void WriteFacts(TOutputFile& file, const TTextIndex& index)
{
   const TRunFacts& facts = index.fFacts;
   const std::pair<const char*, const std::string&> lines[] = {
      {"Model", facts.fProduct},           {"Serial number", facts.fSerialNumber},
      {"Operating system", facts.fSystem}, {"Kernel", facts.fKernel},
      {"Collected", facts.fCollected},     {"Time zone", facts.fTimeZone},
      {"Up time", facts.fUpTime},          {"Collected by", facts.fCollectedBy},
      {"Source", index.fOptions.fSource},  {"Written", index.fOptions.fWritten},
      {"Program", index.fOptions.fProgram}};
   for (const auto& [name, text] : lines)
      WriteFact(file, name, text);
   file.Write("\n");
}

void WriteSystems(TOutputFile& file, const TRunFacts& facts)
{
   if (!facts.IsComparison())
      return;
   WriteTextHeading(file, "Compared systems", '-');
   bool isBase = true;
   for (const TComparedSystem& system : facts.fComparedSystems) {
      WriteTextLines(file, system.fLabel + (isBase ? " (the base)" : ""));
      for (const std::string* text :
           {&system.fSystem, &system.fSerialNumber, &system.fCollected, &system.fFile})
         if (!text->empty())
            WriteTextLines(file, *text, kIndent);
      isBase = false;
   }
   file.Write("\n");
}

void WriteHealth(TOutputFile& file, const THealth& health)
{
   WriteTextHeading(file, std::string("Health: ") + GetWord(health.GetVerdict()), '-');
   for (const ESubsystem each : health.GetOrder()) {
      const TSubsystemHealth& subsystem = health.Get(each);
      std::string line;
      AppendPadded(line, GetSubsystemName(each), kNameWidth + kIndent + 4);
      file.Write(line + GetWord(subsystem.fState) + '\n');
      for (const TFinding& finding : subsystem.fFindings) {
         if (finding.fState == EState::kOk)
            continue;
         const std::string source = finding.fSource.empty() ? "" : " (" + finding.fSource + ')';
         WriteTextLines(file, finding.fText + source, kIndent);
      }
   }
   file.Write("\n");
}

void WriteEntry(TOutputFile& file, const TTextIndex& index, const TReportIndex::TEntry& entry)
{
   constexpr std::size_t kReportWidth = 60;
   const std::string name = MakeShownText(entry.fDisplayName);
   const bool hasFile = entry.fHasData && entry.fPage < index.fFiles.size();
   const std::string_view place = !entry.fHasData ? "no data"
                                  : hasFile       ? std::string_view(index.fFiles[entry.fPage])
                                                  : "";
   // A file name has 84 bytes at most.
   if (GetWidth(name) >= kReportWidth || GetWidth(place) + kReportWidth + kIndent > kLineWidth) {
      WriteTextLines(file, name, kIndent);
      WriteTextLines(file, place, 2 * kIndent);
      return;
   }
   std::string line(kIndent, ' ');
   if (place.empty())
      line += name;
   else
      AppendPadded(line, name, kReportWidth);
   line += place;
   file.Write(line + '\n');
}

}  // namespace

void WriteTextIndex(TOutputFile& file, const TTextIndex& index)
{
   WriteTextHeading(file, index.fFacts.GetName(), '=');
   WriteFacts(file, index);
   WriteSystems(file, index.fFacts);
   if (index.fHealth != nullptr)
      WriteHealth(file, *index.fHealth);
   WriteTextHeading(file, "Reports", '-');
   for (const TReportIndex::TGroup& group : index.fIndex.GetGroups()) {
      WriteTextLines(file, group.fHeading);
      for (const TReportIndex::TEntry& entry : group.fEntries)
         WriteEntry(file, index, entry);
   }
   file.Write("\n");
   WriteTextLines(file,
                  "(!) needs attention, (!!) failed, = as in the base of a comparison; the value "
                  "before its translation stands in brackets.");
}

void WriteTextHeading(TOutputFile& file, std::string_view text, char underline)
{
   const std::string shown = MakeShownText(text);
   std::size_t width = 0;
   for (const std::string_view line : WrapText(shown, kLineWidth)) {
      file.Write(line);
      file.Write("\n");
      width = std::max(width, GetWidth(line));
   }
   file.Write(std::string(width, underline) + "\n\n");
}

void WriteTextLines(TOutputFile& file, std::string_view text, std::size_t indent)
{
   const std::string shown = MakeShownText(text);
   for (const std::string_view line : WrapText(shown, kLineWidth - indent)) {
      if (!line.empty())
         file.Write(std::string(indent, ' '));
      file.Write(line);
      file.Write("\n");
   }
}
