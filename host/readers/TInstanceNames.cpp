#include "readers/TInstanceNames.h"

#include <utility>

#include <fmt/format.h>

#include "readers/ReadValue.h"
#include "store/ObjectPath.h"

namespace NZANQSX20 {

namespace {

using TType = TCIMValue::TCIMType;

/// Real names have a reference among the keys of a reference, hardly ever another one in there.
constexpr std::size_t kMostNamesInside = 4;

bool IsQuoted(TCIMValue::ECIMType type)
{
   return type == TType::kString || type == TType::kDateTime || type == TType::kReference;
}

}  // namespace

void TInstanceNames::Clear()
{
   fOpen.clear();
   fKeys.clear();
   fPath.clear();
}

void TInstanceNames::Begin(std::string_view className, std::size_t mark)
{
   if (fOpen.size() >= kMostNamesInside)
      fSource.Fail(mark,
                   fmt::format("expected at most {} instance names inside each other, found more",
                               kMostNamesInside));
   fOpen.push_back({std::string(className), {}, mark});
}

void TInstanceNames::BeginKey(std::string_view name)
{
   TName& open = fOpen.back();
   if (open.fKeys.size() >= fLimits.fProperties)
      fSource.Fail(open.fMark,
                   fmt::format("expected at most {} keys, found more", fLimits.fProperties));
   open.fKeys.push_back({std::string(name), {}, TType::kNull});
}

void TInstanceNames::SetKeyValue(std::string_view text, TCIMValue::ECIMType type)
{
   const TName& open = fOpen.back();
   if (text.size() > fLimits.fTextBytes)
      fSource.Fail(open.fMark, fmt::format("expected at most {} bytes in one text, found more",
                                           fLimits.fTextBytes));
   TInstanceKey& key = fOpen.back().fKeys.back();
   key.fText = IsQuoted(type) ? text : TrimBlanks(text);
   key.fType = type;
}

void TInstanceNames::End()
{
   TName name = std::move(fOpen.back());
   fOpen.pop_back();
   fPath = name.fClassName;
   bool isFirst = true;
   for (const TInstanceKey& key : name.fKeys) {
      if (key.fType == TType::kNull)
         fSource.Fail(name.fMark, fmt::format("expected a value for the key {}, found none",
                                              QuoteForMessage(key.fName)));
      AppendKeyBinding(fPath, isFirst, key.fName, key.fText, IsQuoted(key.fType));
      isFirst = false;
   }
   // The one instance of a class without keys.
   if (isFirst)
      AppendKeyBinding(fPath, true, kNumberKey, "0", false);
   fKeys = std::move(name.fKeys);
}

void TInstanceNames::SetClassName(std::string_view className)
{
   fPath = className;
}

std::vector<TInstanceKey> TInstanceNames::TakeKeys()
{
   return std::exchange(fKeys, {});
}

std::string TInstanceNames::TakePath()
{
   return std::exchange(fPath, {});
}

}  // namespace NZANQSX20
