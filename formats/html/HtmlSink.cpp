#include "html/HtmlSink.h"

#include <array>
#include <charconv>

#include "common/Utf8.h"

namespace {

/// Which bytes reach the page as they are without a second look.
constexpr std::array<bool, 256> MakePlainBytes()
{
   std::array<bool, 256> plain{};
   for (std::size_t c = 0x20; c < 0x7F; ++c)
      plain[c] = true;
   for (const char c : {'&', '<', '>', '"', '\''})
      plain[static_cast<unsigned char>(c)] = false;
   plain['\t'] = plain['\n'] = true;
   return plain;
}

constexpr std::array<bool, 256> kPlain = MakePlainBytes();

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

std::string_view MakeView(const char* begin, const char* end)
{
   return {begin, static_cast<std::size_t>(end - begin)};
}

}  // namespace

THtmlSink& THtmlSink::operator<<(TText text)
{
   const char* at = text.fText.data();
   const char* const end = at + text.fText.size();
   const char* runBegin = at;
   while (at < end) {
      if (kPlain[static_cast<unsigned char>(*at)]) {
         ++at;
         continue;
      }
      if (runBegin < at)
         fFile.Write(MakeView(runBegin, at));
      at = WriteSpecial(at, end);
      runBegin = at;
   }
   if (runBegin < at)
      fFile.Write(MakeView(runBegin, at));
   return *this;
}

/// Writes the one character that starts there and gives the place behind it.
const char* THtmlSink::WriteSpecial(const char* at, const char* end)
{
   const std::string_view escape = GetEscape(*at);
   if (!escape.empty()) {
      fFile.Write(escape);
      return at + 1;
   }
   // A line end of two characters is one; a carriage return alone is a line end, too.
   if (*at == '\r') {
      if (at + 1 == end || at[1] != '\n')
         fFile.Write("\n");
      return at + 1;
   }
   const TCharacter character = DecodeUtf8(at, end);
   const std::string_view safe =
      character.fIsValid ? GetSafeForm(character.fCodePoint) : kReplacementCharacter;
   fFile.Write(safe.empty() ? std::string_view(at, character.fLength) : safe);
   return at + character.fLength;
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
