#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "readers/XMLCharacters.h"
#include "readers/XMLScanner.h"

namespace NZANQSX20 {

/// What the handler makes of the names met so far. A name that another one displaces is asked for
/// again.
class TXMLNames
{
public:
   struct TEntry
   {
      std::string fText;
      /// Where the local name begins.
      std::size_t fLocal = 0;
      TXMLName fNumber = 0;
      /// "xmlns" or "xmlns:...": no attribute to a handler.
      bool fIsNamespace = false;
   };

   explicit TXMLNames(const TXMLHandler& handler) : fHandler(handler) {}

   /// Owner: the entry lasts until the next name is looked for.
   const TEntry& Find(std::string_view name)
   {
      const auto byte = [name](std::size_t index) -> std::size_t {
         return static_cast<unsigned char>(name[index]);
      };
      const std::size_t middle = byte(name.size() / 2);
      const std::size_t last = byte(name.size() - 1);
      TEntry& entry = fEntries[(byte(0) + last * 3 + middle * 7 + name.size() * 13) % kEntries];
      if (entry.fText != name)
         Fill(entry, name);
      return entry;
   }

private:
   void Fill(TEntry& entry, std::string_view name) const
   {
      const std::size_t colon = name.find(':');
      // A name that makes no sense with its colons counts as one without a prefix.
      const bool hasPrefix =
         colon != std::string_view::npos && colon != 0 && colon + 1 != name.size() &&
         (IsXMLByte(name[colon + 1], kXMLNameStart) || (name[colon + 1] & 0x80) != 0);
      entry.fText = name;
      entry.fLocal = hasPrefix ? colon + 1 : 0;
      entry.fNumber = fHandler.FindName(name.substr(entry.fLocal));
      entry.fIsNamespace = name == "xmlns" || (hasPrefix && StartsWith(name, "xmlns:"));
   }

   static constexpr std::size_t kEntries = 256;

   const TXMLHandler& fHandler;
   std::array<TEntry, kEntries> fEntries;
};

}  // namespace NZANQSX20
