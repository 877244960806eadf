#pragma once

#include <cstddef>
#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "QSXExport.h"
#include "store/Declarations.h"
#include "store/TStoredClass.h"

namespace NZANQSX20 {

enum class EDeclared
{
   kNew,              // the declaration holds
   kAgain,            // the class was declared before: that one holds, this one is dropped
   kSuperclassCycle,  // dropped: the class would be its own ancestor
};

/// The classes of one collection, in order of declaration.
///
/// Owner: classes stay where they are for the life of the schema. Names are compared exactly.
class QSX_API TSchema
{
public:
   TSchema() = default;
   TSchema(const TSchema&) = delete;
   TSchema& operator=(const TSchema&) = delete;

   /// Takes a declaration. The superclass may come later; until then it is a placeholder, an empty
   /// class. A declaration proper replaces a placeholder or an implied one and keeps the slots that
   /// were given out.
   /// Missing: a property named twice counts once, the first.
   EDeclared Declare(TClassDecl declaration);

   /// Missing: null for a name that is neither declared nor a placeholder.
   TStoredClass* Find(std::string_view name);
   const TStoredClass* Find(std::string_view name) const;

   /// All declared classes in order of declaration, without placeholders.
   const std::vector<TStoredClass*>& GetClasses() const { return fClasses; }

   /// All classes, placeholders included.
   const std::deque<TStoredClass>& GetAll() const { return fStorage; }

   /// The superclasses that no declaration has named so far; a reader warns of them at the end.
   std::vector<const TStoredClass*> GetPlaceholders() const;

   /// Another number after each declaration that may change the keys of instances: of a class that
   /// was known before. One that nobody named has neither instances nor subclasses.
   unsigned GetKeyVersion() const { return fKeyVersion; }

   /// The class and all below it: itself, then each subclass in order of declaration, depth first.
   static std::vector<const TStoredClass*> GetWithSubclasses(const TStoredClass& top);

private:
   friend class TStoredClass;

   TStoredClass& FindOrAdd(const std::string& name);
   void SetSuperclass(TStoredClass& declared, TStoredClass* superclass);
   const std::string* Intern(std::string_view name);

   std::unordered_set<std::string> fNames;
   std::deque<TStoredClass> fStorage;
   /// Of every class, and those whose declaration was replaced: handles may still name them.
   std::deque<TStoredProperty> fProperties;
   std::vector<TStoredClass*> fClasses;
   std::unordered_map<std::string_view, TStoredClass*> fByName;
   /// Classes work out their inherited properties anew after each declaration.
   unsigned fVersion = 1;
   unsigned fKeyVersion = 1;
};

}  // namespace NZANQSX20
