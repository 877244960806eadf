#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "text/KeyValues.h"

namespace NZANQSX20 {

class TCollected;
class TMachine;
struct TNeed;

/// A structure of the machine's own description (SMBIOS), as dmidecode prints it.
/// Owner: views of the printed text.
struct TDMIRecord
{
   /// 4 processor, 7 cache, 16 memory array, 17 memory module, ...
   int fType = 0;
   /// "0x0040"
   std::string_view fHandle;
   TKeyValues fFields;
   /// All of its lines, those of its lists among them, without the tabs.
   std::vector<std::string_view> fLines = {};

   /// Missing: empty for a value that stands for none, such as "Not Specified".
   std::string_view Get(std::string_view field) const;
};

/// The whole table. Owner: keeps the text.
class TDMITable
{
public:
   /// Names a gap in the collection when the table can't be had; it is then empty.
   TDMITable(const TMachine& machine, TCollected& collected, const TNeed& need);

   /// Those of a type, in the order of the table.
   std::vector<const TDMIRecord*> GetRecords(int type) const;
   /// Missing: null.
   const TDMIRecord* Find(std::string_view handle) const;

private:
   std::string fText;
   std::vector<TDMIRecord> fRecords;
};

/// Whether a text is one that makers leave where no value was filled in.
bool IsFiller(std::string_view text);

}  // namespace NZANQSX20
