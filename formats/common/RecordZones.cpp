#include "common/RecordZones.h"

#include <algorithm>
#include <limits>

namespace {

constexpr short kUnknown = std::numeric_limits<short>::min();
// "yyyymmddHHMMSS.mmmmmm+UUU"
constexpr std::size_t kTextLength = 25;
constexpr std::size_t kDigits = 14;
constexpr std::size_t kSign = 21;

bool IsDigit(char c)
{
   return c >= '0' && c <= '9';
}

/// All digits of the text as one number; 0 where there are not as many as a time has.
std::uint64_t GetTimeKey(std::string_view text)
{
   std::uint64_t key = 0;
   std::size_t digits = 0;
   for (const char c : text)
      if (IsDigit(c)) {
         key = key * 10 + static_cast<std::uint64_t>(c - '0');
         ++digits;
      }
   return digits == kDigits ? key : 0;
}

short ReadOffset(std::string_view text)
{
   const std::string_view digits = text.substr(kSign + 1);
   if (!std::all_of(digits.begin(), digits.end(), IsDigit))
      return kUnknown;
   int minutes = 0;
   for (const char c : digits)
      minutes = minutes * 10 + (c - '0');
   return static_cast<short>(text[kSign] == '-' ? -minutes : minutes);
}

}  // namespace

std::optional<short> TRecordZones::Find(std::string_view timeText)
{
   // Once read, questions change nothing: two threads may ask.
   if (!fIsRead) {
      Read();
      fIsRead = true;
   }
   const std::uint64_t key = GetTimeKey(timeText);
   if (fCommon)
      return key == 0 ? std::nullopt : fCommon;
   const auto found = std::lower_bound(fOffsets.begin(), fOffsets.end(), TEntry(key, kUnknown));
   if (key == 0 || found == fOffsets.end() || found->first != key || found->second == kUnknown)
      return std::nullopt;
   const auto next = found + 1;
   const bool isAmbiguous = next != fOffsets.end() && next->first == key;
   return isAmbiguous ? std::nullopt : std::make_optional(found->second);
}

void TRecordZones::Read()
{
   try {
      const auto cimClass = fNamespace->GetClass(fClass, {});
      if (!cimClass)
         return;
      // One by one: a log may have very many records.
      const auto read = [this](const boost::shared_ptr<ICIMInstance>& instance) {
         ReadInstance(*instance);
         return true;
      };
      cimClass->EnumerateInstances(read, true, {});
   } catch (const TQSXException&) {
      // What could be read counts.
   }
   Settle();
}

void TRecordZones::ReadInstance(ICIMInstance& instance)
{
   try {
      const auto property = instance.GetProperty(fProperty, {});
      const TCIMValue& value = property->GetValue(TContext());
      if (value.GetType() != TCIMValue::TCIMType::kDateTime || value.IsNull() || value.IsArray())
         return;
      const std::string text = value.ToString(10);
      if (text.size() == kTextLength && text[kSign] != ':')
         fOffsets.emplace_back(GetTimeKey(std::string_view(text).substr(0, kDigits)),
                               ReadOffset(text));
   } catch (const TQSXException&) {
      // A record without the property has no time.
   }
}

void TRecordZones::Settle()
{
   const bool isCommon = std::all_of(fOffsets.begin(), fOffsets.end(), [this](const TEntry& entry) {
      return entry.second == fOffsets.front().second && entry.second != kUnknown;
   });
   if (!fOffsets.empty() && isCommon) {
      fCommon = fOffsets.front().second;
      fOffsets = {};
      return;
   }
   std::sort(fOffsets.begin(), fOffsets.end());
   fOffsets.erase(std::unique(fOffsets.begin(), fOffsets.end()), fOffsets.end());
}
