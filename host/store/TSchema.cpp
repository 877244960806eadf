#include "store/TSchema.h"

#include <algorithm>

namespace NZANQSX20 {

EDeclared TSchema::Declare(TClassDecl declaration)
{
   const bool isKnown = Find(declaration.fName) != nullptr;
   TStoredClass& declared = FindOrAdd(declaration.fName);
   const bool isReplaceable =
      declared.fIsPlaceholder || (declared.fIsImplied && !declaration.fIsImplied);
   if (!isReplaceable)
      return EDeclared::kAgain;

   TStoredClass* superclass = nullptr;
   if (!declaration.fSuperclass.empty())
      superclass = &FindOrAdd(declaration.fSuperclass);
   if (superclass != nullptr && superclass->IsOrDerivesFrom(declared))
      return EDeclared::kSuperclassCycle;

   // An implied class stays in the place where it was first met.
   if (declared.fIsPlaceholder)
      fClasses.push_back(&declared);
   SetSuperclass(declared, superclass);
   declared.fIsPlaceholder = false;
   declared.fIsImplied = declaration.fIsImplied;
   declared.fQualifiers = std::move(declaration.fQualifiers);
   declared.fOwnProperties.clear();
   std::unordered_set<std::string_view> names;
   for (TPropertyDecl& property : declaration.fProperties) {
      fProperties.emplace_back(std::move(property));
      const TStoredProperty& stored = fProperties.back();
      if (names.insert(stored.GetDeclaration().fName).second)
         declared.fOwnProperties.push_back(&stored);
   }
   ++fVersion;
   fKeyVersion += isKnown ? 1 : 0;
   return EDeclared::kNew;
}

TStoredClass* TSchema::Find(std::string_view name)
{
   const auto found = fByName.find(name);
   return found != fByName.end() ? found->second : nullptr;
}

const TStoredClass* TSchema::Find(std::string_view name) const
{
   const auto found = fByName.find(name);
   return found != fByName.end() ? found->second : nullptr;
}

std::vector<const TStoredClass*> TSchema::GetPlaceholders() const
{
   std::vector<const TStoredClass*> placeholders;
   for (const TStoredClass& known : fStorage) {
      if (known.IsPlaceholder())
         placeholders.push_back(&known);
   }
   return placeholders;
}

std::vector<const TStoredClass*> TSchema::GetWithSubclasses(const TStoredClass& top)
{
   std::vector<const TStoredClass*> classes;
   std::vector<const TStoredClass*> waiting = {&top};
   while (!waiting.empty()) {
      const TStoredClass* next = waiting.back();
      waiting.pop_back();
      classes.push_back(next);
      const std::vector<TStoredClass*>& subclasses = next->GetSubclasses();
      waiting.insert(waiting.end(), subclasses.rbegin(), subclasses.rend());
   }
   return classes;
}

TStoredClass& TSchema::FindOrAdd(const std::string& name)
{
   TStoredClass* known = Find(name);
   if (known != nullptr)
      return *known;
   const std::string* interned = Intern(name);
   fStorage.emplace_back(*this, *interned);
   fByName.emplace(*interned, &fStorage.back());
   return fStorage.back();
}

const std::string* TSchema::Intern(std::string_view name)
{
   return &*fNames.emplace(name).first;
}

void TSchema::SetSuperclass(TStoredClass& declared, TStoredClass* superclass)
{
   if (declared.fSuperclass == superclass)
      return;
   if (declared.fSuperclass != nullptr) {
      std::vector<TStoredClass*>& siblings = declared.fSuperclass->fSubclasses;
      siblings.erase(std::find(siblings.begin(), siblings.end(), &declared));
   }
   declared.fSuperclass = superclass;
   if (superclass != nullptr)
      superclass->fSubclasses.push_back(&declared);
}

}  // namespace NZANQSX20
