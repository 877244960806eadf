#include "IdentifierShapes.h"

#include <arpa/inet.h>

namespace NZANQSX20 {

namespace {

bool IsDigit(char byte)
{
   return byte >= '0' && byte <= '9';
}

bool IsHex(char byte)
{
   return IsDigit(byte) || (byte >= 'a' && byte <= 'f') || (byte >= 'A' && byte <= 'F');
}

char ToLower(char byte)
{
   return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
}

std::string LowerHex(std::string_view text)
{
   std::string digits;
   for (const char byte : text)
      if (IsHex(byte))
         digits += ToLower(byte);
   return digits;
}

std::size_t CountHex(std::string_view text, std::size_t at)
{
   std::size_t end = at;
   while (end < text.size() && IsHex(text[end]))
      ++end;
   return end - at;
}

/// The walk over one text. Each Take looks at one place, where a word begins, and no farther than
/// the longest identifier, so that the walk takes as long as the text.
class TFinding
{
public:
   TFinding(std::string_view text, bool mayHoldAddresses, std::vector<TIdentifier>& identifiers)
      : fText(text), fMayHoldAddresses(mayHoldAddresses), fIdentifiers(identifiers)
   {}

   void Find()
   {
      std::size_t at = 0;
      while (at < fText.size()) {
         const bool mayBegin = IsHex(fText[at]) || fText[at] == ':' || fText[at] == 'S';
         const bool isStart = mayBegin && (at == 0 || !IsWordByte(fText[at - 1]) || IsPrefixed(at));
         at += isStart ? Take(at) : 1;
      }
   }

private:
   /// Behind "0x".
   bool IsPrefixed(std::size_t at) const
   {
      return at >= 2 && fText[at - 1] == 'x' && fText[at - 2] == '0';
   }

   /// The bytes to go on by.
   std::size_t Take(std::size_t at)
   {
      const std::size_t digits = CountHex(fText, at);
      std::size_t size = TakeGroups(at, digits);
      if (size == 0)
         size = TakeDigits(at, digits);
      if (size == 0 && fMayHoldAddresses)
         size = TakeIPv4(at, digits);
      if (size == 0 && fMayHoldAddresses)
         size = TakeIPv6(at);
      if (size == 0 && fText[at] == 'S')
         size = TakeSID(at);
      return size > 0 ? size : (digits > 0 ? digits : 1);
   }

   bool EndsWord(std::size_t at) const { return at >= fText.size() || !IsWordByte(fText[at]); }

   std::size_t Add(std::size_t at, std::size_t size, EMaskKind kind, std::string canonical,
                   bool isCertain = true)
   {
      fIdentifiers.push_back({at, size, kind, std::move(canonical), isCertain});
      return size;
   }

   std::size_t AddHex(std::size_t at, std::size_t size, EMaskKind kind, bool isCertain = true)
   {
      return Add(at, size, kind, LowerHex(fText.substr(at, size)), isCertain);
   }

   /// Groups of hexadecimal digits with marks between them.
   std::size_t TakeGroups(std::size_t at, std::size_t digits)
   {
      const char mark = at + digits < fText.size() ? fText[at + digits] : '\0';
      if (digits == 2 && (mark == ':' || mark == '-'))
         return TakePairs(at, mark);
      if (digits == 4 && mark == '.' && HasGroups(at, {4, 4, 4}, '.'))
         return AddHex(at, 14, EMaskKind::kMAC);
      if (digits == 8 && mark == '-' && HasGroups(at, {8, 4, 4, 4, 12}, '-'))
         return AddHex(at, 36, EMaskKind::kUUID);
      return 0;
   }

   /// Whether exactly these groups stand there.
   bool HasGroups(std::size_t at, std::initializer_list<std::size_t> groups, char mark) const
   {
      bool isFirst = true;
      for (const std::size_t group : groups) {
         if (!isFirst && (at >= fText.size() || fText[at++] != mark))
            return false;
         if (CountHex(fText, at) != group)
            return false;
         at += group;
         isFirst = false;
      }
      const bool goesOn = at + 1 < fText.size() && fText[at] == mark && IsHex(fText[at + 1]);
      return EndsWord(at) && !goesOn;
   }

