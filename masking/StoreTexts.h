#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "MaskKind.h"
#include "store/TMemoryStore.h"

namespace NZANQSX20 {

/// One text of an instance: a string, an element of an array of them, a key in the path of a
/// reference, or the bytes of an array of uint8.
struct TStoreText
{
   std::string_view fText;
   /// What the property identifies; of a reference, that of the key.
   EMaskKind fKind = EMaskKind::kNone;
   const TStoredClass& fClass;
   TSlot fSlot;
};

/// Told each text; true puts the replacement in its place.
using TTextCallback = std::function<bool(const TStoreText& text, std::string& replacement)>;

/// Goes through the texts of all instances in order.
///
/// Shape: bytes of uint8 are replaced only by as many. References that were made from an alias have
///        no text of their own.
void ForEachText(TMemoryStore& store, const TTextCallback& callback);

}  // namespace NZANQSX20
