#include <algorithm>
#include <cctype>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <memory>
#include <numeric>

#include "definitions/BoundedSort.h"
#include "definitions/TReportParameters.h"

using TInstanceSorter = TReportParameters::TInstanceSorter;
using TPropertyInfo = TInstanceSorter::TPropertyInfo;

namespace {

using TInstances = std::vector<boost::shared_ptr<ICIMInstance>>;

constexpr const char* kDigits = "0123456789";

void ConvertToUpperCase(std::string& text)
{
   for (char& c : text)
      c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
}

/// One key of one instance, read and brought into the form in which it is compared.
class TSortKey
{
public:
   TSortKey() = default;

   explicit TSortKey(TCIMValue value) : fValue(std::move(value)) {}

   /// -1, 0 or 1, by the order of values.
   int CompareValue(const TSortKey& other) const
   {
      return fValue < other.fValue ? -1 : other.fValue < fValue ? 1 : 0;
   }

   bool IsString() const { return fValue.GetType() == TCIMValue::TCIMType::kString; }

   /// The text in upper case.
   const std::string& GetText() { return GetWords().fText; }

   bool IsNumber() { return GetWords().fIsNumber; }

   /// What the text tells when it is a number.
   long GetNumber() { return GetWords().fNumber; }

private:
   struct TWords
   {
      std::string fText;
      long fNumber = 0;
      bool fIsNumber = false;
   };

   const TWords& GetWords()
   {
      if (fWords)
         return *fWords;
      fWords = std::make_unique<TWords>();
      fWords->fText = fValue.ToString(10);
      ConvertToUpperCase(fWords->fText);
      fWords->fIsNumber = TInstanceSorter::IsNumber(fWords->fText);
      if (fWords->fIsNumber)
         fWords->fNumber = std::strtol(fWords->fText.c_str(), nullptr, 10);
      return *fWords;
   }

   TCIMValue fValue;
   /// Made when the key is first compared as text.
   std::unique_ptr<TWords> fWords;
};

/// Hands the value over that an instance is sorted by.
template <typename TAction>
auto WithKey(ICIMInstance& instance, const std::string& property, const TAction& action)
{
   const boost::shared_ptr<ICIMProperty> held = instance.GetProperty(property, {});
   const TCIMValue& value = held->GetValue(TContext());
   if (!value.IsNull())
      return action(value);
   return action(instance.GetProperty(property, {})->GetValue());
}

TSortKey ReadKey(ICIMInstance& instance, const std::string& property)
{
   return WithKey(instance, property, [](const TCIMValue& value) { return TSortKey(value); });
}

template <typename T>
int CompareNumbers(T a, T b)
{
   return a < b ? -1 : b < a ? 1 : 0;
}

/// Gives the next run of digits from the position on and moves behind it.
/// Missing: false when there is no digit any more.
bool TakeNumber(const std::string& text, std::size_t& position, int& number)
{
   position = text.find_first_of(kDigits, position);
   if (position == std::string::npos)
      return false;
   // The list holds ints, so a number beyond their range is what is left of a saturated long.
   number = static_cast<int>(std::strtol(text.c_str() + position, nullptr, 10));
   position = text.find_first_not_of(kDigits, position);
   return true;
}

/// Compares the numbers in the texts, pair by pair; a list that has the other as its front is
/// greater.
int CompareEmbeddedNumbers(const std::string& a, const std::string& b)
{
   std::size_t positionA = 0;
   std::size_t positionB = 0;
   while (true) {
      int numberA = 0;
      int numberB = 0;
      const bool foundA = TakeNumber(a, positionA, numberA);
      const bool foundB = TakeNumber(b, positionB, numberB);
      if (!foundA || !foundB)
         return CompareNumbers<int>(foundA, foundB);
      if (numberA != numberB)
         return CompareNumbers(numberA, numberB);
   }
}

/// The type of the first key alone decides whether both are compared as text, and two texts are
/// numbers or plain text by pairs. Thus texts may compare in a circle ("9", "10", "1A").
int CompareKeys(const TPropertyInfo& info, TSortKey& a, TSortKey& b)
{
   if (!a.IsString())
      return a.CompareValue(b);
   if (info.fEmbeddedNumeric)
      return CompareEmbeddedNumbers(a.GetText(), b.GetText());
   if (a.IsNumber() && b.IsNumber())
      return CompareNumbers(a.GetNumber(), b.GetNumber());
   return CompareNumbers(a.GetText().compare(b.GetText()), 0);
}

/// Whether a comparison that came out unequal puts the first of the two ahead.
bool IsAhead(const TPropertyInfo& info, int comparison)
{
   return comparison == (info.fAscending ? -1 : 1);
}

/// An instance of a sort: where it stood, and its first key in a form that compares fast.
template <typename TRank>
struct TRanked
{
   TRank fRank{};
   std::size_t fPosition = 0;
};

/// A date-time, or the null that stands before all of them.
struct TTimeRank
{
   TCIMDateTime fTime;
   bool fIsNull = true;

