#include "html/HtmlSink.h"

#include <array>
#include <charconv>

#include "common/SafeText.h"

namespace {

constexpr TPlainBytes kPlain("&<>\"'");

constexpr std::string_view GetEscape(char c)
{
   switch (c) {
      case '&':
         return "&amp;";
      case '<':
         return "&lt;";
      case '>':
         return "&gt;";
      case '"':
         return "&quot;";
      case '\'':
         return "&#39;";
      default:
         return {};
   }
}

bool IsUnreserved(char c)
{
   return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' ||
          c == '_' || c == '.' || c == '~';
}

/// Decimal digits of a number, with room for the commas of a count.
struct TDigits
{
   explicit TDigits(std::uint64_t number)
   {
      fCount = static_cast<std::size_t>(
         std::to_chars(fDigits.data(), fDigits.data() + fDigits.size(), number).ptr -
         fDigits.data());
   }

   std::string_view Get() const { return {fDigits.data(), fCount}; }

   std::array<char, 20> fDigits;
   std::size_t fCount;
};

}  // namespace

THtmlSink& THtmlSink::operator<<(TText text)
{
   WriteSafeText(fFile, text.fText, kPlain, GetEscape);
   return *this;
}

THtmlSink& THtmlSink::operator<<(TFileUrl url)
{
   constexpr const char* kHex = "0123456789ABCDEF";
   for (const char c : url.fFile) {
      const auto byte = static_cast<unsigned char>(c);
      const char encoded[] = {'%', kHex[byte >> 4], kHex[byte & 0xF]};
      fFile.Write(IsUnreserved(c) ? std::string_view(&c, 1)
                                  : std::string_view(encoded, sizeof encoded));
   }
   return *this;
}

THtmlSink& THtmlSink::operator<<(TPathUrl url)
{
   std::string_view rest = url.fPath;
   for (std::size_t end; (end = rest.find('/')) != std::string_view::npos;) {
      *this << TFileUrl{rest.substr(0, end)} << "/"_html;
      rest.remove_prefix(end + 1);
   }
   return *this << TFileUrl{rest};
}

THtmlSink& THtmlSink::operator<<(TNumber number)
{
   fFile.Write(TDigits(number.fNumber).Get());
   return *this;
}

THtmlSink& THtmlSink::operator<<(TCount count)
{
   const TDigits number(count.fNumber);
   const std::string_view digits = number.Get();
   std::array<char, 32> grouped;
   std::size_t length = 0;
   for (std::size_t i = 0; i < digits.size(); ++i) {
      if (i > 0 && (digits.size() - i) % 3 == 0)
         grouped[length++] = ',';
      grouped[length++] = digits[i];
   }
   fFile.Write({grouped.data(), length});
   return *this;
}
