#pragma once

#include <string_view>
#include <vector>

#include "QSXExport.h"
#include "store/Declarations.h"

namespace NZANQSX20 {

/// The classes that carry the findings of a comparison.
constexpr const char* kDeltaClassName = "ZANSG_DeltaClass";
constexpr const char* kDeltaName = "ZANSG_Delta";
constexpr const char* kDeltaAssociationName = "ZANSG_DeltaClassAssocToDelta";

/// The kinds of a finding.
enum EFindingType : unsigned
{
   kFindingMissing = 1,
   kFindingUnique = 2,
   kFindingProperty = 4
};

QSX_API bool IsDeltaClass(std::string_view className);

/// The declarations of the three, where no findings file has its own.
QSX_API std::vector<TClassDecl> MakeDeltaClassDecls();

}  // namespace NZANQSX20
