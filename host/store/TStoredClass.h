#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include <boost/weak_ptr.hpp>

#include "QSXExport.h"
#include "store/Declarations.h"
#include "store/TShape.h"
#include "store/TStoredValue.h"

namespace NZANQSX20 {

class ICIMPropertyDecl;
class TReportText;
class TSchema;
class TStoredInstance;

/// A property as a class declares it, joined to the declaration that it overrides.
class QSX_API TStoredProperty
{
public:
   explicit TStoredProperty(TPropertyDecl declaration);
   ~TStoredProperty();

   const TPropertyDecl& GetDeclaration() const { return fDeclaration; }

   /// The qualifier, searched from this declaration up to the root. Missing: null.
   const TQualifierDecl* FindQualifier(std::string_view name) const;

   /// Whether the qualifier is there and true.
   bool HasTrueQualifier(std::string_view name) const;

   /// The default, searched from this declaration up to the root. Missing: null of the declared
   /// type.
   const TCIMValue& GetDefault() const;

   /// How values of this property read in a report, worked out at the first call.
   const TReportText& GetReportText() const;

   /// The handle that was given out last, if somebody still holds it.
   boost::weak_ptr<const ICIMPropertyDecl>& GetSharedHandle() const { return fSharedHandle; }

private:
   friend class TStoredClass;

   /// Names the declaration that this one overrides, null for none; the same for every subclass.
   void Override(const TStoredProperty* overridden) const;

   TPropertyDecl fDeclaration;
   mutable const TStoredProperty* fOverridden = nullptr;
   mutable std::unique_ptr<const TReportText> fReportText;
   mutable boost::weak_ptr<const ICIMPropertyDecl> fSharedHandle;
};

/// A class of the schema: what it declares, what it inherits, its slots and its instances.
///
/// Owner: the schema's. What is asked here depends on all declarations so far; slots alone stay.
class QSX_API TStoredClass
{
public:
   TStoredClass(TSchema& schema, const std::string& name);
   ~TStoredClass();
   TStoredClass(const TStoredClass&) = delete;
   TStoredClass& operator=(const TStoredClass&) = delete;

   const std::string& GetName() const { return fName; }

   const TSchema& GetSchema() const { return fSchema; }

   /// Missing: null for a root class.
   const TStoredClass* GetSuperclass() const { return fSuperclass; }

   /// Direct subclasses in order of declaration.
   const std::vector<TStoredClass*>& GetSubclasses() const { return fSubclasses; }

   const std::vector<TQualifierDecl>& GetQualifiers() const { return fQualifiers; }

   /// What this class itself declares, overridden ones included, in order of declaration.
   const std::vector<const TStoredProperty*>& GetOwnProperties() const { return fOwnProperties; }

   /// Whether the class is only known as somebody's superclass.
   bool IsPlaceholder() const { return fIsPlaceholder; }

   /// Whether no file declares the class: it was made because something needs it.
   bool IsImplied() const { return fIsImplied; }

   /// Whether the class is this one or one of its ancestors.
   bool IsOrDerivesFrom(const TStoredClass& ancestor) const;

   /// Whether a reference is declared or inherited.
   bool IsAssociation() const { return !GetReferenceSlots().empty(); }

   // Properties. A slot stands for a name, whether the class declares it or not: a reader may use
   // the slot of any name before all classes are known.

   /// The slot of that name, a new one when nobody asked for it before. One hash look-up.
   TSlot GetSlot(std::string_view name);

   /// Missing: false when no instance can have a property of that name.
   bool FindSlot(std::string_view name, TSlot& slot) const;

   const std::string& GetSlotName(TSlot slot) const { return *fSlotNames[slot]; }

   /// The effective declaration, inherited ones included. Missing: null when the class does not
   /// declare the name.
   const TStoredProperty* FindProperty(TSlot slot) const;
   const TStoredProperty* FindProperty(std::string_view name) const;

   /// The slots of all declared properties: inherited ones first (root class first), each in order
   /// of declaration; an overridden one keeps its first place.
   const std::vector<TSlot>& GetDeclaredSlots() const { return GetLayout().fDeclared; }

   /// The slots of the keys (qualifier Key) in byte order of their names.
   const std::vector<TSlot>& GetKeySlots() const { return GetLayout().fKeys; }

   /// The slots of the declared references, in the order of GetDeclaredSlots.
   const std::vector<TSlot>& GetReferenceSlots() const { return GetLayout().fReferences; }

   bool IsKeyOrReference(TSlot slot) const;

   /// The instances in order of listing; deleted ones stay and are no longer IsListed.
   const std::vector<TStoredInstance*>& GetInstances() const { return fInstances; }

private:
   friend class TSchema;
   friend class TMemoryStore;

   /// What the declarations of the class and its ancestors come to.
   struct TLayout
   {
      unsigned fVersion = 0;
      std::vector<TSlot> fDeclared;
      std::vector<TSlot> fKeys;
      std::vector<TSlot> fReferences;
      /// By slot. Missing: null, or no entry, for a name that is not declared.
      std::vector<const TStoredProperty*> fBySlot;
   };

   const TLayout& GetLayout() const;
   void BuildLayout() const;
   TSlot AddSlot(std::string_view name) const;

   TSchema& fSchema;
   const std::string& fName;
   TStoredClass* fSuperclass = nullptr;
   bool fIsPlaceholder = true;
   bool fIsImplied = false;
   std::vector<TStoredClass*> fSubclasses;
   std::vector<TQualifierDecl> fQualifiers;
   std::vector<const TStoredProperty*> fOwnProperties;
   std::vector<TStoredInstance*> fInstances;
   TShapeTable fShapes;

   // A layout gives slots to the declared names, so it may come with a first question.
   mutable TLayout fLayout;
   mutable std::vector<const std::string*> fSlotNames;
   mutable std::unordered_map<std::string_view, TSlot> fSlotsByName;

   // A report asks for the same names again and again, in the same order: the slot found last, and
   // which one was found after each slot the last time.
   mutable TSlot fLastFound = 0;
   mutable std::vector<TSlot> fFoundAfter;
};

}  // namespace NZANQSX20
