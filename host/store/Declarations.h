#pragma once

#include <string>
#include <vector>

#include "TCIMValue.h"

namespace NZANQSX20 {

/// What a reader knows of a declaration: plain values, handed to TSchema::Declare.

struct TQualifierDecl
{
   std::string fName;
   TCIMValue fValue;
};

/// A property as one class declares it, of its own or overriding an ancestor's.
struct TPropertyDecl
{
   std::string fName;
   TCIMValue::ECIMType fType = TCIMValue::TCIMType::kString;
   bool fIsArray = false;
   /// The class that a reference names; empty for every other type.
   std::string fReferenceClass = {};
   /// Missing: null when the declaration has no default.
   TCIMValue fDefault = {};
   std::vector<TQualifierDecl> fQualifiers = {};
};

struct TClassDecl
{
   std::string fName;
   /// Missing: empty for a root class.
   std::string fSuperclass = {};
   std::vector<TQualifierDecl> fQualifiers = {};
   std::vector<TPropertyDecl> fProperties = {};
   /// Made from what an instance holds; a declaration proper takes its place whenever it comes.
   bool fIsImplied = false;
};

}  // namespace NZANQSX20
