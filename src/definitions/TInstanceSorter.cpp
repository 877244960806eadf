#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <memory>
#include <numeric>
#include <optional>

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

   explicit TSortKey(TCIMValue value) : fValue(std::move(value))
   {
      const bool isDateTime = fValue.GetType() == TCIMValue::TCIMType::kDateTime;
      if (isDateTime && !fValue.IsNull() && !fValue.IsArray())
         fDateTime = static_cast<TCIMDateTime>(fValue);
   }

   /// -1, 0 or 1, by the order of values.
   int CompareValue(const TSortKey& other) const
   {
      if (fDateTime && other.fDateTime)
         return Compare(*fDateTime, *other.fDateTime);
      return Compare(fValue, other.fValue);
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

   template <typename T>
   static int Compare(const T& a, const T& b)
   {
      return a < b ? -1 : b < a ? 1 : 0;
   }

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
   /// Beside the value, so that a sort by time finds it without a look elsewhere.
   std::optional<TCIMDateTime> fDateTime;
   /// Made when the key is first compared as text.
   std::unique_ptr<TWords> fWords;
};

TSortKey ReadKey(ICIMInstance& instance, const std::string& property)
{
   TCIMValue value = instance.GetProperty(property, {})->GetValue(TContext());
   if (value.IsNull())
      value = instance.GetProperty(property, {})->GetValue();
   return TSortKey(std::move(value));
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

/// The keys of all instances of a sort, each read when it is first compared.
class TKeyTable
{
public:
   TKeyTable(const std::vector<TPropertyInfo>& infos, const TInstances& instances)
      : fInfos(infos), fInstances(instances), fEntries(infos.size() * instances.size())
   {}

   bool IsBefore(std::size_t a, std::size_t b)
   {
      for (std::size_t key = 0; key < fInfos.size(); ++key) {
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
      TEntry& entry = fEntries[instance * fInfos.size() + key];
      if (!entry.fIsRead) {
         entry.fKey = ReadKey(*fInstances[instance], fInfos[key].fProperty);
         entry.fIsRead = true;
      }
      return entry.fKey;
   }

   const std::vector<TPropertyInfo>& fInfos;
   const TInstances& fInstances;
   std::vector<TEntry> fEntries;
};

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
   const auto isBefore = [&keys](std::size_t a, std::size_t b) { return keys.IsBefore(a, b); };
   std::vector<std::size_t> order(instances.size());
   std::iota(order.begin(), order.end(), std::size_t{0});
   if (!SortWithinBounds(order, isBefore)) {
      std::iota(order.begin(), order.end(), std::size_t{0});
      std::stable_sort(order.begin(), order.end(), isBefore);
   }

   TInstances sorted;
   sorted.reserve(instances.size());
   for (const std::size_t index : order)
      sorted.push_back(std::move(instances[index]));
   instances.swap(sorted);
}
