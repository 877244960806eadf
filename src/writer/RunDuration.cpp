#include "writer/RunDuration.h"

#include <cstdint>
#include <cstdlib>

#include "writer/TWriter.h"

namespace {

int ToInt(const std::string& digits)
{
   return static_cast<int>(std::strtol(digits.c_str(), nullptr, 10));
}

/// The part that a word names with its unit. Missing: null where the word holds no unit.
std::string* FindPart(RunDuration& duration, const std::string& word)
{
   // "millisecond" comes first, as it holds the word "second".
   if (word.find("millisecond") != std::string::npos)
      return &duration.fMilliseconds;
   if (word.find("second") != std::string::npos)
      return &duration.fSeconds;
   if (word.find("minute") != std::string::npos)
      return &duration.fMinutes;
   if (word.find("hour") != std::string::npos)
      return &duration.fHours;
   return nullptr;
}

/// Leaves what is below the limit in the part and adds the rest to the next one.
void Carry(std::string& part, std::string& next, int limit)
{
   const int number = ToInt(part);
   part = std::to_string(number % limit);
   next = std::to_string(std::int64_t{ToInt(next)} + number / limit);
}

/// The second of two commas in a row stays. That is meant.
std::string RemoveCommas(std::string text)
{
   for (std::size_t i = 0; i < text.size(); ++i)
      if (text[i] == ',')
         text.erase(i, 1);
   return text;
}

}  // namespace

std::string TWriter::ConvertStrToNumType(std::string value, std::string propertyName)
{
   if (propertyName == "KernelModeTime" || propertyName == "UserModeTime") {
      std::vector<std::string> words;
      DivideStrToWords(value, words);
      RunDuration duration;
      SetValue(duration, std::move(words));
      ForwardCarry(duration);
      return IntToStr(Calculate(duration), 10);
   }
   if (propertyName == "WorkingSetSize") {
      std::vector<std::string> words;
      DivideStrToWords(value, words);
      if (words.empty())
         return "0";
      if (words.size() == 2 && words[1] == "KB")
         return RemoveCommas(words[0]);
   }
   return value;
}

void TWriter::DivideStrToWords(std::string text, std::vector<std::string>& words)
{
   words.clear();
   std::size_t start = text.find_first_not_of(' ');
   while (start != std::string::npos) {
      const std::size_t end = text.find(' ', start);
      words.push_back(text.substr(start, end - start));
      start = text.find_first_not_of(' ', end);
   }
}

void TWriter::SetValue(RunDuration& duration, std::vector<std::string> words)
{
   if (words.empty())
      return;
   duration = {};
   for (std::size_t i = 1; i < words.size(); ++i)
      if (std::string* part = FindPart(duration, words[i]))
         *part = words[i - 1];
   for (std::string* part :
        {&duration.fHours, &duration.fMinutes, &duration.fSeconds, &duration.fMilliseconds})
      if (part->empty())
         *part = "0";
}

void TWriter::ForwardCarry(RunDuration& duration)
{
   Carry(duration.fMilliseconds, duration.fSeconds, 1000);
   Carry(duration.fSeconds, duration.fMinutes, 60);
   Carry(duration.fMinutes, duration.fHours, 60);
   // Hours don't wrap; this brings an empty part to "0" as the others.
   duration.fHours = std::to_string(ToInt(duration.fHours));
}

int TWriter::Calculate(RunDuration duration)
{
   const std::int64_t total = std::int64_t{ToInt(duration.fHours)} * 3600000 +
                              std::int64_t{ToInt(duration.fMinutes)} * 60000 +
                              std::int64_t{ToInt(duration.fSeconds)} * 1000 +
                              ToInt(duration.fMilliseconds);
   // 32 bits, so a total over some 596 hours wraps.
   return static_cast<std::int32_t>(total);
}
