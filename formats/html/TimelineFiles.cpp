#include "html/TimelineFiles.h"

#include <algorithm>
#include <optional>

#include <fmt/compile.h>
#include <fmt/format.h>

namespace {

constexpr unsigned kZoneUnknown = 4;
constexpr unsigned kNoDate = 8;
constexpr const char* kCellEnd = "\x1F";
constexpr std::size_t kPlacesPerCall = 10'000;

/// Whether it takes less to repeat the records than to have the rows of the whole table read.
bool IsRepeated(const TEventTable& table)
{
   return table.fColumns.fIsMerged && table.fEvents * 2 < table.fRows;
}

bool NeedsRows(const TEventTable& table)
{
   return table.fEvents > 0 && !IsRepeated(table);
}

class TTimelineFiles
{
public:
   TTimelineFiles(TEventLog& events, const TRowFiles& rowFiles) : fEvents(events), fRows(rowFiles)
   {}

   void WriteTables(const std::vector<std::string>& names,
                    const std::vector<std::string>& pageFiles)
   {
      const std::size_t dated = fEvents.GetCount() - fEvents.GetUndatedCount();
      GetFile().Write(fmt::format("qsxEventTables({},{},[", fEvents.HasSeverities() ? 1 : 0,
                                  dated == 0 ? 0 : fEvents.Get(dated - 1).fSeconds));
      const std::vector<TEventTable>& tables = fEvents.GetTables();
      for (std::size_t i = 0; i < tables.size(); ++i) {
         const TEventTable& table = tables[i];
         const bool needsRows = NeedsRows(table);
         GetFile().Write(
            fmt::format("{}[{},{},\"", i == 0 ? "" : ",\n", table.fPage, table.fPlace.fNumber));
         WriteScriptText(GetFile(), pageFiles[i]);
         GetFile().Write("\",\"");
         WriteScriptText(GetFile(), names[i]);
         GetFile().Write(fmt::format("\",{},{},[", needsRows ? table.fPlace.fFirstRowFile : 1,
                                     needsRows ? table.fPlace.fLastRowFile : 0));
         const TLogColumns& columns = table.fColumns;
         const char* separator = "";
         for (const std::size_t column : {columns.fTime, columns.fDate, columns.fSeverity,
                                          columns.fSource, columns.fMessage, columns.fLogName}) {
            const int number = column == TLogColumns::kNone ? -1 : static_cast<int>(column);
            GetFile().Write(fmt::format("{}{}", separator, number));
            separator = ",";
         }
         GetFile().Write("]]");
      }
      GetFile().Write("]);\n");
   }

   void WriteEvents()
   {
      for (std::size_t first = 0; first < fEvents.GetCount(); first += kPlacesPerCall) {
         const std::size_t end = std::min(fEvents.GetCount(), first + kPlacesPerCall);
         WriteOrder(first, end);
         for (std::size_t place = first; place < end; ++place)
            if (IsRepeated(fEvents.GetTables()[fEvents.Get(place).fTable]))
               WriteTexts(place);
      }
   }

   unsigned Close()
   {
      if (fFile)
         fFile->Close();
      fFile.reset();
      return fFileNumber;
   }

private:
   void WriteOrder(std::size_t first, std::size_t end)
   {
      fmt::memory_buffer text;
      for (std::size_t place = first; place < end; ++place) {
         const TEvent& event = fEvents.Get(place);
         const bool isDated = event.fSeconds != TEvent::kUndated;
         const bool hasNext =
            place + 1 < fEvents.GetCount() && fEvents.Get(place + 1).fSeconds != TEvent::kUndated;
         const bool isZoneUnknown = isDated && !event.fIsZoneKnown && fEvents.GetUtcOffset();
         const unsigned flags = static_cast<unsigned>(event.fSeverity) |
                                (isZoneUnknown ? kZoneUnknown : 0u) | (isDated ? 0u : kNoDate);
         fmt::format_to(fmt::appender(text), FMT_COMPILE("{}{},{},{},{}"),
                        place == first ? "" : ",", event.fTable, event.fRow,
                        isDated && hasNext ? event.fSeconds - fEvents.Get(place + 1).fSeconds : 0,
                        flags);
      }
      TOutputFile& file = GetFile();
      file.Write("qsxEvents([");
      file.Write({text.data(), text.size()});
      file.Write("]);\n");
   }

   void WriteTexts(std::size_t place)
   {
      const TEventTexts texts = fEvents.ReadTexts(fEvents.Get(place));
      TOutputFile& file = GetFile();
      file.Write(fmt::format("qsxEventText({},\"", place));
      const char* separator = "";
      for (const std::string_view text :
           {texts.fTime, texts.fSeverity, texts.fSource, texts.fMessage, texts.fLogName}) {
         file.Write(separator);
         WriteScriptText(file, text);
         separator = kCellEnd;
      }
      file.Write("\");\n");
   }

   TOutputFile& GetFile()
   {
      if (fFile && fFile->GetSize() >= TRowFiles::kBytesPerFile)
         Close();
      if (!fFile)
         fFile.emplace(fRows.GetPath(fmt::format("timeline{}.js", ++fFileNumber)));
      return *fFile;
   }

   TEventLog& fEvents;
   const TRowFiles& fRows;
   std::optional<TOutputFile> fFile;
   unsigned fFileNumber = 0;
};

}  // namespace

TRowFileRange FindRowFiles(const TEventLog& events)
{
   TRowFileRange range;
   unsigned needed = 0;
   for (const TEventTable& table : events.GetTables()) {
      if (!NeedsRows(table))
         continue;
      const TEventPlace& place = table.fPlace;
      range.fFirst =
         range.fFirst == 0 ? place.fFirstRowFile : std::min(range.fFirst, place.fFirstRowFile);
      range.fLast = std::max(range.fLast, place.fLastRowFile);
      needed += place.fLastRowFile - place.fFirstRowFile + 1;
   }
   return range.fLast - range.fFirst < needed * 2 ? range : TRowFileRange();
}

unsigned WriteTimelineFiles(TEventLog& events, const TRowFiles& rowFiles,
                            const std::vector<std::string>& logNames,
                            const std::vector<std::string>& pageFiles)
{
   TTimelineFiles files(events, rowFiles);
   files.WriteTables(logNames, pageFiles);
   files.WriteEvents();
   return files.Close();
}
