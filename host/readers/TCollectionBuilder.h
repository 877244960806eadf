#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include <boost/shared_ptr.hpp>

#include "readers/TAliases.h"
#include "readers/TDeclarationReader.h"
#include "readers/TObjectDraft.h"
#include "readers/TPendingInstances.h"
#include "readers/TReadCounts.h"
#include "readers/TReadLimits.h"
#include "readers/TSourceText.h"
#include "readers/TStoredValueReader.h"
#include "store/TMemoryStore.h"

namespace NZANQSX20 {

/// Turns what the readers of all files found into the content of one store.
///
/// Shape:  classes and instances may come in any order. An instance goes straight into the store
///         when its class and all above it are declared; from the first one that cannot, they wait
///         until Finish, so that the order read is kept.
/// Throws: TReadError for what no collection may hold; the store is then to be thrown away.
class TCollectionBuilder
{
public:
   TCollectionBuilder(boost::shared_ptr<TMemoryStore> store, const TReadLimits& limits);
   ~TCollectionBuilder();

   const TReadLimits& GetLimits() const { return fLimits; }

   void DeclareQualifier(std::string_view name, TCIMValue::ECIMType type);
   void AddClass(const TObjectDraft& draft, const TSource& source);
   void AddInstance(const TObjectDraft& draft, const TSource& source);

   /// Stores what waits, ties the aliases, and warns of what is odd. Nothing is added after it.
   void Finish();

   /// Each "file:line:column: warning: ...", or "warning: ..." for the collection as a whole.
   const std::vector<std::string>& GetWarnings() const { return fWarnings; }

   const TReadCounts& GetCounts() const { return fCounts; }

private:
   struct TKnownClass;

   TKnownClass* FindComplete(std::string_view className);
   TKnownClass& FindOrImply(const TObjectDraft& draft, const TSource& source);
   TKnownClass& Know(TStoredClass& storedClass);
   TKnownProperty FindProperty(TKnownClass& known, std::size_t position, const TObjectDraft& draft,
                               const TSource& source);
   void Store(const TObjectDraft& draft, const TSource& source, TKnownClass& known);
   void StorePending();
   void CheckDepthOfClasses() const;
   [[noreturn]] void FailOfDepth(const TStoredClass& lowest) const;
   void WarnOfPlaceholders();
   void WarnOfDuplicatePaths();

   boost::shared_ptr<TMemoryStore> fStore;
   const TReadLimits fLimits;
   TDeclarationReader fDeclarations;
   TPendingInstances fPending;
   TAliases fAliases;
   TStoredValueReader fValues;
   std::vector<std::string> fWarnings;
   TReadCounts fCounts;

   /// Classes whose declaration cannot change any more, emptied with every new declaration.
   std::unordered_map<std::string_view, std::unique_ptr<TKnownClass>> fKnownClasses;
   TKnownClass* fLastKnown = nullptr;
   /// Where each superclass that is not declared so far was first named.
   std::unordered_map<std::string, std::pair<std::string, TPlace>> fNamedSuperclasses;
   /// Used again and again.
   std::unique_ptr<TInstanceDraft> fInstance;
};

}  // namespace NZANQSX20
