#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "TCIMValue.h"
#include "readers/TObjectDraft.h"
#include "readers/TSourceText.h"
#include "store/Declarations.h"

namespace NZANQSX20 {

/// Turns drafts of classes into declarations.
///
/// Throws: TReadError for a value that is not of its type.
class TDeclarationReader
{
public:
   /// The type that qualifiers of this name have from here on, where a file does not tell it.
   void DeclareQualifier(std::string_view name, TCIMValue::ECIMType type);

   TClassDecl ReadClass(const TObjectDraft& draft, const TSource& source) const;

   /// The declaration that an instance makes by what it holds.
   TClassDecl ReadInstanceAsClass(const TObjectDraft& draft, const TSource& source) const;

private:
   TPropertyDecl ReadProperty(const TObjectDraft& draft, const TPropertyDraft& property,
                              const TSource& source) const;
   std::vector<TQualifierDecl> ReadQualifiers(const TObjectDraft& draft, std::uint32_t first,
                                              std::uint32_t count, const TSource& source) const;
   TCIMValue::ECIMType GetQualifierType(const TObjectDraft& draft,
                                        const TQualifierDraft& qualifier) const;

   std::unordered_map<std::string, TCIMValue::ECIMType> fQualifierTypes;
};

}  // namespace NZANQSX20
