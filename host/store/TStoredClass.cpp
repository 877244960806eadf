#include "store/TStoredClass.h"

#include <algorithm>

#include "store/TReportText.h"
#include "store/TSchema.h"

namespace NZANQSX20 {

using TType = TCIMValue::TCIMType;

TStoredProperty::TStoredProperty(TPropertyDecl declaration) : fDeclaration(std::move(declaration))
{
   if (fDeclaration.fDefault.IsNull())
      fDeclaration.fDefault = TCIMValue::Null(fDeclaration.fType, fDeclaration.fIsArray);
}

TStoredProperty::~TStoredProperty() = default;

const TQualifierDecl* TStoredProperty::FindQualifier(std::string_view name) const
{
   for (const TStoredProperty* property = this; property != nullptr;
        property = property->fOverridden) {
      for (const TQualifierDecl& qualifier : property->fDeclaration.fQualifiers) {
         if (qualifier.fName == name)
            return &qualifier;
      }
   }
   return nullptr;
}

bool TStoredProperty::HasTrueQualifier(std::string_view name) const
{
   const TQualifierDecl* qualifier = FindQualifier(name);
   if (qualifier == nullptr)
      return false;
   const TCIMValue& value = qualifier->fValue;
   return !value.IsNull() && value.GetType() == TType::kBoolean && !value.IsArray() &&
          static_cast<bool>(value);
}

const TCIMValue& TStoredProperty::GetDefault() const
{
   for (const TStoredProperty* property = this; property != nullptr;
        property = property->fOverridden) {
      if (!property->fDeclaration.fDefault.IsNull())
         return property->fDeclaration.fDefault;
   }
   return fDeclaration.fDefault;
}

const TReportText& TStoredProperty::GetReportText() const
{
   if (fReportText == nullptr)
      fReportText = std::make_unique<TReportText>(*this);
   return *fReportText;
}

void TStoredProperty::Override(const TStoredProperty* overridden) const
{
   if (fOverridden == overridden)
      return;
   fOverridden = overridden;
   fReportText.reset();
}

TStoredClass::TStoredClass(TSchema& schema, const std::string& name) : fSchema(schema), fName(name)
{}

TStoredClass::~TStoredClass() = default;

bool TStoredClass::IsOrDerivesFrom(const TStoredClass& ancestor) const
{
   const TStoredClass* candidate = this;
   while (candidate != nullptr && candidate != &ancestor)
      candidate = candidate->fSuperclass;
   return candidate != nullptr;
}

TSlot TStoredClass::GetSlot(std::string_view name)
{
   const auto known = fSlotsByName.find(name);
   return known != fSlotsByName.end() ? known->second : AddSlot(name);
}

TSlot TStoredClass::AddSlot(std::string_view name) const
{
   const auto slot = static_cast<TSlot>(fSlotNames.size());
   const std::string* interned = fSchema.Intern(name);
   fSlotNames.push_back(interned);
   fSlotsByName.emplace(*interned, slot);
   return slot;
}

bool TStoredClass::FindSlot(std::string_view name, TSlot& slot) const
{
   GetLayout();
   const bool isGuessed = fLastFound < fFoundAfter.size();
   const TSlot guess = isGuessed ? fFoundAfter[fLastFound] : 0;
   if (!isGuessed || name != *fSlotNames[guess]) {
      const auto known = fSlotsByName.find(name);
      if (known == fSlotsByName.end())
         return false;
      slot = known->second;
      fFoundAfter.resize(fSlotNames.size());
      fFoundAfter[fLastFound] = slot;
   } else
      slot = guess;
   fLastFound = slot;
   return true;
}

const TStoredProperty* TStoredClass::FindProperty(TSlot slot) const
{
   const TLayout& layout = GetLayout();
   return slot < layout.fBySlot.size() ? layout.fBySlot[slot] : nullptr;
}

const TStoredProperty* TStoredClass::FindProperty(std::string_view name) const
{
   TSlot slot = 0;
   return FindSlot(name, slot) ? FindProperty(slot) : nullptr;
}

bool TStoredClass::IsKeyOrReference(TSlot slot) const
{
   const TLayout& layout = GetLayout();
   const auto holds = [slot](const std::vector<TSlot>& slots) {
      return std::find(slots.begin(), slots.end(), slot) != slots.end();
   };
   return holds(layout.fKeys) || holds(layout.fReferences);
}

const TStoredClass::TLayout& TStoredClass::GetLayout() const
{
   if (fLayout.fVersion != fSchema.fVersion)
      BuildLayout();
   return fLayout;
}

void TStoredClass::BuildLayout() const
{
   std::vector<const TStoredClass*> lineage;
   for (const TStoredClass* ancestor = this; ancestor != nullptr; ancestor = ancestor->fSuperclass)
      lineage.push_back(ancestor);

   TLayout layout;
   layout.fVersion = fSchema.fVersion;
   for (auto ancestor = lineage.rbegin(); ancestor != lineage.rend(); ++ancestor) {
      for (const TStoredProperty* property : (*ancestor)->fOwnProperties) {
         const std::string& name = property->GetDeclaration().fName;
         const auto known = fSlotsByName.find(name);
         const TSlot slot = known != fSlotsByName.end() ? known->second : AddSlot(name);
         if (slot >= layout.fBySlot.size())
            layout.fBySlot.resize(slot + 1, nullptr);
         if (layout.fBySlot[slot] == nullptr)
            layout.fDeclared.push_back(slot);
         property->Override(layout.fBySlot[slot]);
         layout.fBySlot[slot] = property;
      }
   }
   for (const TSlot slot : layout.fDeclared) {
      const TStoredProperty& property = *layout.fBySlot[slot];
      if (property.HasTrueQualifier("Key"))
         layout.fKeys.push_back(slot);
      if (property.GetDeclaration().fType == TType::kReference)
         layout.fReferences.push_back(slot);
   }
   std::sort(layout.fKeys.begin(), layout.fKeys.end(),
             [this](TSlot a, TSlot b) { return GetSlotName(a) < GetSlotName(b); });
   fLayout = std::move(layout);
}

}  // namespace NZANQSX20
