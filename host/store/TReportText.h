#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "TCIMValue.h"
#include "store/TStoredValue.h"

namespace NZANQSX20 {

class TStoredProperty;

/// How the values of one declared property read in a report: words of its value map, its unit, or
/// the plain form of the type. Worked out once per declaration, used for every value.
///
/// Shape: of arrays, each element reads by itself and the texts are joined by ", ".
class TReportText
{
public:
   /// Of a property without declaration.
   TReportText() = default;
   explicit TReportText(const TStoredProperty& property);

   /// The text of a single value. Missing: empty for a null.
   std::string GetText(const TCIMValue& value) const;

   /// Whether strings read as they are.
   bool IsPlain() const { return !fHasValueMap; }

   /// Whether the text of this value, or of an array's elements, is a translation: a word or a
   /// number with its unit.
   bool IsTranslation(const TCIMValue& value) const;

   /// Whether there is a value whose text is a translation.
   bool HasTranslations() const { return fHasValues || fUnit != EUnit::kNone; }

private:
   /// An integer of any type: the sign (-1 or 0) and the bits, in the order of the numbers.
   using TInteger = std::pair<int, std::uint64_t>;

   enum class EUnit
   {
      kNone,
      kBytes,         // "1,234 KB"
      kSeconds,       // "1 hour 2 minutes"
      kMilliSeconds,  // "1 hour 2 minutes 3 seconds 4 milliseconds"
      kOther          // number, blank, unit
   };

   struct TRange
   {
      TInteger fFirst;
      TInteger fLast;
      std::size_t fEntry;
   };

   void ReadValueMap(const std::vector<TCIMValue>& entries);
   static bool ReadRange(std::string_view entry, TRange& range);
   static bool ReadInteger(std::string_view text, TInteger& integer);

   bool HasWords(TCIMValue::ECIMType type) const;
   std::string GetWord(const TCIMValue& value) const;
   std::size_t FindEntry(const TCIMValue& value, const std::string& text) const;
   std::string GetUnitText(const TCIMValue& value) const;

   static constexpr std::size_t kNoEntry = static_cast<std::size_t>(-1);

   bool fHasValues = false;
   bool fHasValueMap = false;
   std::vector<std::string> fWords;
   std::unordered_map<std::string, std::size_t> fEntries;
   std::vector<TRange> fRanges;
   /// The entry ".." of the map, for what no other entry claims.
   std::size_t fOtherEntry = kNoEntry;
   EUnit fUnit = EUnit::kNone;
   std::string fUnitName;
};

}  // namespace NZANQSX20
