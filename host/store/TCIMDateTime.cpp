#include "TCIMDateTime.h"

#include <array>
#include <cstddef>
#include <string_view>
#include <tuple>

#include <fmt/format.h>

namespace NZANQSX20 {

namespace {

// "yyyymmddHHMMSS.mmmmmm+UUU": 14 digits, a point, 6 digits, a sign or colon, 3 digits.
constexpr std::size_t kLength = 25;
constexpr std::size_t kPoint = 14;
constexpr std::size_t kSign = 21;
constexpr unsigned char kAllDigits = 20;
constexpr std::int64_t kSecondsPerDay = 86400;

bool IsDigit(char character)
{
   return character >= '0' && character <= '9';
}

unsigned int ReadDigits(std::string_view digits, std::size_t begin, std::size_t count)
{
   unsigned int number = 0;
   for (std::size_t i = begin; i < begin + count; ++i)
      number = number * 10 + (digits[i] == '*' ? 0u : static_cast<unsigned int>(digits[i] - '0'));
   return number;
}

/// How many digits stand before the first asterisk. Missing: -1 when a digit follows an asterisk or
/// anything else is among them.
int CountKnownDigits(std::string_view digits)
{
   std::size_t known = 0;
   while (known < digits.size() && IsDigit(digits[known]))
      ++known;
   return digits.find_first_not_of('*', known) == std::string_view::npos ? static_cast<int>(known)
                                                                         : -1;
}

/// Whole fields are left open, and single digits of the microseconds.
bool EndsAtField(int known, bool isInterval)
{
   switch (known) {
      case 4:
      case 6:
         return !isInterval;
      case 0:
      case 8:
      case 10:
      case 12:
         return true;
      default:
         return known >= 14;
   }
}

unsigned int CountDays(unsigned int year, unsigned int month)
{
   const bool isLeap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
   switch (month) {
      case 2:
         return isLeap ? 29 : 28;
      case 4:
      case 6:
      case 9:
      case 11:
         return 30;
      default:
         return 31;
   }
}

/// Days since 1970-01-01 of the proleptic Gregorian calendar.
std::int64_t GetDayNumber(std::int64_t year, std::int64_t month, std::int64_t day)
{
   // Years begin in March here, so that the leap day is the last of its year.
   const std::int64_t shiftedYear = month <= 2 ? year - 1 : year;
   const std::int64_t era = (shiftedYear >= 0 ? shiftedYear : shiftedYear - 399) / 400;
   const std::int64_t yearOfEra = shiftedYear - era * 400;
   const std::int64_t dayOfYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
   const std::int64_t dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
   return era * 146097 + dayOfEra - 719468;
}

bool IsTimeOfDay(std::string_view digits)
{
   constexpr unsigned int kLeapSecond = 60;
   return ReadDigits(digits, 8, 2) < 24 && ReadDigits(digits, 10, 2) < 60 &&
          ReadDigits(digits, 12, 2) <= kLeapSecond;
}

bool IsDate(std::string_view digits, int known)
{
   // The date of a default value is what sources write for "never".
   if (digits.compare(0, 8, "00000000") == 0)
      return true;
   const unsigned int year = ReadDigits(digits, 0, 4);
   const unsigned int month = ReadDigits(digits, 4, 2);
   const unsigned int day = ReadDigits(digits, 6, 2);
   const bool isMonth = known < 6 || (month >= 1 && month <= 12);
   const bool isDay = known < 8 || (day >= 1 && day <= CountDays(year, month));
   return isMonth && isDay;
}

/// Puts the number into so many digits; of one that a caller made too wide the last ones stay.
void PutDigits(unsigned int number, std::size_t count, char* digits)
{
   for (std::size_t i = count; i > 0; --i) {
      digits[i - 1] = static_cast<char>('0' + number % 10);
      number /= 10;
   }
}

}  // namespace

TCIMDateTime::TCIMDateTime(unsigned short year, unsigned short month, unsigned int day,
                           unsigned short hours, unsigned short minutes, unsigned short seconds,
                           unsigned int microseconds, short utcOffset)
   : fDay(day),
     fMicroseconds(microseconds),
     fYear(year),
     fMonth(month),
     fHours(hours),
     fMinutes(minutes),
     fSeconds(seconds),
     fUtcOffset(utcOffset)
{}

bool TCIMDateTime::Parse(const std::string& text, TCIMDateTime& result)
{
   if (text.size() != kLength || text[kPoint] != '.')
      return false;
   const char sign = text[kSign];
   std::array<char, kAllDigits> buffer;
   text.copy(buffer.data(), kPoint);
   text.copy(buffer.data() + kPoint, kAllDigits - kPoint, kPoint + 1);
   const std::string_view digits(buffer.data(), buffer.size());
   const std::string_view offset = std::string_view(text).substr(kSign + 1);
   const bool isInterval = sign == ':';
   const bool isOffsetKnown = offset != "***";
   const int known = CountKnownDigits(digits);

   if (!isInterval && sign != '+' && sign != '-')
      return false;
   if (isInterval ? offset != "000" : isOffsetKnown && CountKnownDigits(offset) != 3)
      return false;
   if (known < 0 || !EndsAtField(known, isInterval) || !IsTimeOfDay(digits))
      return false;
   if (!isInterval && !IsDate(digits, known))
      return false;

   TCIMDateTime read;
   read.fIsInterval = isInterval;
   read.fIsOffsetKnown = isOffsetKnown;
   read.fKnownDigits = static_cast<unsigned char>(known);
   if (isInterval) {
      read.fDay = ReadDigits(digits, 0, 8);
   } else {
      read.fYear = static_cast<unsigned short>(ReadDigits(digits, 0, 4));
      read.fMonth = static_cast<unsigned short>(ReadDigits(digits, 4, 2));
      read.fDay = ReadDigits(digits, 6, 2);
   }
   read.fHours = static_cast<unsigned short>(ReadDigits(digits, 8, 2));
   read.fMinutes = static_cast<unsigned short>(ReadDigits(digits, 10, 2));
   read.fSeconds = static_cast<unsigned short>(ReadDigits(digits, 12, 2));
   read.fMicroseconds = ReadDigits(digits, 14, 6);
   const short minutes = isOffsetKnown ? static_cast<short>(ReadDigits(offset, 0, 3)) : short{0};
   read.fUtcOffset = static_cast<short>(sign == '-' ? -minutes : minutes);
   result = read;
   return true;
}

std::string TCIMDateTime::GetDigits() const
{
   std::string text;
   // ToString puts more behind.
   text.reserve(kLength);
   text.resize(kAllDigits);
   char* const digits = text.data();
   if (fIsInterval) {
      PutDigits(fDay, 8, digits);
   } else {
      PutDigits(fYear, 4, digits);
      PutDigits(fMonth, 2, digits + 4);
      PutDigits(fDay, 2, digits + 6);
   }
   PutDigits(fHours, 2, digits + 8);
   PutDigits(fMinutes, 2, digits + 10);
   PutDigits(fSeconds, 2, digits + 12);
   PutDigits(fMicroseconds, 6, digits + 14);
   for (std::size_t i = fKnownDigits; i < kAllDigits; ++i)
      digits[i] = '*';
   return text;
}

std::string TCIMDateTime::ToString() const
{
   std::string text = GetDigits();
   text.insert(kPoint, 1, '.');
   text += fIsInterval ? ':' : fUtcOffset < 0 ? '-' : '+';
   text += "***";
   const int minutes = fUtcOffset < 0 ? -fUtcOffset : fUtcOffset;
   if (fIsOffsetKnown)
      PutDigits(static_cast<unsigned int>(minutes), 3, &text[kSign + 1]);
   return text;
}

std::string TCIMDateTime::ToUIString() const
{
   std::string text = "yyyy-mm-dd hh:mm:ss";
   if (!fIsInterval && fKnownDigits >= kPoint) {
      PutDigits(fYear, 4, &text[0]);
      PutDigits(fMonth, 2, &text[5]);
      PutDigits(fDay, 2, &text[8]);
      PutDigits(fHours, 2, &text[11]);
      PutDigits(fMinutes, 2, &text[14]);
      PutDigits(fSeconds, 2, &text[17]);
      return text;
   }
   const std::string digits = GetDigits();
   digits.copy(text.data(), 4, 0);
   digits.copy(text.data() + 5, 2, 4);
   digits.copy(text.data() + 8, 2, 6);
   digits.copy(text.data() + 11, 2, 8);
   digits.copy(text.data() + 14, 2, 10);
   digits.copy(text.data() + 17, 2, 12);
   if (!fIsInterval)
      return text;
   const std::string time = text.substr(11);
   if (fKnownDigits < 8)
      return digits.substr(0, 8) + " days " + time;
   if (fDay == 0)
      return time;
   return fmt::format("{} {} {}", fDay, fDay == 1 ? "day" : "days", time);
}

std::int64_t TCIMDateTime::GetMicroseconds() const
{
   const std::int64_t days = fIsInterval ? fDay : GetDayNumber(fYear, fMonth, fDay % 100);
   const std::int64_t seconds = days * kSecondsPerDay + fHours * 3600 + fMinutes * 60 + fSeconds -
                                std::int64_t{fUtcOffset} * 60;
   return seconds * 1000000 + fMicroseconds;
}

bool TCIMDateTime::operator<(const TCIMDateTime& other) const
{
   // Sorts compare what lies close: within a month of one clock the number of the day tells enough.
   const bool isSameMonth = fYear == other.fYear && fMonth == other.fMonth &&
                            fUtcOffset == other.fUtcOffset && !fIsInterval && !other.fIsInterval;
   if (!isSameMonth)
      return std::make_tuple(fIsInterval, GetMicroseconds()) <
             std::make_tuple(other.fIsInterval, other.GetMicroseconds());
   const auto getMicroseconds = [](const TCIMDateTime& time) {
      const unsigned int hours = time.fDay % 100 * 24 + time.fHours;
      const std::int64_t seconds = std::int64_t{hours} * 3600 + time.fMinutes * 60 + time.fSeconds;
      return seconds * 1000000 + time.fMicroseconds;
   };
   return getMicroseconds(*this) < getMicroseconds(other);
}

bool TCIMDateTime::operator==(const TCIMDateTime& other) const
{
   return fIsInterval == other.fIsInterval && GetMicroseconds() == other.GetMicroseconds();
}

}  // namespace NZANQSX20
