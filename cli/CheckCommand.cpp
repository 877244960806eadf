#include "CheckCommand.h"

#include <algorithm>
#include <iostream>
#include <map>

#include <fmt/format.h>

#include "Console.h"
#include "Gaps.h"
#include "Input.h"
#include "Options.h"
#include "store/TMemoryStore.h"

using NZANQSX20::TMemoryStore;
using NZANQSX20::TSlot;
using NZANQSX20::TStoredClass;
using NZANQSX20::TStoredInstance;
using NZANQSX20::TStoredValue;

namespace {

/// The references of one property that resolve to nothing.
struct TDangling
{
   std::size_t fCount = 0;
   std::string fFirstPath;
};

/// By "Class.Property".
using TDanglingReferences = std::map<std::string, TDangling>;

void Print(const std::string& text)
{
   std::cout << MakePrintable(text) << '\n';
}

void PrintHeading(const std::string& text)
{
   std::cout << '\n' << text << '\n';
}

void CheckReference(TMemoryStore& store, const TStoredInstance& instance, TSlot slot,
                    const TStoredValue& value, TDanglingReferences& dangling)
{
   if (value.IsNull() || value.GetType() != NZANQSX20::TCIMValue::TCIMType::kReference)
      return;
   if (value.IsArray()) {
      for (std::uint32_t i = 0; i < value.GetCount(); ++i)
         CheckReference(store, instance, slot, value.GetElements()[i], dangling);
      return;
   }
   if (store.Resolve(value) != nullptr)
      return;
   const TStoredClass& storedClass = instance.GetClass();
   TDangling& found = dangling[storedClass.GetName() + '.' + storedClass.GetSlotName(slot)];
   if (found.fCount++ == 0)
      found.fFirstPath = value.GetText();
}

TDanglingReferences FindDanglingReferences(TMemoryStore& store)
{
   TDanglingReferences dangling;
   for (const TStoredClass* storedClass : store.GetSchema().GetClasses())
      for (const TStoredInstance* instance : storedClass->GetInstances()) {
         const NZANQSX20::TShape& shape = instance->GetShape();
         for (std::uint32_t i = 0; i < shape.fCount; ++i)
            CheckReference(store, *instance, shape.fSlots[i], instance->GetValues()[i], dangling);
      }
   return dangling;
}

void PrintFiles(const NZANQSX20::TCollection& collection)
{
   for (const NZANQSX20::TFileFacts& file : collection.fFiles)
      Print(fmt::format("{}: {}{}{}, {} classes, {} instances", file.fName, file.fFormat,
                        *file.fCompression == '\0' ? "" : " in ", file.fCompression, file.fClasses,
                        file.fInstances));
}

void PrintClasses(const TMemoryStore& store)
{
   std::vector<std::pair<std::size_t, const TStoredClass*>> counts;
   for (const TStoredClass* storedClass : store.GetSchema().GetClasses())
      if (const std::size_t count = store.CountInstances(*storedClass); count > 0)
         counts.emplace_back(count, storedClass);
   std::stable_sort(counts.begin(), counts.end(),
                    [](const auto& a, const auto& b) { return a.first > b.first; });
   if (counts.empty())
      return;
   PrintHeading("Instances  Class");
   for (const auto& [count, storedClass] : counts)
      Print(fmt::format("{:>9}  {}", count, storedClass->GetName()));
}

void PrintDangling(TMemoryStore& store)
{
   const TDanglingReferences dangling = FindDanglingReferences(store);
   if (dangling.empty())
      return;
   PrintHeading("References that resolve to nothing");
   for (const auto& [name, found] : dangling)
      Print(fmt::format("{:>9}  {}, such as {}", found.fCount, name, found.fFirstPath));
}

void PrintList(const char* heading, const std::vector<std::string>& items)
{
   if (items.empty())
      return;
   PrintHeading(heading);
   for (const std::string& item : items)
      Print("  " + item);
}

}  // namespace

EExitCode RunCheckCommand(const TOptions& options, TConsole& console)
{
   NZANQSX20::TCollection collection = ReadCollections(options, options.fCollections, console);
   const std::size_t classCount = collection.fStore->GetSchema().GetClasses().size();
   const std::vector<std::string> added = AddExpectedClasses(options, *collection.fStore);
   console.ClearProgress();
   TMemoryStore& store = *collection.fStore;

   PrintFiles(collection);
   std::cout << fmt::format("\n{} classes, {} instances\n", classCount, store.CountInstances());
   PrintClasses(store);
   PrintList("Warnings", collection.fWarnings);
   PrintDangling(store);
   PrintList("Not collected", DescribeGaps(collection.fStore));
   PrintList("Classes that reports expect, added without instances", added);
   return kExitDone;
}
