#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "MaskKind.h"

namespace NZANQSX20 {

/// What every stand-in is worked out from: the same original gives the same one under one key.
using TMaskKey = std::array<unsigned char, 32>;

/// Works out stand-ins. Which original is meant cannot be told from one without the key.
///
/// Shape:  attempt counts from 0; another attempt is another stand-in, for the case that one is
///         taken. Identifiers are given and come back in their canonical form.
class TStandIns
{
public:
   explicit TStandIns(const TMaskKey& key);

   /// The same length and the same class for each character: digits for digits, capitals for
   /// capitals; marks stay. A character beyond ASCII is a small letter.
   std::string MakeText(std::string_view original, unsigned attempt) const;

   /// The last name of several stays ("db.corp.example" ends with "example"), each other one has a
   /// stand-in of its own.
   std::string MakeDomain(std::string_view original, unsigned attempt) const;

   /// The maker's number in front stays, the group and broadcast addresses stay whole.
   std::string MakeMAC(const std::string& digits, unsigned attempt) const;

   /// The maker's number in front stays.
   std::string MakeWWN(const std::string& digits, unsigned attempt) const;

   /// Version and variant stay.
   std::string MakeUUID(const std::string& digits, unsigned attempt) const;

   std::string MakeSID(const std::string& text, unsigned attempt) const;

   /// Addresses with a common prefix have stand-ins with one as long, so that subnets stay subnets;
   /// private addresses stay in their range, 0 and 255 at the end stay, and what names no machine
   /// (loopback, groups, masks) stays whole.
   static bool IsPrivate(const std::string& ipv4);
   std::string MakeIPv4(const std::string& text, unsigned attempt) const;

   /// Likewise; half an address that is made of a MAC address is made of its stand-in.
   std::string MakeIPv6(const std::string& text, unsigned attempt) const;

private:
   std::uint64_t Hash(EMaskKind kind, std::string_view text, std::uint64_t number) const;
   std::string MakeHex(EMaskKind kind, const std::string& digits, std::size_t kept,
                       unsigned attempt) const;
   std::uint64_t MixBits(EMaskKind kind, std::uint64_t bits, unsigned first, unsigned last,
                         unsigned attempt) const;
   std::uint32_t MixIPv4(std::uint32_t address, unsigned attempt) const;
   std::uint64_t MixInterface(std::uint64_t number, std::uint64_t prefix, unsigned attempt) const;

   TMaskKey fKey;
};

}  // namespace NZANQSX20
