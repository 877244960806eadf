#pragma once

#include <cstddef>
#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

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
class TSchema
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

   /// All classes, placeholders included, in order of declaration; a placeholder stands where it
   /// was first named until it is declared.
   const std::vector<TStoredClass*>& GetClasses() const { return fClasses; }

   /// The superclasses that no declaration has named so far; a reader warns of them at the end.
   std::vector<const TStoredClass*> GetPlaceholders() const;

   /// The class and all below it: itself, then each subclass in order of declaration, depth first.
   std::vector<const TStoredClass*> GetWithSubclasses(const TStoredClass& top) const;

private:
   friend class TStoredClass;

   TStoredClass& FindOrAdd(const std::string& name);
   const std::string* Intern(std::string_view name);

   std::unordered_set<std::string> fNames;
   std::deque<TStoredClass> fStorage;
   std::vector<TStoredClass*> fClasses;
   std::unordered_map<std::string_view, TStoredClass*> fByName;
   /// Goes up with each declaration; classes work out their inherited properties anew after it.
   unsigned fVersion = 0;
};

}  // namespace NZANQSX20
