#include "common/EventTime.h"

#include <array>
#include <cctype>
#include <cstring>
#include <ctime>
#include <iterator>

#include <fmt/compile.h>
#include <fmt/format.h>
#include <boost/date_time/gregorian/greg_calendar.hpp>

namespace {

constexpr std::string_view kCanonicalShape = "0000-00-00 00:00:00";
constexpr std::size_t kLongestText = 64;

/// Service processors count from the year 1970 until somebody sets their clock; IPMI keeps the
/// years to 1987 for that.
constexpr int kFirstYear = 1987;

/// Forms other than the canonical one, for strptime. Month names are those of the C locale.
constexpr std::array<const char*, 12> kForms = {
   "%Y-%m-%dT%H:%M:%S",      // 2009-06-17T22:41:03
   "%Y-%m-%d %H:%M:%S",      // 2009-6-17 22:41:03.250
   "%Y/%m/%d %H:%M:%S",      // 2009/06/17 22:41:03
   "%d.%m.%Y %H:%M:%S",      // 17.06.2009 22:41:03
   "%a %b %d %H:%M:%S %Y",   // Wed Jun 17 22:41:03 2009
   "%a, %d %b %Y %H:%M:%S",  // Wed, 17 Jun 2009 22:41:03
   "%d %b %Y %H:%M:%S",      // 17 Jun 2009 22:41:03
   "%b %d %Y %H:%M:%S",      // Jun 17 2009 22:41:03
   "%b %d, %Y %H:%M:%S",     // June 17, 2009 22:41:03
   "%Y-%m-%d %H:%M",         // 2009-06-17 22:41
   "%Y-%m-%d",               // 2009-06-17
   "%d.%m.%Y",               // 17.06.2009
};

bool IsDigit(char c)
{
   return c >= '0' && c <= '9';
}

int ReadNumber(std::string_view text, std::size_t begin, std::size_t count)
{
   int number = 0;
   for (std::size_t i = begin; i < begin + count; ++i)
      number = number * 10 + (text[i] - '0');
   return number;
}

/// Whether day and time are in the calendar; mktime and its kin take any numbers.
bool IsInCalendar(const std::tm& time)
{
   constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
   const int year = time.tm_year + 1900;
   const bool isLeap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
   if (year <= kFirstYear || time.tm_mon < 0 || time.tm_mon > 11)
      return false;
   const int days = kDays[time.tm_mon] + (isLeap && time.tm_mon == 1);
   return time.tm_mday >= 1 && time.tm_mday <= days && time.tm_hour < 24 && time.tm_min < 60 &&
          time.tm_sec <= 60;
}

/// Seconds since 1970 of a time that is in the calendar.
std::int64_t CountSeconds(const std::tm& time)
{
   using TCalendar = boost::gregorian::gregorian_calendar;
   constexpr std::int64_t kDayOf1970 = 2440588;
   const auto part = [](int number) { return static_cast<unsigned short>(number); };
   const std::int64_t day =
      TCalendar::day_number({part(time.tm_year + 1900), part(time.tm_mon + 1), part(time.tm_mday)});
   return ((day - kDayOf1970) * 24 + time.tm_hour) * 3600 + time.tm_min * 60 + time.tm_sec;
}

bool ReadCanonical(std::string_view text, std::tm& time)
{
   if (text.size() != kCanonicalShape.size())
      return false;
   for (std::size_t i = 0; i < text.size(); ++i)
      if (kCanonicalShape[i] == '0' ? !IsDigit(text[i]) : text[i] != kCanonicalShape[i])
         return false;
   time.tm_year = ReadNumber(text, 0, 4) - 1900;
   time.tm_mon = ReadNumber(text, 5, 2) - 1;
   time.tm_mday = ReadNumber(text, 8, 2);
   time.tm_hour = ReadNumber(text, 11, 2);
   time.tm_min = ReadNumber(text, 14, 2);
   time.tm_sec = ReadNumber(text, 17, 2);
   return true;
}

/// Reads what may stand behind the seconds: a fraction and a zone. Missing: false for anything
/// else.
bool ReadTail(const char* tail, std::optional<short>& utcOffset)
{
   if (*tail == '.' || *tail == ',')
      for (++tail; IsDigit(*tail);)
         ++tail;
   while (*tail == ' ')
      ++tail;
   if (*tail == '\0')
      return true;
   if (std::strcmp(tail, "Z") == 0 || std::strcmp(tail, "UTC") == 0 ||
       std::strcmp(tail, "GMT") == 0) {
      utcOffset = short{0};
      return true;
   }
   std::tm zone = {};
   const char* const end = *tail == '+' || *tail == '-' ? strptime(tail, "%z", &zone) : nullptr;
   if (end == nullptr || *end != '\0')
      return false;
   utcOffset = static_cast<short>(zone.tm_gmtoff / 60);
   return true;
}

std::optional<TEventTime> ReadForm(const char* text, const char* form)
{
   std::tm time = {};
   const char* const tail = strptime(text, form, &time);
   TEventTime read;
   if (tail == nullptr || !ReadTail(tail, read.fUtcOffset) || !IsInCalendar(time))
      return std::nullopt;
   read.fSeconds = CountSeconds(time);
   return read;
}

}  // namespace

std::optional<TEventTime> ReadEventTime(std::string_view text)
{
   while (!text.empty() && text.back() == ' ')
      text.remove_suffix(1);
   std::tm time = {};
   if (ReadCanonical(text, time))
      return IsInCalendar(time) ? std::make_optional(TEventTime{CountSeconds(time), std::nullopt})
                                : std::nullopt;
   if (text.empty() || text.size() > kLongestText)
      return std::nullopt;
   const std::string terminated(text);
   for (const char* const form : kForms)
      if (const auto read = ReadForm(terminated.c_str(), form))
         return read;
   return std::nullopt;
}

std::string MakeEventTimeText(std::int64_t seconds, bool hasSeconds)
{
   const std::time_t count = seconds;
   std::tm time = {};
   gmtime_r(&count, &time);
   std::string text = fmt::format(FMT_COMPILE("{:04}-{:02}-{:02} {:02}:{:02}"), time.tm_year + 1900,
                                  time.tm_mon + 1, time.tm_mday, time.tm_hour, time.tm_min);
   if (hasSeconds)
      fmt::format_to(std::back_inserter(text), FMT_COMPILE(":{:02}"), time.tm_sec);
   return text;
}

std::string MakeUtcOffsetText(short minutes)
{
   if (minutes == 0)
      return "UTC";
   const int size = minutes < 0 ? -minutes : minutes;
   return fmt::format("UTC{}{:02}:{:02}", minutes < 0 ? '-' : '+', size / 60, size % 60);
}
