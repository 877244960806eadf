#pragma once

namespace NZANQSX20 {

/// What a value identifies, and with it the shape of its stand-in.
enum class EMaskKind
{
   kNone,
   /// Text in which numbers with dots are versions: nothing in it is taken for
   /// an address.
   kVersion,
   kSerial,
   kUUID,
   kMAC,
   kWWN,
   kIPv4,
   kIPv6,
   kSID,
   /// A host name, with or without its domain.
   kHost,
   kDomain,
   /// An account, also as "DOMAIN\name" or "name@domain".
   kUser,
   /// A person, a place, a telephone number: the whole text.
   kContact,
   /// A password, a community, a licence key: the whole text.
   kSecret,
   kTerm
};

/// Whether names are written in more than one case.
inline bool IsOfNames(EMaskKind kind)
{
   return kind == EMaskKind::kHost || kind == EMaskKind::kDomain || kind == EMaskKind::kUser;
}

/// "serial number", "UUID", ...
const char* GetMaskKindName(EMaskKind kind);

}  // namespace NZANQSX20
