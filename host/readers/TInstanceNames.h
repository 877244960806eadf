#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "TCIMValue.h"
#include "readers/TReadLimits.h"
#include "readers/TSourceText.h"

namespace NZANQSX20 {

/// One key of an INSTANCENAME.
struct TInstanceKey
{
   std::string fName;
   std::string fText;
   TCIMValue::ECIMType fType = TCIMValue::TCIMType::kString;
};

/// Puts the INSTANCENAME elements of a document together, one inside the keys of another.
///
/// Throws: TReadError where names lie too deep in each other or grow too long: each level doubles
///         the backslashes of the one inside.
class TInstanceNames
{
public:
   TInstanceNames(const TSource& source, const TReadLimits& limits)
      : fSource(source), fLimits(limits)
   {}

   void Clear();
   void Begin(std::string_view className, std::size_t mark);
   void BeginKey(std::string_view name);
   void SetKeyValue(std::string_view text, TCIMValue::ECIMType type);
   void End();

   /// A class as the thing named.
   void SetClassName(std::string_view className);

   /// The name that ended last: its path, and forgotten then. Missing: empty when there is none.
   std::string TakePath();

   /// The keys of the name that ended last, forgotten then.
   std::vector<TInstanceKey> TakeKeys();

private:
   struct TName
   {
      std::string fClassName;
      std::vector<TInstanceKey> fKeys;
      std::size_t fMark = 0;
   };

   const TSource& fSource;
   const TReadLimits& fLimits;
   std::vector<TName> fOpen;
   std::vector<TInstanceKey> fKeys;
   std::string fPath;
};

}  // namespace NZANQSX20
