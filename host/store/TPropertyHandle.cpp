#include "store/TPropertyHandle.h"

#include <boost/make_shared.hpp>

#include "store/StoredValueConversion.h"
#include "store/TPropertyDeclHandle.h"

namespace NZANQSX20 {

using TType = TCIMValue::TCIMType;

const TCIMValue& TPropertyHandle::Read()
{
   if (fReadVersion == fStore.GetValueVersion())
      return fValue;
   const TStoredValue* own = fInstance.Find(fSlot);
   if (own != nullptr)
      fValue = ToValue(*own, fRepository, fStore);
   else if (fDeclaration != nullptr)
      fValue = fDeclaration->GetDefault();
   if (fValue.IsNull())
      fValue = ConvertToDeclared(fValue, fDeclaration);
   fReadVersion = fStore.GetValueVersion();
   return fValue;
}

const TReportText& TPropertyHandle::GetReportText() const
{
   static const TReportText kUndeclared;
   return fDeclaration != nullptr ? fDeclaration->GetReportText() : kUndeclared;
}

TCIMValue::TCIMType TPropertyHandle::GetType(TContext)
{
   return fDeclaration != nullptr ? TCIMValue::TCIMType(fDeclaration->GetDeclaration().fType)
                                  : Read().GetType();
}

bool TPropertyHandle::IsArray(TContext)
{
   return fDeclaration != nullptr ? fDeclaration->GetDeclaration().fIsArray : Read().IsArray();
}

const TCIMValue& TPropertyHandle::GetValue(TContext)
{
   return Read();
}

void TPropertyHandle::SetValue(const TCIMValue& value, TContext)
{
   fStore.Set(fInstance, fSlot, fStore.MakeValue(ConvertToDeclared(value, fDeclaration)));
}

boost::shared_ptr<const ICIMPropertyDecl> TPropertyHandle::GetDecl(TContext)
{
   return GetDeclHandle(fRepository, fDeclaration, fInstance.GetClass().GetSlotName(fSlot));
}

const TCIMValue& TPropertyHandle::GetValue()
{
   // A raw form of its own exists only where the report text is a translation.
   static const TCIMValue kNone{};
   if (!GetReportText().HasTranslations())
      return kNone;
   const TCIMValue& value = Read();
   return GetReportText().IsTranslation(value) ? value : kNone;
}

bool TPropertyHandle::HasValue()
{
   const TStoredValue* own = fInstance.Find(fSlot);
   if (own != nullptr && own->GetType() == TType::kString && !own->IsArray())
      return !own->IsNull() && !own->GetText().empty();
   const TCIMValue& value = Read();
   if (value.IsNull())
      return false;
   if (value.IsArray())
      return !static_cast<const std::vector<TCIMValue>&>(value).empty();
   return value.GetType() != TType::kString || !static_cast<std::string>(value).empty();
}

std::string TPropertyHandle::GetValueString()
{
   // Most cells are plain strings: these are read straight from the store.
   const TStoredValue* own = fInstance.Find(fSlot);
   const bool isSingleString =
      own != nullptr && own->GetType() == TType::kString && !own->IsArray() && !own->IsNull();
   if (isSingleString && GetReportText().IsPlain())
      return std::string(own->GetText());

   if (!Read().IsArray())
      return GetReportText().GetText(fValue);
   std::string text;
   const std::vector<std::string> elements = GetValueStrings();
   for (std::size_t i = 0; i < elements.size(); ++i)
      text += (i > 0 ? ", " : "") + elements[i];
   return text;
}

std::string TPropertyHandle::GetRawValueString()
{
   if (!GetReportText().HasTranslations())
      return {};
   const TCIMValue& value = Read();
   return GetReportText().IsTranslation(value) ? value.ToString(10) : std::string();
}

std::vector<std::string> TPropertyHandle::GetValueStrings()
{
   const TCIMValue& value = Read();
   if (value.IsNull())
      return {};
   if (!value.IsArray())
      return {GetReportText().GetText(value)};
   std::vector<std::string> texts;
   for (const TCIMValue& element : static_cast<const std::vector<TCIMValue>&>(value))
      texts.push_back(GetReportText().GetText(element));
   return texts;
}

}  // namespace NZANQSX20
