#include "readers/TStoredValueReader.h"

#include <utility>

#include <fmt/format.h>
#include <boost/make_shared.hpp>

#include "readers/ReadValue.h"

namespace NZANQSX20 {

namespace {

using TType = TCIMValue::TCIMType;

bool LiesIn(std::string_view text, std::string_view whole)
{
   return text.data() >= whole.data() && text.data() + text.size() <= whole.data() + whole.size();
}

[[noreturn]] void FailAtValue(const TValueDraft& value, TCIMValue::ECIMType type,
                              const TSource& source)
{
   source.Fail(value.fMark,
               fmt::format("expected {}, found {}", DescribeType(type), DescribeValue(value)));
}

bool IsNull(const TObjectDraft& draft, const TValuesDraft& values)
{
   return !values.fIsGiven ||
          (!values.fIsArray && draft.fValues[values.fFirst].fForm == TValueDraft::kNull);
}

}  // namespace

TStoredValue TStoredValueReader::Read(const TObjectDraft& draft, const TPropertyDraft& property,
                                      const TKnownProperty& known, const TSource& source)
{
   const TValuesDraft& values = property.fValues;
   if (IsNull(draft, values))
      return TStoredValue::Null(known.fType, known.fIsArray);
   if (values.fIsArray != known.fIsArray)
      source.Fail(property.fMark, fmt::format("expected {} for {}, found {}",
                                              known.fIsArray ? "a list" : "one value", known.fName,
                                              known.fIsArray ? "one value" : "a list"));
   fMeetsUnknownAlias = false;
   if (!known.fIsArray) {
      const TValueDraft& value = draft.fValues[values.fFirst];
      const TStoredValue stored = ReadElement(draft, value, known.fType, source);
      if (fMeetsUnknownAlias)
         Forward(draft, property, known, source);
      return stored;
   }

   fElements.clear();
   for (std::uint32_t index = 0; index < values.fCount; ++index)
      fElements.push_back(
         ReadElement(draft, draft.fValues[values.fFirst + index], known.fType, source));
   if (fMeetsUnknownAlias)
      Forward(draft, property, known, source);
   return fStore.MakeArray(known.fType, fElements);
}

std::vector<TAliases::TForwardReference> TStoredValueReader::TakeForwardReferences()
{
   return std::exchange(fForwardReferences, {});
}

TStoredValue TStoredValueReader::ReadElement(const TObjectDraft& draft, const TValueDraft& value,
                                             TCIMValue::ECIMType type, const TSource& source)
{
   if (value.fForm == TValueDraft::kAlias && type == TType::kReference) {
      const TStoredInstance* const target = fAliases.Find(value.fText);
      fMeetsUnknownAlias = fMeetsUnknownAlias || target == nullptr;
      return target == nullptr ? TStoredValue::Null(type) : fStore.MakeReference(*target);
   }

   TTypedValue typed;
   if (!ReadTypedValue(value, type, typed))
      FailAtValue(value, type, source);
   if (typed.fIsNull)
      return TStoredValue::Null(type);
   switch (type) {
      case TType::kBoolean:
         return TStoredValue::Boolean(typed.fUnsigned != 0);
      case TType::kReal32:
      case TType::kReal64:
         return TStoredValue::Real(type, typed.fReal);
      case TType::kString:
         return MakeText(draft, typed.fText);
      case TType::kDateTime:
         return fStore.MakeDateTime(typed.fDateTime);
      case TType::kReference: {
         TStoredValue reference;
         if (!fStore.MakeReference(typed.fText, reference))
            FailAtValue(value, type, source);
         return reference;
      }
      case TType::kSInt8:
      case TType::kSInt16:
      case TType::kSInt32:
      case TType::kSInt64:
         return TStoredValue::Signed(type, typed.fSigned);
      default:
         return TStoredValue::Unsigned(type, typed.fUnsigned);
   }
}

TStoredValue TStoredValueReader::MakeText(const TObjectDraft& draft, std::string_view text)
{
   if (!draft.fSharedText || !LiesIn(text, draft.fSharedText->GetText()))
      return fStore.MakeString(text);
   if (fKeptText != draft.fSharedText) {
      fKeptText = draft.fSharedText;
      fStore.Keep(boost::make_shared<std::shared_ptr<const TSourceText>>(fKeptText));
   }
   return TStoredValue::StringView(text);
}

void TStoredValueReader::Forward(const TObjectDraft& draft, const TPropertyDraft& property,
                                 const TKnownProperty& known, const TSource& source)
{
   TAliases::TForwardReference reference;
   reference.fSlot = known.fSlot;
   reference.fIsArray = known.fIsArray;
   reference.fFile = source.GetName();
   const TValuesDraft& values = property.fValues;
   for (std::uint32_t index = 0; index < values.fCount; ++index) {
      const TValueDraft& value = draft.fValues[values.fFirst + index];
      TAliases::TElement element;
      if (value.fForm == TValueDraft::kAlias)
         element.fAlias = value.fText;
      else
         element.fValue = fElements[index];
      element.fPlace = source.Locate(value.fMark);
      reference.fElements.push_back(std::move(element));
   }
   fForwardReferences.push_back(std::move(reference));
}

}  // namespace NZANQSX20
