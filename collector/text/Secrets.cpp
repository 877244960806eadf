#include "text/Secrets.h"

#include <algorithm>
#include <array>
#include <cctype>

#include "text/Text.h"

namespace NZANQSX20 {

namespace {

// In lower case.
constexpr std::array<std::string_view, 10> kNames = {
   "password", "passwd", "passphrase", "secret", "credentials",
   "token",    "psk",    "community",  "apikey", "authkey"};
// What a setting with such a name says of it: "PasswordAuthentication no".
constexpr std::array<std::string_view, 8> kHarmless = {"yes", "no",   "on",    "off",
                                                       "0",   "true", "false", "files"};
constexpr std::string_view kHidden = "***";
constexpr std::string_view kAssigns = "=: \t\"'";
constexpr std::string_view kEnds = " \t,;\"'";

bool IsNameCharacter(char character)
{
   return std::isalnum(static_cast<unsigned char>(character)) != 0 || character == '_' ||
          character == '-';
}

std::string ToLower(std::string_view text)
{
   std::string lower(text);
   for (char& character : lower)
      character = static_cast<char>(std::tolower(static_cast<unsigned char>(character)));
   return lower;
}

bool IsSecretName(std::string_view name)
{
   const std::string lower = ToLower(name);
   for (const std::string_view secret : kNames)
      if (Contains(lower, secret))
         return true;
   return false;
}

/// "//user:word@" becomes "//***@".
std::string HideUsers(std::string_view line)
{
   std::string result(line);
   for (std::size_t at = result.find("://"); at != std::string::npos;
        at = result.find("://", at + 3)) {
      const std::size_t end = result.find_first_of("/ \t\"'", at + 3);
      const std::size_t sign = result.rfind('@', end);
      if (sign != std::string::npos && sign > at + 3 && (end == std::string::npos || sign < end))
         result.replace(at + 3, sign - at - 3, kHidden);
   }
   return result;
}

bool IsHarmless(std::string_view value)
{
   return StartsWith(value, "/") ||
          std::find(kHarmless.begin(), kHarmless.end(), ToLower(value)) != kHarmless.end();
}

/// Where the secret behind a name ends: at a blank or comma when the name is set apart by "=" or
/// ":", else with the line, as "password_pbkdf2 root grub.pbkdf2..." has it.
std::size_t FindEnd(std::string_view line, std::size_t nameEnd, std::size_t value, bool isComment)
{
   const std::string_view between = line.substr(nameEnd, value - nameEnd);
   const std::size_t end = std::min(line.find_first_of(kEnds, value), line.size());
   if (IsHarmless(line.substr(value, end - value)))
      return value;
   if (between.find_first_of("=:") != std::string_view::npos)
      return end;
   return isComment ? value : line.size();
}

/// The value behind each name that tells a secret.
std::string HideValues(const std::string& line)
{
   const bool isComment = StartsWith(Trim(line), "#");
   std::string result;
   for (std::size_t at = 0; at < line.size();) {
      std::size_t end = at;
      while (end < line.size() && IsNameCharacter(line[end]))
         ++end;
      if (end == at) {
         result += line[at++];
         continue;
      }
      const std::string_view name = std::string_view(line).substr(at, end - at);
      result += name;
      at = end;
      const std::size_t value = line.find_first_not_of(kAssigns, end);
      if (value == end || value == std::string::npos || !IsSecretName(name))
         continue;
      const std::size_t secretEnd = FindEnd(line, end, value, isComment);
      if (secretEnd == value)
         continue;
      result.append(line, end, value - end);
      result += kHidden;
      at = secretEnd;
   }
   return result;
}

}  // namespace

std::string HideSecrets(std::string_view text)
{
   std::string result;
   for (const std::string_view line : Split(text, '\n')) {
      if (!result.empty() || line.data() != text.data())
         result += '\n';
      result += HideValues(HideUsers(line));
   }
   return result;
}

}  // namespace NZANQSX20
