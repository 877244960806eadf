#include "LimitOptions.h"

#include <charconv>
#include <limits>

#include <fmt/format.h>

#include "CommandFailure.h"
#include "Suggestion.h"

using NZANQSX20::TReadLimits;

namespace {

/// One limit; the members are of two types of one width.
struct TLimit
{
   const char* fName;
   std::size_t TReadLimits::*fMember;
};

constexpr TLimit kLimits[] = {
   {"file-bytes", &TReadLimits::fFileBytes},
   {"expanded-bytes", &TReadLimits::fExpandedBytes},
   {"expansion-ratio", &TReadLimits::fExpansionRatio},
   {"text-bytes", &TReadLimits::fTextBytes},
   {"name-bytes", &TReadLimits::fNameBytes},
   {"depth", &TReadLimits::fDepth},
   {"include-depth", &TReadLimits::fIncludeDepth},
   {"files", &TReadLimits::fFiles},
   {"classes", &TReadLimits::fClasses},
   {"instances", &TReadLimits::fInstances},
   {"properties", &TReadLimits::fProperties},
   {"array-items", &TReadLimits::fArrayItems},
};

constexpr struct
{
   char fLetter;
   unsigned int fShift;
} kUnits[] = {{'G', 30}, {'M', 20}, {'K', 10}};

std::string DescribeNumber(std::size_t number)
{
   for (const auto& unit : kUnits)
      if (number >> unit.fShift != 0 && number % (std::size_t{1} << unit.fShift) == 0)
         return fmt::format("{}{}", number >> unit.fShift, unit.fLetter);
   return std::to_string(number);
}

[[noreturn]] void FailUsage(const std::string& message)
{
   throw TCommandFailure(kExitUsage, message);
}

std::size_t ReadNumber(const std::string& text, std::string_view number)
{
   unsigned int shift = 0;
   for (const auto& unit : kUnits)
      if (!number.empty() && number.back() == unit.fLetter) {
         shift = unit.fShift;
         number.remove_suffix(1);
         break;
      }
   std::size_t value = 0;
   const auto read = std::from_chars(number.data(), number.data() + number.size(), value);
   const bool isNumber = read.ec == std::errc() && read.ptr == number.data() + number.size();
   if (!isNumber || value == 0 || value > std::numeric_limits<std::size_t>::max() >> shift)
      FailUsage(
         fmt::format("--limit {}: expected NAME=N, N from 1 on, with K, M or G behind it "
                     "or without",
                     text));
   return value << shift;
}

const TLimit& FindLimit(const std::string& name)
{
   std::vector<std::string> names;
   for (const TLimit& limit : kLimits) {
      if (name == limit.fName)
         return limit;
      names.push_back(limit.fName);
   }
   const std::string similar = FindSimilar(name, names);
   FailUsage(fmt::format("--limit {}: no limit of that name{}", name,
                         similar.empty() ? "" : "; did you mean '" + similar + "'?"));
}

}  // namespace

std::string DescribeLimits()
{
   const TReadLimits defaults;
   std::string text;
   for (const TLimit& limit : kLimits)
      text += fmt::format("{}{} {}", text.empty() ? "" : ", ", limit.fName,
                          DescribeNumber(defaults.*limit.fMember));
   return text;
}

void SetLimits(const std::vector<std::string>& texts, TReadLimits& limits)
{
   for (const std::string& text : texts) {
      const std::size_t equals = text.find('=');
      const TLimit& limit = FindLimit(text.substr(0, equals));
      limits.*limit.fMember =
         ReadNumber(text, equals == std::string::npos ? std::string_view()
                                                      : std::string_view(text).substr(equals + 1));
   }
}
