#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "MaskKind.h"

namespace NZANQSX20 {

/// An identifier that can be told by its shape alone: a MAC address, a UUID, a WWN, an address of
/// the Internet protocols, a SID.
struct TIdentifier
{
   std::size_t fStart = 0;
   std::size_t fSize = 0;
   EMaskKind fKind = EMaskKind::kNone;
   /// One text for all ways to write it: lower hexadecimal digits alone, an address as the system
   /// writes it.
   std::string fCanonical;
   /// Digits without marks may be anything else as well: they count only where the same identifier
   /// is known from elsewhere.
   bool fIsCertain = true;
};

/// Those of a text, in their order, none inside another.
/// Shape: with mayHoldAddresses false, four numbers with dots are a version.
void FindIdentifiers(std::string_view text, bool mayHoldAddresses,
                     std::vector<TIdentifier>& identifiers);

/// Whether the byte belongs to a word: a letter, a digit, or part of a character beyond ASCII.
bool IsWordByte(char byte);

/// The hexadecimal digits of a text in lower case. Missing: empty where it holds anything but
/// digits and the marks ':', '-', '.', or braces around all.
std::string GetHexDigits(std::string_view text);

/// The digits in the way that the example writes them: its marks, and its case.
std::string WriteLike(std::string_view digits, std::string_view example);

}  // namespace NZANQSX20
