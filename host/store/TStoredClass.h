#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "store/Declarations.h"
#include "store/TStoredValue.h"

namespace NZANQSX20 {

class TReportText;
class TSchema;
class TStoredInstance;
struct TShape;

/// A property as a class declares it, joined to the declaration that it overrides.
class TStoredProperty
{
public:
   explicit TStoredProperty(TPropertyDecl declaration) : fDeclaration(std::move(declaration)) {}

   const TPropertyDecl& GetDeclaration() const { return fDeclaration; }

   /// The qualifier, searched from this declaration up to the root. Missing: null.
   const TQualifierDecl* FindQualifier(std::string_view name) const;

   /// Whether the qualifier is there and true.
   bool HasTrueQualifier(std::string_view name) const;

   /// The default, searched from this declaration up to the root. Missing: null of the declared
   /// type.
   const TCIMValue& GetDefault() const;

private:
   friend class TStoredClass;

   TPropertyDecl fDeclaration;
   const TStoredProperty* fOverridden = nullptr;
};

/// A class of the schema: what it declares, what it inherits, its slots and its instances.
class TStoredClass
{
public:
   TStoredClass(TSchema& schema, const std::string& name) : fSchema(schema), fName(name) {}

   TStoredClass(const TStoredClass&) = delete;
   TStoredClass& operator=(const TStoredClass&) = delete;

   const std::string& GetName() const { return fName; }

   /// Missing: null for a root class.
   const TStoredClass* GetSuperclass() const { return fSuperclass; }

   /// Direct subclasses in order of declaration.
   const std::vector<TStoredClass*>& GetSubclasses() const { return fSubclasses; }

   const std::vector<TQualifierDecl>& GetQualifiers() const { return fQualifiers; }

   /// Whether the class is only known as somebody's superclass.
   bool IsPlaceholder() const { return fIsPlaceholder; }

   /// Whether the class is this one or one of its ancestors.
   bool IsOrDerivesFrom(const TStoredClass& ancestor) const;

   /// Whether a reference is declared or inherited.
   bool IsAssociation() const;

   // Properties. A slot stands for a name, whether the class declares it or not: a reader may use
   // the slot of any name before all classes are known.

   /// The slot of that name, a new one when nobody asked for it before. One hash look-up.
   TSlot GetSlot(std::string_view name);

   /// Missing: false when no instance can have a property of that name.
   bool FindSlot(std::string_view name, TSlot& slot) const;

   const std::string& GetSlotName(TSlot slot) const;

   /// The effective declaration, inherited ones included. Missing: null when the class does not
   /// declare the name.
   const TStoredProperty* FindProperty(TSlot slot) const;
   const TStoredProperty* FindProperty(std::string_view name) const;

   /// The slots of all declared properties: inherited ones first (root class first), each in order
   /// of declaration; an overridden one keeps its first place.
   const std::vector<TSlot>& GetDeclaredSlots() const;

   /// The slots of the keys (qualifier Key) in byte order of their names.
   const std::vector<TSlot>& GetKeySlots() const;

   /// The instances in order of listing; deleted ones stay and are no longer IsListed.
   const std::vector<TStoredInstance*>& GetInstances() const { return fInstances; }

private:
   friend class TSchema;
   friend class TMemoryStore;

   TSchema& fSchema;
   const std::string& fName;
   TStoredClass* fSuperclass = nullptr;
   bool fIsPlaceholder = true;
   std::vector<TStoredClass*> fSubclasses;
   std::vector<TQualifierDecl> fQualifiers;
   std::vector<TStoredInstance*> fInstances;
};

}  // namespace NZANQSX20
