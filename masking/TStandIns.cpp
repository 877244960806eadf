#include "TStandIns.h"

#include <arpa/inet.h>
#include <sodium.h>

#include <cstring>

#include <fmt/format.h>

namespace NZANQSX20 {

namespace {

constexpr unsigned kAddressBits = 64;

char MakeLike(char original, std::uint64_t random)
{
   if (original >= '0' && original <= '9')
      return static_cast<char>('0' + random % 10);
   if (original >= 'A' && original <= 'Z')
      return static_cast<char>('A' + random % 26);
   if (original >= 'a' && original <= 'z')
      return static_cast<char>('a' + random % 26);
   return original;
}

bool IsContinuation(char byte)
{
   return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// An IPv4 block: the addresses whose first bits are those.
struct TBlock
{
   std::uint32_t fAddress;
   unsigned fBits;

   bool Holds(std::uint32_t address) const
   {
      return fBits == 0 || (address ^ fAddress) >> (32 - fBits) == 0;
   }
};

/// What names no machine.
constexpr TBlock kUntouched[] = {{0x00000000, 8}, {0x7F000000, 8}, {0xE0000000, 3}};
/// Ranges that stay themselves: 10/8, 172.16/12, 192.168/16, 169.254/16, 100.64/10.
constexpr TBlock kPrivate[] = {
   {0x0A000000, 8}, {0xAC100000, 12}, {0xC0A80000, 16}, {0xA9FE0000, 16}, {0x64400000, 10}};

template <std::size_t Count>
const TBlock* FindBlock(const TBlock (&blocks)[Count], std::uint32_t address)
{
   for (const TBlock& block : blocks)
      if (block.Holds(address))
         return &block;
   return nullptr;
}

/// 128.0.0.0 and 192.0.0.0; longer masks lie in the blocks that stay.
bool IsShortMask(std::uint32_t address)
{
   return address == 0x80000000 || address == 0xC0000000;
}

std::uint64_t ReadBytes(const unsigned char* bytes, int count)
{
   std::uint64_t number = 0;
   for (int i = 0; i < count; ++i)
      number = number << 8 | bytes[i];
   return number;
}

void WriteBytes(std::uint64_t number, unsigned char* bytes, int count)
{
   for (int i = count - 1; i >= 0; --i, number >>= 8)
      bytes[i] = static_cast<unsigned char>(number & 0xFF);
}

}  // namespace

TStandIns::TStandIns(const TMaskKey& key) : fKey(key) {}

std::uint64_t TStandIns::Hash(EMaskKind kind, std::string_view text, std::uint64_t number) const
{
   crypto_generichash_state state;
   unsigned char hash[crypto_generichash_BYTES];
   crypto_generichash_init(&state, fKey.data(), fKey.size(), sizeof hash);
   const std::uint64_t head[] = {static_cast<std::uint64_t>(kind), number};
   crypto_generichash_update(&state, reinterpret_cast<const unsigned char*>(head), sizeof head);
   crypto_generichash_update(&state, reinterpret_cast<const unsigned char*>(text.data()),
                             text.size());
   crypto_generichash_final(&state, hash, sizeof hash);
   return ReadBytes(hash, 8);
}

std::string TStandIns::MakeText(std::string_view original, unsigned attempt) const
{
   std::string text;
   std::uint64_t random = 0;
   unsigned taken = 0;
   for (const char byte : original) {
      if (IsContinuation(byte))
         continue;
      // A hash is good for a dozen characters.
      if (taken % 12 == 0)
         random = Hash(EMaskKind::kNone, original, std::uint64_t{attempt} << 32 | taken);
      ++taken;
      const bool isWide = static_cast<unsigned char>(byte) >= 0x80;
      text += MakeLike(isWide ? 'a' : byte, random);
      random /= 29;
   }
   return text;
}

std::string TStandIns::MakeDomain(std::string_view original, unsigned attempt) const
{
   std::string text;
   while (true) {
      const std::size_t dot = original.find('.');
      if (dot == std::string_view::npos)
         break;
      text += MakeText(original.substr(0, dot), attempt) + '.';
      original.remove_prefix(dot + 1);
   }
   return text.empty() ? MakeText(original, attempt) : text + std::string(original);
}

std::string TStandIns::MakeHex(EMaskKind kind, const std::string& digits, std::size_t kept,
                               unsigned attempt) const
{
   std::string text = digits.substr(0, kept);
   for (std::size_t at = kept; at < digits.size(); at += 16)
      text += fmt::format("{:016x}", Hash(kind, digits, std::uint64_t{attempt} << 32 | at));
   text.resize(digits.size());
   return text;
}

std::string TStandIns::MakeMAC(const std::string& digits, unsigned attempt) const
{
   constexpr std::size_t kMakerDigits = 6;
   const bool isGroup = (std::stoi(digits.substr(1, 1), nullptr, 16) & 1) != 0;
   const bool isZero = digits.find_first_not_of('0') == std::string::npos;
   if (isGroup || isZero)
      return digits;
   return MakeHex(EMaskKind::kMAC, digits, kMakerDigits, attempt);
}

std::string TStandIns::MakeWWN(const std::string& digits, unsigned attempt) const
{
   if (digits.find_first_not_of('0') == std::string::npos)
      return digits;
   const char authority = digits[0];
   const std::size_t kept = authority == '5' || authority == '6'   ? 7
                            : authority == '1' || authority == '2' ? 10
                                                                   : 6;
   return MakeHex(EMaskKind::kWWN, digits, kept, attempt);
}

std::string TStandIns::MakeUUID(const std::string& digits, unsigned attempt) const
{
   const bool isPlain = digits.find_first_not_of(digits[0]) == std::string::npos;
   if (isPlain)
      return digits;
   constexpr std::size_t kVersion = 12;
   constexpr std::size_t kVariant = 16;
   std::string text = MakeHex(EMaskKind::kUUID, digits, 0, attempt);
   text[kVersion] = digits[kVersion];
   text[kVariant] = digits[kVariant];
   return text;
}

std::string TStandIns::MakeSID(const std::string& text, unsigned attempt) const
{
   constexpr std::size_t kHead = 9;  // "S-1-5-21-"
   std::string made = text.substr(0, kHead) + MakeText(text.substr(kHead), attempt);
   return made;
}

/// Each bit from the first to the last is turned or not by the bits ahead of it: what numbers have
/// in common at the front, their results have in common, too.
std::uint64_t TStandIns::MixBits(EMaskKind kind, std::uint64_t bits, unsigned first, unsigned last,
                                 unsigned attempt) const
{
   std::uint64_t mixed = bits;
   for (unsigned bit = first; bit < last; ++bit) {
      const std::uint64_t ahead[] = {
         bit == 0 ? 0 : bits >> (kAddressBits - bit) << (kAddressBits - bit), bit};
      const std::string_view text(reinterpret_cast<const char*>(ahead), sizeof ahead);
      mixed ^= (Hash(kind, text, attempt) & 1) << (kAddressBits - 1 - bit);
   }
   return mixed;
}

std::uint32_t TStandIns::MixIPv4(std::uint32_t address, unsigned attempt) const
{
   constexpr unsigned kNetworkBits = 24;
   constexpr std::uint32_t kHost = 0xFF;
   const TBlock* const range = FindBlock(kPrivate, address);
   std::uint32_t network = address & ~kHost;
   // A public address stays one. What a step maps into another range is mapped on from there, which
   // keeps the map one to one.
   do {
      const std::uint64_t mixed =
         MixBits(EMaskKind::kIPv4, std::uint64_t{network} << 32,
                 range != nullptr ? range->fBits : 0, kNetworkBits, attempt);
      network = static_cast<std::uint32_t>(mixed >> 32);
   } while (range == nullptr &&
            (FindBlock(kUntouched, network) != nullptr || FindBlock(kPrivate, network) != nullptr));

   std::uint32_t host = address & kHost;
   if (host == 0 || host == kHost)
      return network | host;
   do {
      const std::uint64_t whole = std::uint64_t{(address & ~kHost) | host} << 32;
      host = static_cast<std::uint32_t>(
                MixBits(EMaskKind::kIPv4, whole, kNetworkBits, 32, attempt) >> 32) &
             kHost;
   } while (host == 0 || host == kHost);
   return network | host;
}

bool TStandIns::IsPrivate(const std::string& ipv4)
{
   in_addr parsed;
   return inet_pton(AF_INET, ipv4.c_str(), &parsed) == 1 &&
          FindBlock(kPrivate, ntohl(parsed.s_addr)) != nullptr;
}

std::string TStandIns::MakeIPv4(const std::string& text, unsigned attempt) const
{
   in_addr parsed;
   if (inet_pton(AF_INET, text.c_str(), &parsed) != 1)
      return text;
   const std::uint32_t address = ntohl(parsed.s_addr);
   if (FindBlock(kUntouched, address) != nullptr || IsShortMask(address))
      return text;
   parsed.s_addr = htonl(MixIPv4(address, attempt));
   char made[INET_ADDRSTRLEN];
   inet_ntop(AF_INET, &parsed, made, sizeof made);
   return made;
}

/// The second half of an IPv6 address.
std::uint64_t TStandIns::MixInterface(std::uint64_t number, std::uint64_t prefix,
                                      unsigned attempt) const
{
   // The first machines of a net: routers, servers that were numbered by hand.
   constexpr std::uint64_t kSmall = 256;
   if (number < kSmall)
      return number;
   constexpr std::uint64_t kUniversal = std::uint64_t{1} << 57;
   const bool isOfMAC = (number >> 24 & 0xFFFF) == 0xFFFE;
   if (!isOfMAC)
      return Hash(EMaskKind::kIPv6, fmt::format("{:x}:{:x}", prefix, number), attempt) | kSmall;
   const std::uint64_t mac = ((number ^ kUniversal) >> 40) << 24 | (number & 0xFFFFFF);
   const std::string made = MakeMAC(fmt::format("{:012x}", mac), attempt);
   const std::uint64_t digits = std::stoull(made, nullptr, 16);
   return ((digits >> 24) << 40 | std::uint64_t{0xFFFE} << 24 | (digits & 0xFFFFFF)) ^ kUniversal;
}

std::string TStandIns::MakeIPv6(const std::string& text, unsigned attempt) const
{
   in6_addr parsed;
   if (inet_pton(AF_INET6, text.c_str(), &parsed) != 1)
      return text;
   constexpr int kHalf = 8;
   std::uint64_t prefix = ReadBytes(parsed.s6_addr, kHalf);
   std::uint64_t number = ReadBytes(parsed.s6_addr + kHalf, kHalf);
   const bool isGroup = parsed.s6_addr[0] == 0xFF;
   const bool isOfIPv4 = prefix == 0 && number >> 32 == 0xFFFF;
   if (isOfIPv4) {
      const in_addr inner = {htonl(static_cast<std::uint32_t>(number))};
      char innerText[INET_ADDRSTRLEN];
      inet_ntop(AF_INET, &inner, innerText, sizeof innerText);
      return "::ffff:" + MakeIPv4(innerText, attempt);
   }
   if (isGroup || prefix == 0)
      return text;

   // Link-local, private and global addresses stay so.
   const bool isLinkLocal = prefix >> 54 == 0x3FA;
   const bool isPrivate = prefix >> 57 == 0x7E;
   const unsigned kept = isPrivate ? 8 : 3;
   number = MixInterface(number, prefix, attempt);
   if (!isLinkLocal)
      prefix = MixBits(EMaskKind::kIPv6, prefix, kept, kAddressBits, attempt);
   WriteBytes(prefix, parsed.s6_addr, kHalf);
   WriteBytes(number, parsed.s6_addr + kHalf, kHalf);
   char made[INET6_ADDRSTRLEN];
   inet_ntop(AF_INET6, &parsed, made, sizeof made);
   return made;
}

}  // namespace NZANQSX20
