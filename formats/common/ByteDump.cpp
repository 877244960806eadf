#include "common/ByteDump.h"

#include <cstdio>

namespace {

constexpr std::size_t kBytesPerLine = 16;

}  // namespace

bool DumpBytes(const boost::shared_ptr<ICIMProperty>& property, std::string& text)
{
   if (!property)
      return false;
   try {
      if (!property->IsArray({}) || property->GetType({}) != TCIMValue::TCIMType::kUInt8)
         return false;
      const TCIMValue& value = property->GetValue(TContext());
      std::string dump;
      std::size_t offset = 0;
      if (!value.IsNull())
         for (const TCIMValue& element : static_cast<const std::vector<TCIMValue>&>(value)) {
            char number[24];
            if (offset % kBytesPerLine == 0) {
               std::snprintf(number, sizeof number, "%s%04zx ", offset > 0 ? "\n" : "", offset);
               dump += number;
            }
            std::snprintf(number, sizeof number, " %02x", static_cast<unsigned char>(element));
            dump += number;
            ++offset;
         }
      text = dump;
      return true;
   } catch (const TQSXException&) {
      return false;
   }
}