   friend bool operator<(const TTimeRank& a, const TTimeRank& b)
   {
      return a.fIsNull || b.fIsNull ? a.fIsNull && !b.fIsNull : a.fTime < b.fTime;
   }
};

/// Missing: false for a value that is no integer, or one that may not fit.
bool FindRank(const TCIMValue& value, std::int64_t& rank)
{
   using TType = TCIMValue::TCIMType;
   const TCIMValue::ECIMType type = value.GetType();
   if (value.IsArray() || type < TType::kUInt8 || type > TType::kSInt32)
      return false;
   rank =
      value.IsNull() ? std::numeric_limits<std::int64_t>::min() : static_cast<std::int64_t>(value);
   return true;
}

/// Missing: false for a value that is no date-time.
bool FindRank(const TCIMValue& value, TTimeRank& rank)
{
   if (value.IsArray() || value.GetType() != TCIMValue::TCIMType::kDateTime)
      return false;
   rank.fIsNull = value.IsNull();
   if (!rank.fIsNull)
      rank.fTime = static_cast<TCIMDateTime>(value);
   return true;
}

template <typename TRank>
std::vector<TRanked<TRank>> MakeOrder(std::size_t size)
{
   std::vector<TRanked<TRank>> order(size);
   for (std::size_t position = 0; position < size; ++position)
      order[position].fPosition = position;
   return order;
}

/// Ranks the instances by a key where all their values are of that kind.
/// Missing: false where they are not, or one cannot be read: a sort then meets that one itself.
template <typename TRank>
bool RankInstances(const TInstances& instances, const std::string& property,
                   std::vector<TRanked<TRank>>& order)
{
   try {
      for (TRanked<TRank>& each : order) {
         const auto findRank = [&each](const TCIMValue& value) {
            return FindRank(value, each.fRank);
         };
         if (!WithKey(*instances[each.fPosition], property, findRank))
            return false;
      }
      return true;
   } catch (const TQSXException&) {
      return false;
   }
}

/// The keys of all instances of a sort, each read when it is first compared.
class TKeyTable
{
public:
   TKeyTable(const std::vector<TPropertyInfo>& infos, const TInstances& instances)
      : fInfos(infos), fInstances(instances)
   {}

   enum class EKind
   {
      kInteger,
      kTime,
      kOther
   };

   /// What the first instance is sorted by. The key is kept unless it is ranked with all others.
   EKind FindKind()
   {
      if (fInstances.size() < 2)
         return EKind::kOther;
      try {
         const TCIMValue value = WithKey(*fInstances.front(), fInfos.front().fProperty,
                                         [](const TCIMValue& key) { return key; });
         std::int64_t number = 0;
         TTimeRank time;
         if (FindRank(value, number))
            return EKind::kInteger;
         if (FindRank(value, time))
            return EKind::kTime;
         GetEntry(0, 0) = {TSortKey(value), true};
      } catch (const TQSXException&) {
         // The sort meets it again, and tells.
      }
      return EKind::kOther;
   }

   /// Looks at the keys from the given one on.
   bool IsBefore(std::size_t a, std::size_t b, std::size_t firstKey)
   {
      for (std::size_t key = firstKey; key < fInfos.size(); ++key) {
         TSortKey& keyA = GetKey(a, key);
         TSortKey& keyB = GetKey(b, key);
         if (const int comparison = CompareKeys(fInfos[key], keyA, keyB))
            return IsAhead(fInfos[key], comparison);
      }
      return false;
   }

private:
   struct TEntry
   {
      TSortKey fKey;
      bool fIsRead = false;
   };

   TSortKey& GetKey(std::size_t instance, std::size_t key)
   {
      TEntry& entry = GetEntry(instance, key);
      if (!entry.fIsRead) {
         entry.fKey = ReadKey(*fInstances[instance], fInfos[key].fProperty);
         entry.fIsRead = true;
      }
      return entry.fKey;
   }

   TEntry& GetEntry(std::size_t instance, std::size_t key)
   {
      // Most sorts by a number never ask.
      if (fEntries.empty())
         fEntries.resize(fInfos.size() * fInstances.size());
      return fEntries[instance * fInfos.size() + key];
   }