   /// "02:00:5e:10:00:01": six pairs are a MAC address, eight a WWN, twenty the address of an
   /// InfiniBand port, which ends with one.
   std::size_t TakePairs(std::size_t at, char mark)
   {
      std::size_t pairs = 1;
      std::size_t end = at + 2;
      while (end + 2 < fText.size() && fText[end] == mark && CountHex(fText, end + 1) == 2 &&
             pairs <= kMostPairs) {
         end += 3;
         ++pairs;
      }
      const bool goesOn = end + 1 < fText.size() && fText[end] == mark && IsHex(fText[end + 1]);
      if (!EndsWord(end) || goesOn)
         return 0;
      constexpr std::size_t kPairSize = 3;
      if (pairs == 6)
         return AddHex(at, end - at, EMaskKind::kMAC);
      if (pairs == 8)
         return AddHex(at, end - at, EMaskKind::kWWN);
      if (pairs == kMostPairs) {
         const std::size_t port = at + 12 * kPairSize;
         AddHex(port, end - port, EMaskKind::kWWN);
         return end - at;
      }
      return 0;
   }

   /// Digits alone: sixteen from a 5 on are a WWN, and what stands behind "naa.", "eui." or
   /// "wwn-0x".
   std::size_t TakeDigits(std::size_t at, std::size_t digits)
   {
      if (!EndsWord(at + digits))
         return 0;
      const bool isNamed = IsBehind(at, "naa.") || IsBehind(at, "eui.") || IsBehind(at, "wwn-0x");
      switch (digits) {
         case 12:
            return AddHex(at, digits, EMaskKind::kMAC, false);
         case 16:
            return AddHex(at, digits, EMaskKind::kWWN, isNamed || fText[at] == '5');
         case 32:
            return AddHex(at, digits, isNamed ? EMaskKind::kWWN : EMaskKind::kUUID, isNamed);
         default:
            return 0;
      }
   }

   bool IsBehind(std::size_t at, std::string_view word) const
   {
      return at >= word.size() && fText.substr(at - word.size(), word.size()) == word;
   }

   std::size_t TakeIPv4(std::size_t at, std::size_t digits)
   {
      const bool mayBe = digits >= 1 && digits <= 3 && at + digits < fText.size() &&
                         fText[at + digits] == '.' && (at == 0 || fText[at - 1] != '.');
      if (!mayBe)
         return 0;
      std::size_t end = at;
      while (end < fText.size() && end - at <= INET_ADDRSTRLEN &&
             (IsDigit(fText[end]) || fText[end] == '.'))
         ++end;
      // "a.b": what was counted are hexadecimal digits.
      if (end == at)
         return 0;
      // The end of a sentence.
      if (fText[end - 1] == '.')
         --end;
      const std::string address(fText.substr(at, end - at));
      in_addr parsed;
      const bool isAddress = inet_pton(AF_INET, address.c_str(), &parsed) == 1;
      return isAddress && EndsWord(end) && !IsVersion(at, end)
                ? Add(at, end - at, EMaskKind::kIPv4, address)
                : 0;
   }

   /// "version 4.2.0.1", "1.2.3.4-5", "2:1.2.3.4".
   bool IsVersion(std::size_t at, std::size_t end) const
   {
      if (end + 1 < fText.size() && (fText[end] == '-' || fText[end] == '+' || fText[end] == '~') &&
          IsWordByte(fText[end + 1]))
         return true;
      if (at > 0 && (fText[at - 1] == '-' || fText[at - 1] == '_'))
         return true;
      std::size_t wordEnd = at;
      while (wordEnd > 0 && at - wordEnd < kLongestGap &&
             (fText[wordEnd - 1] == ' ' || fText[wordEnd - 1] == ':' || fText[wordEnd - 1] == '=' ||
              fText[wordEnd - 1] == '.'))
         --wordEnd;
      std::size_t wordStart = wordEnd;
      while (wordStart > 0 && wordEnd - wordStart < kLongestWord &&
             IsWordByte(fText[wordStart - 1]))
         --wordStart;
      std::string word;
      for (const char byte : fText.substr(wordStart, wordEnd - wordStart))
         word += ToLower(byte);
      for (const char* known : {"version", "ver", "v", "rev", "revision", "release", "firmware",
                                "fw", "driver", "bios", "build", "level"})
         if (word == known)
            return true;
      return false;
   }

