#include "store/StoredValueConversion.h"

#include <string>

#include "TCIMReference.h"
#include "store/StoredPath.h"
#include "store/ValueText.h"

namespace NZANQSX20 {

using TType = TCIMValue::TCIMType;

TCIMValue ToValue(const TStoredValue& value, const TRepositoryHandle& repository,
                  const TMemoryStore& store)
{
   const TStoredValue::ECIMType type = value.GetType();
   if (value.IsNull())
      return TCIMValue::Null(type, value.IsArray());
   if (value.IsArray()) {
      std::vector<TCIMValue> elements;
      elements.reserve(value.GetCount());
      for (std::uint32_t i = 0; i < value.GetCount(); ++i)
         elements.push_back(ToValue(value.GetElements()[i], repository, store));
      return TCIMValue::Array(type, std::move(elements));
   }
   if (type == TType::kString)
      return TCIMValue(std::string(value.GetText()));
   if (type == TType::kDateTime)
      return TCIMValue(value.GetDateTime());
   if (type == TType::kReference) {
      std::string path;
      AppendText(path, value);
      return TCIMValue(
         TCIMReference(OpenRepository(repository), path, repository->GetContext(store)));
   }
   if (IsRealType(type))
      return TCIMValue::Real(type, value.GetReal());
   if (IsSignedType(type))
      return TCIMValue::Signed(type, value.GetSigned());
   return TCIMValue::Unsigned(type, value.GetUnsigned());
}

TCIMValue ConvertToDeclared(const TCIMValue& value, const TStoredProperty* declaration)
{
   if (declaration == nullptr)
      return value;
   const TCIMValue::ECIMType type = declaration->GetDeclaration().fType;
   if (value.IsNull())
      return TCIMValue::Null(type, declaration->GetDeclaration().fIsArray);
   if (value.IsArray() || !IsIntegerType(value.GetType()))
      return value;
   if (IsUnsignedType(type))
      return TCIMValue::Unsigned(type, static_cast<std::uint64_t>(value));
   if (IsSignedType(type))
      return TCIMValue::Signed(type, static_cast<std::int64_t>(value));
   return value;
}

}  // namespace NZANQSX20