   const std::vector<TPropertyInfo>& fInfos;
   const TInstances& fInstances;
   std::vector<TEntry> fEntries;
};

template <typename TRank>
void Rearrange(TInstances& instances, const std::vector<TRanked<TRank>>& order)
{
   TInstances sorted;
   sorted.reserve(instances.size());
   for (const TRanked<TRank>& each : order)
      sorted.push_back(std::move(instances[each.fPosition]));
   instances.swap(sorted);
}

/// Sorts by the ranks as the standard library does, and among equals by the further keys.
/// Missing: false where the keys have no ranks, or the further ones lead the sort out of bounds;
/// the instances are then left alone.
template <typename TRank>
bool SortByRank(TInstances& instances, const std::vector<TPropertyInfo>& infos, TKeyTable& keys)
{
   std::vector<TRanked<TRank>> order = MakeOrder<TRank>(instances.size());
   if (!RankInstances(instances, infos.front().fProperty, order))
      return false;
   const bool isAscending = infos.front().fAscending;
   const auto compareRanks = [isAscending](const TRanked<TRank>& a, const TRanked<TRank>& b) {
      return isAscending ? a.fRank < b.fRank : b.fRank < a.fRank;
   };
   // Ranks compare in no circle: a sort by them alone needs no bounds.
   if (infos.size() == 1) {
      std::sort(order.begin(), order.end(), compareRanks);
   } else {
      const auto isBefore = [&](const TRanked<TRank>& a, const TRanked<TRank>& b) {
         if (compareRanks(a, b))
            return true;
         return !compareRanks(b, a) && keys.IsBefore(a.fPosition, b.fPosition, 1);
      };
      if (!SortWithinBounds(order, isBefore))
         return false;
   }
   Rearrange(instances, order);
   return true;
}

/// Sorts by keys of any kind.
void SortByKeys(TInstances& instances, TKeyTable& keys)
{
   std::vector<std::size_t> order(instances.size());
   std::iota(order.begin(), order.end(), std::size_t{0});
   const auto isBefore = [&keys](std::size_t a, std::size_t b) { return keys.IsBefore(a, b, 0); };
   if (!SortWithinBounds(order, isBefore)) {
      std::iota(order.begin(), order.end(), std::size_t{0});
      std::stable_sort(order.begin(), order.end(), isBefore);
   }
   TInstances sorted;
   sorted.reserve(instances.size());
   for (const std::size_t position : order)
      sorted.push_back(std::move(instances[position]));
   instances.swap(sorted);
}

}  // namespace

void TInstanceSorter::AddProperty(std::string property, bool ascending, bool embeddedNumeric)
{
   fKeys.push_back({std::move(property), ascending, embeddedNumeric});
}

bool TInstanceSorter::operator()(boost::shared_ptr<ICIMInstance> a,
                                 boost::shared_ptr<ICIMInstance> b)
{
   for (TPropertyInfo& key : fKeys)
      if (const int comparison = Compare(key, a, b))
         return IsAhead(key, comparison);
   return false;
}

int TInstanceSorter::Compare(TPropertyInfo& key, boost::shared_ptr<ICIMInstance> a,
                             boost::shared_ptr<ICIMInstance> b)
{
   TSortKey keyA = ReadKey(*a, key.fProperty);
   TSortKey keyB = ReadKey(*b, key.fProperty);
   return CompareKeys(key, keyA, keyB);
}

bool TInstanceSorter::IsNumber(const std::string& text)
{
   return text.find_first_not_of(kDigits) == std::string::npos;
}

void TInstanceSorter::TokenizeEmbeddedNumeric(std::string& text, std::vector<int>& numbers)
{
   std::size_t position = 0;
   int number = 0;
   while (TakeNumber(text, position, number))
      numbers.push_back(number);
}

std::string TInstanceSorter::uppercaseString(std::string& text)
{
   ConvertToUpperCase(text);
   return text;
}

void TInstanceSorter::SortInstances(TInstances& instances) const
{
   if (fKeys.empty())
      return;
   TKeyTable keys(fKeys, instances);
   bool isSorted = false;
   switch (keys.FindKind()) {
      case TKeyTable::EKind::kInteger:
         isSorted = SortByRank<std::int64_t>(instances, fKeys, keys);
         break;
      case TKeyTable::EKind::kTime:
         isSorted = SortByRank<TTimeRank>(instances, fKeys, keys);
         break;
      case TKeyTable::EKind::kOther:
         break;
   }
   if (!isSorted)
      SortByKeys(instances, keys);
}
