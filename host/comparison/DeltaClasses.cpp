#include "comparison/DeltaClasses.h"

namespace NZANQSX20 {

namespace {

using TType = TCIMValue::TCIMType;

TPropertyDecl Property(const char* name, TType::ECIMType type, bool isArray = false)
{
   TPropertyDecl decl;
   decl.fName = name;
   decl.fType = type;
   decl.fIsArray = isArray;
   return decl;
}

TPropertyDecl Key(TPropertyDecl decl)
{
   decl.fQualifiers.push_back({"Key", TCIMValue::Boolean(true)});
   return decl;
}

TPropertyDecl Reference(const char* name, const char* className)
{
   TPropertyDecl decl = Property(name, TType::kReference);
   decl.fReferenceClass = className;
   return decl;
}

}  // namespace

bool IsDeltaClass(std::string_view className)
{
   return className == kDeltaClassName || className == kDeltaName ||
          className == kDeltaAssociationName;
}

std::vector<TClassDecl> MakeDeltaClassDecls()
{
   TClassDecl deltaClass;
   deltaClass.fName = kDeltaClassName;
   deltaClass.fProperties = {Key(Property("ClassName", TType::kString))};

   TClassDecl delta;
   delta.fName = kDeltaName;
   delta.fProperties = {Key(Property("DeltaID", TType::kUInt32)), Property("Type", TType::kUInt8),
                        Property("InstanceName", TType::kString),
                        Property("Property", TType::kString),
                        Property("NamespaceIndices", TType::kUInt16, true)};

   TClassDecl association;
   association.fName = kDeltaAssociationName;
   association.fQualifiers = {{"Association", TCIMValue::Boolean(true)}};
   association.fProperties = {Key(Reference("Antecedent", kDeltaClassName)),
                              Key(Reference("Dependent", kDeltaName))};
   return {deltaClass, delta, association};
}

}  // namespace NZANQSX20
