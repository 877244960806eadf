#include "store/TReportText.h"

#include <algorithm>
#include <charconv>
#include <limits>

#include <fmt/format.h>

#include "TCIMDateTime.h"
#include "store/TStoredClass.h"
#include "store/ValueText.h"

namespace NZANQSX20 {

using TType = TCIMValue::TCIMType;

namespace {

/// The elements of an array qualifier; a single value is an array of one.
std::vector<TCIMValue> GetElements(const TQualifierDecl* qualifier)
{
   if (qualifier == nullptr || qualifier->fValue.IsNull())
      return {};
   if (!qualifier->fValue.IsArray())
      return {qualifier->fValue};
   return static_cast<const std::vector<TCIMValue>&>(qualifier->fValue);
}

/// "1,234": the digits in groups of three.
std::string GroupThousands(std::uint64_t number)
{
   std::string digits = std::to_string(number);
   for (std::size_t end = digits.size(); end > 3; end -= 3)
      digits.insert(end - 3, 1, ',');
   return digits;
}

void AppendPart(std::string& text, std::uint64_t count, const char* unit)
{
   if (count == 0)
      return;
   if (!text.empty())
      text += ' ';
   text += fmt::format("{} {}{}", count, unit, count == 1 ? "" : "s");
}

/// The parts that are not zero: "1 hour 2 minutes 3 seconds 4 milliseconds".
std::string GetDurationText(std::uint64_t milliseconds, std::uint64_t seconds)
{
   std::string text;
   AppendPart(text, seconds / 3600, "hour");
   AppendPart(text, seconds / 60 % 60, "minute");
   AppendPart(text, seconds % 60, "second");
   AppendPart(text, milliseconds, "millisecond");
   return text.empty() ? "0 seconds" : text;
}

const char* FindBytesUnit(const std::string& unit)
{
   static const std::pair<const char*, const char*> kUnits[] = {
      {"Bytes", "Bytes"}, {"KiloBytes", "KB"}, {"MegaBytes", "MB"}, {"GigaBytes", "GB"}};
   for (const auto& known : kUnits) {
      if (unit == known.first)
         return known.second;
   }
   return nullptr;
}

}  // namespace

TReportText::TReportText(const TStoredProperty& property)
{
   for (const TCIMValue& word : GetElements(property.FindQualifier("Values")))
      fWords.push_back(word.ToString(10));
   fHasValues = !fWords.empty();
   const std::vector<TCIMValue> entries = GetElements(property.FindQualifier("ValueMap"));
   fHasValueMap = fHasValues && !entries.empty();
   if (fHasValueMap)
      ReadValueMap(entries);

   const TQualifierDecl* units = property.FindQualifier("Units");
   if (units == nullptr)
      return;
   fUnitName = units->fValue.ToString(10);
   const char* bytes = FindBytesUnit(fUnitName);
   if (bytes != nullptr) {
      fUnit = EUnit::kBytes;
      fUnitName = bytes;
   } else if (fUnitName == "Seconds") {
      fUnit = EUnit::kSeconds;
   } else if (fUnitName == "MilliSeconds") {
      fUnit = EUnit::kMilliSeconds;
   } else if (!fUnitName.empty()) {
      fUnit = EUnit::kOther;
   }
}

void TReportText::ReadValueMap(const std::vector<TCIMValue>& entries)
{
   for (std::size_t i = 0; i < entries.size(); ++i) {
      const std::string entry = entries[i].ToString(10);
      TRange range;
      if (entry == "..") {
         fOtherEntry = std::min(fOtherEntry, i);
      } else if (ReadRange(entry, range)) {
         range.fEntry = i;
         fRanges.push_back(range);
      } else {
         fEntries.emplace(entry, i);
      }
   }
}

bool TReportText::ReadInteger(std::string_view text, TInteger& integer)
{
   const char* end = text.data() + text.size();
   const bool isNegative = !text.empty() && text[0] == '-';
   std::int64_t number = 0;
   std::from_chars_result read{};
   if (isNegative)
      read = std::from_chars(text.data(), end, number);
   else
      read = std::from_chars(text.data(), end, integer.second);
   if (read.ec != std::errc() || read.ptr != end)
      return false;
   if (isNegative)
      integer.second = static_cast<std::uint64_t>(number);
   integer.first = isNegative && number != 0 ? -1 : 0;
   return true;
}

bool TReportText::ReadRange(std::string_view entry, TRange& range)
{
   const std::size_t dots = entry.find("..");
   if (dots == std::string_view::npos)
      return false;
   const std::string_view first = entry.substr(0, dots);
   const std::string_view last = entry.substr(dots + 2);
   range.fFirst = {-1, 0};
   range.fLast = {0, std::numeric_limits<std::uint64_t>::max()};
   const bool isFirstRead = first.empty() || ReadInteger(first, range.fFirst);
   const bool isLastRead = last.empty() || ReadInteger(last, range.fLast);
   return isFirstRead && isLastRead;
}

bool TReportText::HasWords(TCIMValue::ECIMType type) const
{
   // Without a map, an integer is the index of its word.
   return fHasValues && (fHasValueMap || IsIntegerType(type));
}

bool TReportText::IsTranslation(const TCIMValue& value) const
{
   const bool hasUnit = fUnit != EUnit::kNone && IsIntegerType(value.GetType());
   return !value.IsNull() && (HasWords(value.GetType()) || hasUnit);
}

std::string TReportText::GetText(const TCIMValue& value) const
{
   const TCIMValue::ECIMType type = value.GetType();
   if (value.IsNull())
      return std::string();
   if (HasWords(type))
      return GetWord(value);
   if (fUnit != EUnit::kNone && IsIntegerType(type))
      return GetUnitText(value);
   if (type == TType::kBoolean)
      return static_cast<bool>(value) ? "True" : "False";
   if (type == TType::kDateTime)
      return static_cast<TCIMDateTime>(value).ToUIString();
   return value.ToString(10);
}

std::string TReportText::GetWord(const TCIMValue& value) const
{
   const std::string text = value.ToString(10);
   const std::size_t entry = FindEntry(value, text);
   return entry < fWords.size() ? fWords[entry] : "Unknown (" + text + ")";
}

std::size_t TReportText::FindEntry(const TCIMValue& value, const std::string& text) const
{
   const bool isInteger = IsIntegerType(value.GetType());
   TInteger integer;
   const bool isRead = isInteger && ReadInteger(text, integer);
   if (!fHasValueMap)
      return isRead && integer.first == 0 ? integer.second : kNoEntry;

   const auto exact = fEntries.find(text);
   std::size_t entry = exact != fEntries.end() ? exact->second : kNoEntry;
   if (isRead) {
      for (const TRange& range : fRanges) {
         if (range.fFirst <= integer && integer <= range.fLast)
            entry = std::min(entry, range.fEntry);
      }
   }
   return entry != kNoEntry ? entry : fOtherEntry;
}

std::string TReportText::GetUnitText(const TCIMValue& value) const
{
   const bool isNegative = IsSignedType(value.GetType()) && static_cast<std::int64_t>(value) < 0;
   const std::uint64_t bits = static_cast<std::uint64_t>(value);
   const std::uint64_t number = isNegative ? 0 - bits : bits;
   const std::string sign = isNegative ? "-" : "";
   switch (fUnit) {
      case EUnit::kBytes:
         return sign + GroupThousands(number) + " " + fUnitName;
      case EUnit::kSeconds:
         return sign + GetDurationText(0, number);
      case EUnit::kMilliSeconds:
         return sign + GetDurationText(number % 1000, number / 1000);
      default:
         return sign + std::to_string(number) + " " + fUnitName;
   }
}

}  // namespace NZANQSX20
