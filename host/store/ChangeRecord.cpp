#include "store/ChangeRecord.h"

#include <set>
#include <utility>

#include "store/StoredPath.h"
#include "store/StoredValueConversion.h"
#include "store/TReportText.h"
#include "store/TStoredClass.h"

namespace NZANQSX20 {

namespace {

using TChange = TMemoryStore::TChange;

std::string DescribeSingle(const TStoredValue& value, const TReportText& reportText,
                           const TMemoryStore& store)
{
   if (!value.IsNull() && value.GetType() == TCIMValue::TCIMType::kReference) {
      std::string path;
      AppendText(path, value);
      return path;
   }
   return reportText.GetText(ToValue(value, {}, store));
}

std::string DescribeValue(const TStoredValue& value, const TStoredProperty* declaration,
                          const TMemoryStore& store)
{
   static const TReportText kUndeclared;
   const TReportText& reportText =
      declaration != nullptr ? declaration->GetReportText() : kUndeclared;
   if (value.IsNull() || !value.IsArray())
      return DescribeSingle(value, reportText, store);
   std::string text;
   for (std::uint32_t i = 0; i < value.GetCount(); ++i)
      text += (i > 0 ? ", " : "") + DescribeSingle(value.GetElements()[i], reportText, store);
   return text;
}

class TChangeReader
{
public:
   explicit TChangeReader(const TMemoryStore& store) : fStore(store) {}

   std::vector<TChangeRecord> Read()
   {
      FindWholeInstances();
      for (const TChange& change : fStore.GetChanges())
         if (change.fKind == TChange::kSet)
            AddValue(change);
         else if (fWhole.erase(change.fInstance) > 0)
            AddInstance(*change.fInstance);
      return std::move(fRecords);
   }

private:
   /// An instance that was listed and deleted again is back where it was.
   void FindWholeInstances()
   {
      for (const TChange& change : fStore.GetChanges()) {
         if (change.fKind == TChange::kSet)
            continue;
         if (fWhole.erase(change.fInstance) == 0)
            fWhole.insert(change.fInstance);
      }
   }

   void AddInstance(const TStoredInstance& instance)
   {
      TChangeRecord record = MakeRecord(instance);
      record.fKind = instance.IsListed() ? TChangeRecord::kAdded : TChangeRecord::kRemoved;
      fRecords.push_back(std::move(record));
      fTold.insert({&instance, kWholeInstance});
   }

   void AddValue(const TChange& change)
   {
      const TStoredInstance& instance = *change.fInstance;
      const bool isTold = fTold.count({&instance, kWholeInstance}) > 0 || !instance.IsListed() ||
                          !fTold.insert({&instance, change.fSlot}).second;
      if (isTold)
         return;
      const TStoredClass& storedClass = instance.GetClass();
      const TStoredProperty* const declaration = storedClass.FindProperty(change.fSlot);
      const TStoredValue* const after = instance.Find(change.fSlot);
      TChangeRecord record = MakeRecord(instance);
      record.fProperty = storedClass.GetSlotName(change.fSlot);
      record.fFrom = DescribeValue(change.fBefore, declaration, fStore);
      record.fTo = after != nullptr ? DescribeValue(*after, declaration, fStore) : std::string();
      if (record.fFrom != record.fTo)
         fRecords.push_back(std::move(record));
   }

   TChangeRecord MakeRecord(const TStoredInstance& instance) const
   {
      TChangeRecord record;
      record.fClass = instance.GetClass().GetName();
      record.fInstance = fStore.GetPath(instance);
      return record;
   }

   static constexpr TSlot kWholeInstance = static_cast<TSlot>(-1);

   const TMemoryStore& fStore;
   std::set<const TStoredInstance*> fWhole;
   std::set<std::pair<const TStoredInstance*, TSlot>> fTold;
   std::vector<TChangeRecord> fRecords;
};

}  // namespace

std::vector<TChangeRecord> DescribeChanges(const TMemoryStore& store)
{
   return TChangeReader(store).Read();
}

}  // namespace NZANQSX20
