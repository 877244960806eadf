#include "common/health/Sentence.h"

namespace {

using TGetText = std::function<std::string(std::string_view name)>;

/// isWhole: whether every text is there.
std::string FillPart(std::string_view text, const TGetText& getText, bool& isWhole)
{
   std::string filled;
   while (!text.empty()) {
      const std::size_t begin = text.find('{');
      filled += text.substr(0, begin);
      if (begin == std::string_view::npos)
         break;
      const std::size_t end = text.find('}', begin);
      const std::string value = getText(text.substr(begin + 1, end - begin - 1));
      isWhole = isWhole && !value.empty();
      filled += value;
      text.remove_prefix(end + 1);
   }
   return filled;
}

bool IsUpper(char c)
{
   return c >= 'A' && c <= 'Z';
}

}  // namespace

std::string FillTemplate(std::string_view text, const TGetText& getText)
{
   std::string filled;
   while (!text.empty()) {
      const std::size_t begin = text.find('[');
      bool isWhole = true;
      filled += FillPart(text.substr(0, begin), getText, isWhole);
      if (begin == std::string_view::npos)
         break;
      const std::size_t end = text.find(']', begin);
      isWhole = true;
      const std::string part = FillPart(text.substr(begin + 1, end - begin - 1), getText, isWhole);
      if (isWhole)
         filled += part;
      text.remove_prefix(end + 1);
   }
   return filled;
}

std::string MakeSmall(std::string_view text)
{
   std::string small(text);
   if (small.size() > 1 && IsUpper(small[0]) && !IsUpper(small[1]))
      small[0] = static_cast<char>(small[0] - 'A' + 'a');
   return small;
}

std::string Shorten(std::string_view text, std::size_t most)
{
   if (text.size() <= most)
      return std::string(text);
   // Not within a character of several bytes.
   while (most > 0 && (static_cast<unsigned char>(text[most]) & 0xC0U) == 0x80U)
      --most;
   return std::string(text.substr(0, most)) + "…";
}
