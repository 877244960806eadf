#include "NameText.h"

namespace NZANQSX20 {

namespace {

bool IsCapital(char byte)
{
   return byte >= 'A' && byte <= 'Z';
}

bool IsContinuation(char byte)
{
   return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

}  // namespace

std::string Lower(std::string_view text)
{
   std::string lower(text);
   for (char& byte : lower)
      byte = IsCapital(byte) ? static_cast<char>(byte - 'A' + 'a') : byte;
   return lower;
}

std::string Upper(std::string_view text)
{
   std::string upper(text);
   for (char& byte : upper)
      byte = byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - 'a' + 'A') : byte;
   return upper;
}

std::string CapitalizeLike(std::string text, std::string_view original)
{
   std::size_t at = 0;
   for (const char byte : original) {
      if (IsContinuation(byte))
         continue;
      if (IsCapital(byte) && at < text.size())
         text[at] = Upper({&text[at], 1})[0];
      ++at;
   }
   return text;
}

std::string_view TrimName(std::string_view text)
{
   constexpr std::string_view kBlanks = " \t\r\n";
   const std::size_t first = text.find_first_not_of(kBlanks);
   if (first == std::string_view::npos)
      return {};
   return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::string ReverseLabels(std::string_view domain)
{
   std::string reversed;
   while (true) {
      const std::size_t dot = domain.rfind('.');
      if (dot == std::string_view::npos)
         return reversed + std::string(domain);
      reversed += domain.substr(dot + 1);
      reversed += '.';
      domain = domain.substr(0, dot);
   }
}

}  // namespace NZANQSX20
