#include "common/PageNames.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>

namespace {

constexpr std::size_t kLongestName = 80;
constexpr unsigned kFirstNumber = 2;
const std::string kExtension = ".html";

bool IsLetterOrDigit(char c)
{
   return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

std::string ToLower(std::string text)
{
   for (char& c : text)
      if (c >= 'A' && c <= 'Z')
         c = static_cast<char>(c - 'A' + 'a');
   return text;
}

/// FNV-1a, so that two names that lose their difference here keep one.
std::string GetHash(const std::string& text)
{
   std::uint32_t hash = 2166136261u;
   for (const char c : text)
      hash = (hash ^ static_cast<unsigned char>(c)) * 16777619u;
   char digits[9];
   std::snprintf(digits, sizeof digits, "%08x", static_cast<unsigned>(hash));
   return digits;
}

/// Whether a file system takes the name, up to its first ".", for a device.
bool IsDeviceName(const std::string& name)
{
   const std::string stem = ToLower(name.substr(0, name.find('.')));
   if (stem == "con" || stem == "prn" || stem == "aux" || stem == "nul")
      return true;
   const bool isPort = stem.size() == 4 && (stem.rfind("com", 0) == 0 || stem.rfind("lpt", 0) == 0);
   return isPort && stem[3] >= '0' && stem[3] <= '9';
}

/// Some link names have the extension that the writer adds.
std::string WithoutExtension(const std::string& linkName)
{
   const std::size_t length = linkName.size() - std::min(linkName.size(), kExtension.size());
   return linkName.substr(length) == kExtension ? linkName.substr(0, length) : linkName;
}

std::string MakeSafe(const std::string& linkName)
{
   std::string name = linkName.substr(0, kLongestName);
   for (char& c : name)
      if (!IsLetterOrDigit(c) && c != '_' && c != '-' && c != '.')
         c = '-';
   while (!name.empty() && name.front() == '.')
      name.erase(name.begin());
   if (name.empty() || IsDeviceName(name))
      name = "report-" + name;
   if (name == linkName)
      return name;
   return name.substr(0, kLongestName - 9) + "-" + GetHash(linkName);
}

}  // namespace

void TPageNames::Reserve(const std::string& name)
{
   fTaken.emplace(ToLower(name), kFirstNumber);
}

std::string TPageNames::Assign(const std::string& linkName)
{
   const std::string name = MakeSafe(WithoutExtension(linkName));
   const auto [taken, isNew] = fTaken.emplace(ToLower(name), kFirstNumber);
   if (isNew)
      return name;
   for (;;) {
      const std::string numbered = name + "-" + std::to_string(taken->second++);
      if (fTaken.emplace(ToLower(numbered), kFirstNumber).second)
         return numbered;
   }
}