   std::size_t TakeIPv6(std::size_t at)
   {
      std::size_t end = at;
      std::size_t colons = 0;
      bool hasDigit = false;
      for (; end < fText.size() && end - at <= INET6_ADDRSTRLEN &&
             (IsHex(fText[end]) || fText[end] == ':' || fText[end] == '.');
           ++end) {
         colons += fText[end] == ':' ? 1 : 0;
         hasDigit = hasDigit || IsDigit(fText[end]);
      }
      while (end > at && (fText[end - 1] == '.' ||
                          (fText[end - 1] == ':' && (end < at + 2 || fText[end - 2] != ':')))) {
         colons -= fText[end - 1] == ':' ? 1 : 0;
         --end;
      }
      const std::size_t size = end - at;
      if (colons < 2 || !hasDigit || size > INET6_ADDRSTRLEN || !EndsWord(end))
         return 0;
      in6_addr parsed;
      if (inet_pton(AF_INET6, std::string(fText.substr(at, size)).c_str(), &parsed) != 1)
         return 0;
      char text[INET6_ADDRSTRLEN];
      inet_ntop(AF_INET6, &parsed, text, sizeof text);
      return Add(at, size, EMaskKind::kIPv6, text);
   }

   /// "S-1-5-21-" and at least three numbers: those of a domain or machine.
   std::size_t TakeSID(std::size_t at)
   {
      constexpr std::string_view kStart = "S-1-5-21-";
      if (fText.substr(at, kStart.size()) != kStart)
         return 0;
      std::size_t end = at + kStart.size();
      std::size_t numbers = 0;
      std::size_t machineEnd = end;
      while (end < fText.size() && IsDigit(fText[end])) {
         while (end < fText.size() && IsDigit(fText[end]))
            ++end;
         if (++numbers == 3)
            machineEnd = end;
         if (end < fText.size() && fText[end] == '-')
            ++end;
      }
      if (numbers < 3)
         return 0;
      // Which account of the machine it is stays: 500 is the administrator of any.
      const std::size_t size = machineEnd - at;
      Add(at, size, EMaskKind::kSID, std::string(fText.substr(at, size)));
      return end - at;
   }

   static constexpr std::size_t kMostPairs = 20;
   static constexpr std::size_t kLongestGap = 40;
   static constexpr std::size_t kLongestWord = 9;

   const std::string_view fText;
   const bool fMayHoldAddresses;
   std::vector<TIdentifier>& fIdentifiers;
};

}  // namespace

bool IsWordByte(char byte)
{
   return IsDigit(byte) || (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') ||
          static_cast<unsigned char>(byte) >= 0x80;
}

void FindIdentifiers(std::string_view text, bool mayHoldAddresses,
                     std::vector<TIdentifier>& identifiers)
{
   identifiers.clear();
   TFinding(text, mayHoldAddresses, identifiers).Find();
}

std::string GetHexDigits(std::string_view text)
{
   if (text.size() > 2 && text.front() == '{' && text.back() == '}')
      text = text.substr(1, text.size() - 2);
   if (text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X'))
      text.remove_prefix(2);
   for (const char byte : text)
      if (!IsHex(byte) && byte != ':' && byte != '-' && byte != '.')
         return "";
   return LowerHex(text);
}

std::string WriteLike(std::string_view digits, std::string_view example)
{
   bool isUpper = false;
   for (const char byte : example)
      isUpper = isUpper || (byte >= 'A' && byte <= 'F');
   std::string text;
   std::size_t next = 0;
   for (const char byte : example) {
      if (!IsHex(byte) || next >= digits.size()) {
         text += byte;
         continue;
      }
      const char digit = digits[next++];
      text += isUpper && digit >= 'a' ? static_cast<char>(digit - 'a' + 'A') : digit;
   }
   return text;
}

}  // namespace NZANQSX20
