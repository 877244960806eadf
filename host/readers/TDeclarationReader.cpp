#include "readers/TDeclarationReader.h"

#include <utility>

#include <fmt/format.h>

#include "readers/ReadValue.h"

namespace NZANQSX20 {

namespace {

using TType = TCIMValue::TCIMType;

TCIMValue ReadOne(const TValueDraft& draft, TCIMValue::ECIMType type, const TSource& source)
{
   TTypedValue value;
   if (!ReadTypedValue(draft, type, value))
      source.Fail(draft.fMark,
                  fmt::format("expected {}, found {}", DescribeType(type), DescribeValue(draft)));
   return MakeCIMValue(value);
}

TCIMValue ReadAll(const TObjectDraft& draft, const TValuesDraft& values, TCIMValue::ECIMType type,
                  const TSource& source)
{
   if (!values.fIsArray)
      return ReadOne(draft.fValues[values.fFirst], type, source);
   std::vector<TCIMValue> elements;
   elements.reserve(values.fCount);
   for (std::uint32_t index = 0; index < values.fCount; ++index)
      elements.push_back(ReadOne(draft.fValues[values.fFirst + index], type, source));
   return TCIMValue::Array(type, std::move(elements));
}

bool IsNull(const TObjectDraft& draft, const TValuesDraft& values)
{
   return !values.fIsArray && draft.fValues[values.fFirst].fForm == TValueDraft::kNull;
}

}  // namespace

void TDeclarationReader::DeclareQualifier(std::string_view name, TCIMValue::ECIMType type)
{
   fQualifierTypes.emplace(name, type);
}

TClassDecl TDeclarationReader::ReadClass(const TObjectDraft& draft, const TSource& source) const
{
   TClassDecl declaration;
   declaration.fName = draft.fClassName;
   declaration.fSuperclass = draft.fSuperclass;
   declaration.fQualifiers = ReadQualifiers(draft, 0, draft.fQualifierCount, source);
   declaration.fProperties.reserve(draft.fProperties.size());
   for (const TPropertyDraft& property : draft.fProperties)
      declaration.fProperties.push_back(ReadProperty(draft, property, source));
   return declaration;
}

TClassDecl TDeclarationReader::ReadInstanceAsClass(const TObjectDraft& draft,
                                                   const TSource& source) const
{
   TClassDecl declaration;
   declaration.fName = draft.fClassName;
   declaration.fIsImplied = true;
   for (const TPropertyDraft& property : draft.fProperties) {
      TPropertyDraft undefined = property;
      undefined.fValues = {};
      TPropertyDecl member = ReadProperty(draft, undefined, source);
      if (property.fIsKey)
         member.fQualifiers.push_back({"Key", TCIMValue::Boolean(true)});
      declaration.fProperties.push_back(std::move(member));
   }
   return declaration;
}

TPropertyDecl TDeclarationReader::ReadProperty(const TObjectDraft& draft,
                                               const TPropertyDraft& property,
                                               const TSource& source) const
{
   TPropertyDecl declaration;
   declaration.fName = property.fName;
   declaration.fType = property.fType;
   declaration.fIsArray = property.fIsArray;
   declaration.fReferenceClass = property.fReferenceClass;
   declaration.fQualifiers =
      ReadQualifiers(draft, property.fFirstQualifier, property.fQualifierCount, source);

   const TValuesDraft& values = property.fValues;
   if (!values.fIsGiven || IsNull(draft, values))
      return declaration;
   if (values.fIsArray != property.fIsArray)
      source.Fail(property.fMark, property.fIsArray
                                     ? "expected a list as the default, found one value"
                                     : "expected one value as the default, found a list");
   declaration.fDefault = ReadAll(draft, values, property.fType, source);
   return declaration;
}

std::vector<TQualifierDecl> TDeclarationReader::ReadQualifiers(const TObjectDraft& draft,
                                                               std::uint32_t first,
                                                               std::uint32_t count,
                                                               const TSource& source) const
{
   std::vector<TQualifierDecl> declarations;
   declarations.reserve(count);
   for (std::uint32_t index = first; index < first + count; ++index) {
      const TQualifierDraft& qualifier = draft.fQualifiers[index];
      const TCIMValue::ECIMType type = GetQualifierType(draft, qualifier);
      TCIMValue value = TCIMValue::Boolean(true);
      if (qualifier.fValues.fIsGiven)
         value = ReadAll(draft, qualifier.fValues, type, source);
      else if (type != TType::kBoolean)
         value = TCIMValue::Null(type);
      declarations.push_back({std::string(qualifier.fName), std::move(value)});
   }
   return declarations;
}

TCIMValue::ECIMType TDeclarationReader::GetQualifierType(const TObjectDraft& draft,
                                                         const TQualifierDraft& qualifier) const
{
   if (qualifier.fType != TType::kNull)
      return qualifier.fType;
   const auto declared = fQualifierTypes.find(std::string(qualifier.fName));
   if (declared != fQualifierTypes.end())
      return declared->second;
   if (!qualifier.fValues.fIsGiven)
      return TType::kBoolean;
   return qualifier.fValues.fCount == 0 ? TType::kString
                                        : GuessCIMType(draft.fValues[qualifier.fValues.fFirst]);
}

}  // namespace NZANQSX20
