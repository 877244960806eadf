#include "readers/TCollectionBuilder.h"

#include <utility>

#include <fmt/format.h>
#include <boost/make_shared.hpp>

#include "readers/ReadValue.h"

namespace NZANQSX20 {

struct TCollectionBuilder::TKnownClass
{
   TStoredClass* fClass;
   /// What stood at each place of the last instance: the next one mostly has the same there.
   std::vector<TKnownProperty> fByPosition;
};

namespace {

bool IsComplete(const TStoredClass& storedClass)
{
   for (const TStoredClass* each = &storedClass; each != nullptr; each = each->GetSuperclass())
      if (each->IsPlaceholder())
         return false;
   return true;
}

/// Whether more classes than the limit lie above each other, this one the lowest.
bool IsDeeperThan(std::size_t limit, const TStoredClass* storedClass)
{
   std::size_t depth = 0;
   for (; storedClass != nullptr && depth <= limit; storedClass = storedClass->GetSuperclass())
      ++depth;
   return depth > limit;
}

std::string DescribeDepth(std::size_t limit)
{
   return fmt::format("expected at most {} classes above each other, found more", limit);
}

}  // namespace

TCollectionBuilder::TCollectionBuilder(boost::shared_ptr<TMemoryStore> store,
                                       const TReadLimits& limits)
   : fStore(std::move(store)), fLimits(limits), fValues(*fStore, fAliases)
{}

TCollectionBuilder::~TCollectionBuilder() = default;

void TCollectionBuilder::DeclareQualifier(std::string_view name, TCIMValue::ECIMType type)
{
   fDeclarations.DeclareQualifier(name, type);
}

void TCollectionBuilder::AddClass(const TObjectDraft& draft, const TSource& source)
{
   draft.CheckName(source, draft.fMark, draft.fClassName);
   draft.CheckName(source, draft.fMark, draft.fSuperclass);
   if (++fCounts.fClassesRead > fLimits.fClasses)
      source.Fail(draft.fMark,
                  fmt::format("expected at most {} classes, found more", fLimits.fClasses));

   fKnownClasses.clear();
   fLastKnown = nullptr;
   TSchema& schema = fStore->GetSchema();
   const TStoredClass* const superclass = schema.Find(draft.fSuperclass);
   // Before the declaration: the schema walks up the whole chain for each.
   if (IsDeeperThan(fLimits.fDepth - 1, superclass))
      source.Fail(draft.fMark, DescribeDepth(fLimits.fDepth));
   if (!draft.fSuperclass.empty() && superclass == nullptr)
      fNamedSuperclasses.emplace(draft.fSuperclass,
                                 std::make_pair(source.GetName(), source.Locate(draft.fMark)));
   switch (schema.Declare(fDeclarations.ReadClass(draft, source))) {
      case EDeclared::kNew:
         ++fCounts.fClassesStored;
         break;
      case EDeclared::kAgain:
         ++fCounts.fClassesRejected;
         fWarnings.push_back(FormatPlaced(
            source.GetName(), source.Locate(draft.fMark),
            fmt::format("warning: the class {} is declared again; the first declaration counts",
                        draft.fClassName)));
         break;
      case EDeclared::kSuperclassCycle:
         source.Fail(
            draft.fMark,
            fmt::format("expected a superclass of {} that does not derive from it, found {}",
                        draft.fClassName, QuoteForMessage(draft.fSuperclass)));
   }
}

void TCollectionBuilder::AddInstance(const TObjectDraft& draft, const TSource& source)
{
   draft.CheckName(source, draft.fMark, draft.fClassName);
   draft.CheckName(source, draft.fAliasMark, draft.fAlias);
   if (++fCounts.fInstancesRead > fLimits.fInstances)
      source.Fail(draft.fMark,
                  fmt::format("expected at most {} instances, found more", fLimits.fInstances));

   TKnownClass* const known = fPending.IsEmpty() ? FindComplete(draft.fClassName) : nullptr;
   if (known != nullptr)
      Store(draft, source, *known);
   else
      fPending.Push(draft, source);
}

void TCollectionBuilder::Finish()
{
   StorePending();
   fAliases.Tie(*fStore);
   CheckDepthOfClasses();
   WarnOfPlaceholders();
   WarnOfDuplicatePaths();
}

TCollectionBuilder::TKnownClass& TCollectionBuilder::Know(TStoredClass& storedClass)
{
   std::unique_ptr<TKnownClass>& known = fKnownClasses[storedClass.GetName()];
   if (!known)
      known = std::make_unique<TKnownClass>(TKnownClass{&storedClass, {}});
   fLastKnown = known.get();
   return *known;
}

TCollectionBuilder::TKnownClass* TCollectionBuilder::FindComplete(std::string_view className)
{
   if (fLastKnown != nullptr && fLastKnown->fClass->GetName() == className)
      return fLastKnown;
   const auto found = fKnownClasses.find(className);
   if (found != fKnownClasses.end())
      return fLastKnown = found->second.get();
   TStoredClass* const storedClass = fStore->GetSchema().Find(className);
   if (storedClass == nullptr || !IsComplete(*storedClass))
      return nullptr;
   return &Know(*storedClass);
}

/// The class of an instance once all files are read.
TCollectionBuilder::TKnownClass& TCollectionBuilder::FindOrImply(const TObjectDraft& draft,
                                                                 const TSource& source)
{
   if (fLastKnown != nullptr && fLastKnown->fClass->GetName() == draft.fClassName)
      return *fLastKnown;
   TSchema& schema = fStore->GetSchema();
   TStoredClass* storedClass = schema.Find(draft.fClassName);
   if (storedClass == nullptr || storedClass->IsPlaceholder()) {
      if (!draft.fIsOpen)
         source.Fail(draft.fMark, fmt::format("expected a declared class, found {}",
                                              QuoteForMessage(draft.fClassName)));
      fKnownClasses.clear();
      schema.Declare(fDeclarations.ReadInstanceAsClass(draft, source));
      ++fCounts.fClassesImplied;
      storedClass = schema.Find(draft.fClassName);
   }
   return Know(*storedClass);
}

void TCollectionBuilder::StorePending()
{
   if (fPending.IsEmpty())
      return;
   TObjectDraft draft(fLimits);
   fPending.Replay(draft, [this](const TObjectDraft& each, const TSource& source) {
      Store(each, source, FindOrImply(each, source));
   });
}

TKnownProperty TCollectionBuilder::FindProperty(TKnownClass& known, std::size_t position,
                                                const TObjectDraft& draft, const TSource& source)
{
   const TPropertyDraft& property = draft.fProperties[position];
   if (position < known.fByPosition.size() && known.fByPosition[position].fName == property.fName)
      return known.fByPosition[position];

   TStoredClass& storedClass = *known.fClass;
   const TStoredProperty* const declared = storedClass.FindProperty(property.fName);
   if (declared == nullptr) {
      if (!draft.fIsOpen)
         source.Fail(property.fMark,
                     fmt::format("expected a property of {}, found {}", storedClass.GetName(),
                                 QuoteForMessage(property.fName)));
      return {property.fName, storedClass.GetSlot(property.fName), property.fType,
              property.fIsArray};
   }
   const TPropertyDecl& declaration = declared->GetDeclaration();
   if (position >= known.fByPosition.size())
      known.fByPosition.resize(position + 1);
   return known.fByPosition[position] = {declaration.fName, storedClass.GetSlot(declaration.fName),
                                         declaration.fType, declaration.fIsArray};
}

void TCollectionBuilder::Store(const TObjectDraft& draft, const TSource& source, TKnownClass& known)
{
   if (!fInstance)
      fInstance = std::make_unique<TInstanceDraft>(*known.fClass);
   else
      fInstance->Start(*known.fClass);
   for (std::size_t position = 0; position < draft.fProperties.size(); ++position) {
      const TPropertyDraft& property = draft.fProperties[position];
      const TKnownProperty found = FindProperty(known, position, draft, source);
      if (fInstance->Has(found.fSlot))
         source.Fail(property.fMark, fmt::format("expected each property once, found {} again",
                                                 QuoteForMessage(property.fName)));
      fInstance->Set(found.fSlot, fValues.Read(draft, property, found, source));
   }

   TStoredInstance& instance = fStore->Add(*fInstance);
   ++fCounts.fInstancesStored;
   for (TAliases::TForwardReference& reference : fValues.TakeForwardReferences()) {
      reference.fInstance = &instance;
      fAliases.AddForwardReference(std::move(reference));
   }
   if (!draft.fAlias.empty() && !fAliases.Add(draft.fAlias, instance))
      source.Fail(
         draft.fAliasMark,
         fmt::format("expected an alias that is free, found ${}, which names another instance",
                     draft.fAlias));
}

/// Superclasses that came after their subclasses can join short chains to a long one.
void TCollectionBuilder::CheckDepthOfClasses() const
{
   for (const TStoredClass* storedClass : fStore->GetSchema().GetClasses())
      if (IsDeeperThan(fLimits.fDepth, storedClass))
         FailOfDepth(*storedClass);
}

void TCollectionBuilder::FailOfDepth(const TStoredClass& lowest) const
{
   // One of them came ahead of its superclass, or the chain had been refused as it grew.
   for (const TStoredClass* above = &lowest; above != nullptr; above = above->GetSuperclass()) {
      const auto named = fNamedSuperclasses.find(above->GetName());
      if (named != fNamedSuperclasses.end())
         throw TReadError(named->second.first, named->second.second, DescribeDepth(fLimits.fDepth));
   }
   throw TReadError(lowest.GetName(), {}, DescribeDepth(fLimits.fDepth));
}

void TCollectionBuilder::WarnOfPlaceholders()
{
   for (const TStoredClass* placeholder : fStore->GetSchema().GetPlaceholders()) {
      const auto named = fNamedSuperclasses.find(placeholder->GetName());
      const std::string text =
         fmt::format("warning: the superclass {} is not declared; it counts as an empty class",
                     placeholder->GetName());
      fWarnings.push_back(named == fNamedSuperclasses.end()
                             ? text
                             : FormatPlaced(named->second.first, named->second.second, text));
   }
}

void TCollectionBuilder::WarnOfDuplicatePaths()
{
   for (const TMemoryStore::TDuplicatePath& duplicate : fStore->FindDuplicatePaths())
      fWarnings.push_back(
         fmt::format("warning: several instances of {} have one path, such as {}; the first of "
                     "them answers to it",
                     duplicate.fClass->GetName(), duplicate.fPath));
}

}  // namespace NZANQSX20
