#include "readers/TObjectDraft.h"

#include <fmt/format.h>

namespace NZANQSX20 {

namespace {

[[noreturn]] void FailAtLimit(const TSource& source, std::size_t mark, const char* what,
                              std::size_t limit)
{
   source.Fail(mark, fmt::format("expected at most {} {}, found more", limit, what));
}

}  // namespace

void TObjectDraft::Clear()
{
   fClassName = fSuperclass = fAlias = {};
   fMark = fAliasMark = 0;
   fIsOpen = false;
   fSharedText.reset();
   fQualifierCount = 0;
   fProperties.clear();
   fQualifiers.clear();
   fValues.clear();
   fMemory.release();
}

std::string_view TObjectDraft::Keep(std::string_view text)
{
   if (text.empty())
      return {};
   auto* copy = static_cast<char*>(fMemory.allocate(text.size(), 1));
   text.copy(copy, text.size());
   return {copy, text.size()};
}

TPropertyDraft& TObjectDraft::AddProperty(const TSource& source, const TPropertyDraft& property)
{
   CheckName(source, property.fMark, property.fName);
   if (fProperties.size() >= fLimits.fProperties)
      FailAtLimit(source, property.fMark, "properties of one class or instance",
                  fLimits.fProperties);
   return fProperties.emplace_back(property);
}

TQualifierDraft& TObjectDraft::AddQualifier(const TSource& source, const TQualifierDraft& qualifier)
{
   CheckName(source, qualifier.fMark, qualifier.fName);
   if (fQualifiers.size() >= fLimits.fProperties * 10)
      FailAtLimit(source, qualifier.fMark, "qualifiers of one class", fLimits.fProperties * 10);
   return fQualifiers.emplace_back(qualifier);
}

void TObjectDraft::AddValue(const TSource& source, const TValueDraft& value)
{
   if (value.fText.size() > fLimits.fTextBytes)
      FailAtLimit(source, value.fMark, "bytes in one text", fLimits.fTextBytes);
   if (fValues.size() - fValuesStart >= fLimits.fArrayItems)
      FailAtLimit(source, value.fMark, "items in one array", fLimits.fArrayItems);
   fValues.push_back(value);
}

void TObjectDraft::BeginValues()
{
   fValuesStart = static_cast<std::uint32_t>(fValues.size());
}

TValuesDraft TObjectDraft::EndValues(bool isArray) const
{
   const auto count = static_cast<std::uint32_t>(fValues.size()) - fValuesStart;
   return {fValuesStart, count, isArray, true};
}

void TObjectDraft::CheckName(const TSource& source, std::size_t mark, std::string_view name) const
{
   if (name.size() > fLimits.fNameBytes)
      FailAtLimit(source, mark, "bytes in one name", fLimits.fNameBytes);
}

}  // namespace NZANQSX20
