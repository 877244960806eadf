#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <boost/shared_ptr.hpp>

#include "ICIMNamespace.h"
#include "QSXExport.h"
#include "store/Declarations.h"
#include "store/TArena.h"
#include "store/TInstanceDraft.h"
#include "store/TSchema.h"
#include "store/TStoredInstance.h"
#include "store/TStoredValue.h"

namespace NZANQSX20 {

class TInstanceIndex;
struct TReferrer;

/// One collection in memory: its classes, and its instances as compact records.
///
/// This is what readers fill and views read:
///
///    TMemoryStore store;
///    store.GetSchema().Declare(declaration);
///    TStoredClass& fans = *store.GetSchema().Find("ZANSG_Fan");
///    TInstanceDraft draft(fans);
///    draft.Set(fans.GetSlot("Name"), store.MakeString("Fan 1"));
///    store.Add(draft);
///    boost::shared_ptr<ICIMNamespace> cimNamespace = OpenNamespace(storeHandle);
///
/// Owner: records and texts live as long as the store; a deleted record stays readable. The store
/// holds no handle, so that there is no cycle with the views that hold the store.
class QSX_API TMemoryStore
{
public:
   TMemoryStore();
   ~TMemoryStore();
   TMemoryStore(const TMemoryStore&) = delete;
   TMemoryStore& operator=(const TMemoryStore&) = delete;

   TSchema& GetSchema() { return fSchema; }

   const TSchema& GetSchema() const { return fSchema; }

   // Values. What they point to is copied into the store.

   TStoredValue MakeString(std::string_view text);
   TStoredValue MakeDateTime(const TCIMDateTime& dateTime);
   /// Elements are of the array's type and no arrays; their texts are not copied again.
   /// Throws: status 13 for an element that is an array.
   TStoredValue MakeArray(TCIMValue::ECIMType type, const std::vector<TStoredValue>& elements);
   /// A reference to an instance of this store, an alias that the reader resolved: reads as that
   /// instance's path.
   TStoredValue MakeReference(const TStoredInstance& target);
   /// A reference by path text; a "//host/namespace:" prefix is dropped, keys are put in order.
   /// Nothing has to be there yet.
   /// Missing: false when the text is no object path; the value then is left alone.
   bool MakeReference(std::string_view path, TStoredValue& value);
   /// A reference is kept by its path.
   TStoredValue MakeValue(const TCIMValue& value);

   /// Keeps a buffer alive over which values were made with TStoredValue::StringView.
   void Keep(boost::shared_ptr<const void> buffer);

   // Instances, in the order in which they are added.

   /// Lists a new instance with what the draft holds; the draft may be used for the next.
   TStoredInstance& Add(const TInstanceDraft& draft);

   /// A new instance that is listed only after List.
   TStoredInstance& Create(TStoredClass& storedClass);
   /// Missing: an instance that is listed already stays where it is; one that was deleted comes
   /// back to its place.
   void List(TStoredInstance& instance);
   /// Missing: an instance that is not listed raises nothing.
   void Delete(TStoredInstance& instance);

   /// Sets a value, also one that the instance did not have. Every later read sees it.
   void Set(TStoredInstance& instance, TSlot slot, const TStoredValue& value);

   /// The listed instances of exactly this class.
   std::size_t CountInstances(const TStoredClass& storedClass) const;
   std::size_t CountInstances() const;

   /// The path of an instance: `Class.Key1="text",Key2=5`, or `Class.@=N` for one without keys.
   /// A key that is a reference to an instance nests that one's path, to a bounded depth.
   std::string GetPath(const TStoredInstance& instance) const;

   /// What answers to a path: looked up in the named class, then in its subclasses; of two
   /// instances of one path the first. Missing: null.
   TStoredInstance* FindByPath(std::string_view path);

   /// The instance that a reference value names. Missing: null for a null or a dangling one.
   TStoredInstance* Resolve(const TStoredValue& reference);

   struct TDuplicatePath
   {
      const TStoredClass* fClass;
      std::string fPath;
   };

   /// The first path of each class that more than one of its instances has, in order of classes.
   std::vector<TDuplicatePath> FindDuplicatePaths();

   /// The references that name an instance, in order of the instances that hold them; of one
   /// instance in order of declaration. Instances that are not listed are left out.
   std::vector<TReferrer> FindReferrers(const TStoredInstance& target);

   // What a run changes.

   /// One change, in the order of changes.
   struct TChange
   {
      enum EKind : unsigned char
      {
         kSet,
         kListed,
         kDeleted
      };

      EKind fKind = kSet;
      TStoredInstance* fInstance = nullptr;
      /// Of the value that was set.
      TSlot fSlot = 0;
      /// The value that it had. Missing: null, also where the instance had none.
      TStoredValue fBefore;
   };

   /// Keeps all further changes, but not the values of instances that are not listed yet.
   void RecordChanges() { fIsRecording = true; }

   const std::vector<TChange>& GetChanges() const { return fChanges; }

   /// Another number after each change of a value.
   std::uint64_t GetValueVersion() const { return fValueVersion; }

private:
   TStoredValue MakeReferenceText(std::string_view text);
   void Reserve(TStoredInstance& instance, std::uint32_t count);

   TSchema fSchema;
   TArena fArena;
   std::vector<boost::shared_ptr<const void>> fBuffers;
   std::unique_ptr<TInstanceIndex> fIndex;
   std::size_t fCount = 0;
   std::uint64_t fNextOrder = 0;
   std::uint64_t fValueVersion = 0;
   bool fIsRecording = false;
   std::vector<TChange> fChanges;
};

/// A namespace over one collection, a plain repository of provider type 0.
///
/// Owner: the namespace and every handle from it share the store; changes made through them are
/// changes of the store.
QSX_API boost::shared_ptr<ICIMNamespace> OpenNamespace(boost::shared_ptr<TMemoryStore> store);

}  // namespace NZANQSX20
