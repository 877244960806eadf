#include "text/DMIRecords.h"

#include <algorithm>
#include <array>
#include <cctype>

#include "TCollected.h"
#include "machine/TMachine.h"
#include "text/Text.h"

namespace NZANQSX20 {

namespace {

// In lower case.
constexpr std::array<std::string_view, 20> kFillers = {"not specified",
                                                       "not provided",
                                                       "not available",
                                                       "not applicable",
                                                       "not present",
                                                       "not defined",
                                                       "unknown",
                                                       "undefined",
                                                       "none",
                                                       "n/a",
                                                       "empty",
                                                       "default string",
                                                       "to be filled by o.e.m.",
                                                       "no dimm",
                                                       "system serial number",
                                                       "system product name",
                                                       "system manufacturer",
                                                       "system version",
                                                       "<out of spec>",
                                                       "<bad index>"};

/// "Handle 0x0040, DMI type 17, 84 bytes", then the name, then the fields, each behind a tab.
TDMIRecord ReadRecord(std::string_view block)
{
   const std::string_view heading = block.substr(0, block.find('\n'));
   const std::vector<std::string_view> words = SplitWords(heading);
   const auto type = words.size() > 4 ? ToNumber(words[4].substr(0, words[4].find(','))) : 0;
   const std::string_view handle = words.size() > 1 ? words[1].substr(0, words[1].find(',')) : "";
   return {static_cast<int>(type.value_or(0)), handle, TKeyValues("")};
}

}  // namespace

bool IsFiller(std::string_view text)
{
   std::string lower(Trim(text));
   std::transform(lower.begin(), lower.end(), lower.begin(), [](char character) {
      return static_cast<char>(std::tolower(static_cast<unsigned char>(character)));
   });
   return lower.empty() || std::find(kFillers.begin(), kFillers.end(), lower) != kFillers.end();
}

std::string_view TDMIRecord::Get(std::string_view field) const
{
   const std::string_view value = fFields.Get(field);
   return IsFiller(value) ? std::string_view() : value;
}

TDMITable::TDMITable(const TMachine& machine, TCollected& collected, const TNeed& need)
{
   const TReading reading = machine.RunTool("dmidecode", {});
   if (!collected.Has(reading, need))
      return;
   // The fields stand behind a tab; those behind two are lists.
   const std::string_view text = reading.fText;
   for (std::size_t at = 0; at < text.size(); ++at) {
      const bool isTab = text[at] == '\t' && (at == 0 || text[at - 1] == '\n');
      if (!isTab)
         fText += text[at];
   }
   for (const std::string_view block : SplitBlocks(fText))
      if (StartsWith(block, "Handle ")) {
         TDMIRecord record = ReadRecord(block);
         record.fFields = TKeyValues(block);
         for (const std::string_view line : SplitLines(block))
            record.fLines.push_back(Trim(line));
         fRecords.push_back(record);
      }
}

std::vector<const TDMIRecord*> TDMITable::GetRecords(int type) const
{
   std::vector<const TDMIRecord*> records;
   for (const TDMIRecord& record : fRecords)
      if (record.fType == type)
         records.push_back(&record);
   return records;
}

const TDMIRecord* TDMITable::Find(std::string_view handle) const
{
   for (const TDMIRecord& record : fRecords)
      if (record.fHandle == handle)
         return &record;
   return nullptr;
}

}  // namespace NZANQSX20
